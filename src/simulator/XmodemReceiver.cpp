#include <utility>

#include "simulator/Xmodem.h"
#include "simulator/XmodemCodes.h"

namespace tintbench::simulator {

namespace {

constexpr double kFirstRequestSeconds = 0.5;  // leaves the sender time to get ready
constexpr double kRequestSeconds = 3.0;
constexpr double kByteSeconds = 1.0;
constexpr double kQuietSeconds = 0.2;  // a line quiet for so long holds nothing of a bad block
constexpr int kCrcRequests = 3;
constexpr std::size_t kNumbers = 2;  // block number and its complement

}  // namespace

XmodemReceiver::XmodemReceiver(bool crc, const TransferFaults& faults, double now, int mostRequests)
    : crc_(crc), faults_(faults), mostRequests_(mostRequests) {
  deadline_ = now + kFirstRequestSeconds;
}

void XmodemReceiver::Receive(unsigned char byte, double now) {
  if (End() != TransferEnd::Running) return;
  switch (state_) {
    case State::Header:
      return Header(byte, now);
    case State::Block:
      frame_.push_back(static_cast<char>(byte));
      deadline_ = now + kByteSeconds;
      if (frame_.size() == kNumbers + blockSize_ + (crc_ ? 2U : 1U)) BlockDone(now);
      return;
    case State::Drain:
      deadline_ = now + kQuietSeconds;
      return;
    case State::Stalled:
      return;
  }
}

void XmodemReceiver::Header(unsigned char byte, double now) {
  if (IsSecondCancel(byte)) return Finish(TransferEnd::Failed);
  const char header = static_cast<char>(byte);
  if (header == kEot) {
    if (faults_.LoseAckAt == blocks_ + 1) {
      faults_.LoseAckAt = 0;
      return;
    }
    Emit(kAck);
    return Finish(TransferEnd::Good);
  }
  if (header != kSoh && header != kStx) return;
  blockSize_ = header == kSoh ? kShortBlock : kLongBlock;
  started_ = true;
  frame_.clear();
  state_ = State::Block;
  deadline_ = now + kByteSeconds;
}

bool XmodemReceiver::BlockGood() const {
  const std::string_view frame = frame_;
  const auto number = static_cast<unsigned char>(frame[0]);
  const auto complement = static_cast<unsigned char>(frame[1]);
  if (number + complement != 255) return false;
  return frame.substr(kNumbers + blockSize_) == CheckOf(frame.substr(kNumbers, blockSize_), crc_);
}

void XmodemReceiver::BlockDone(double now) {
  const bool spoiled = faults_.BadBlockAt == blocks_ + 1;
  if (spoiled) faults_.BadBlockAt = 0;
  if (spoiled || !BlockGood()) {
    state_ = State::Drain;
    deadline_ = now + kQuietSeconds;
    return;
  }
  const unsigned number = static_cast<unsigned char>(frame_[0]);
  if (number == ((blocks_ + 1) & 0xFFU)) {
    if (blocks_ + 1 == faults_.CancelAt || text_.size() > kLongest) return CancelFromHere();
    ++blocks_;
    text_.append(frame_, kNumbers, blockSize_);
  } else if (blocks_ == 0 || number != (blocks_ & 0xFFU)) {
    return CancelFromHere();
  }
  Acknowledge(now);
}

void XmodemReceiver::Acknowledge(double now) {
  asked_ = 0;
  state_ = State::Header;
  deadline_ = now + kRequestSeconds;
  if (blocks_ == faults_.StallAt) {
    state_ = State::Stalled;
  } else if (blocks_ == faults_.LoseAckAt) {
    faults_.LoseAckAt = 0;
  } else {
    Emit(kAck);
  }
}

void XmodemReceiver::Tick(double now) {
  if (state_ == State::Stalled) return Finish(TransferEnd::Failed);
  state_ = State::Header;
  Ask(now);
}

void XmodemReceiver::Ask(double now) {
  if (++asked_ > mostRequests_) return CancelFromHere();
  if (!started_ && asked_ > kCrcRequests) crc_ = false;
  Emit(crc_ && !started_ ? kCrcRequest : kNak);
  deadline_ = now + kRequestSeconds;
}

}  // namespace tintbench::simulator
