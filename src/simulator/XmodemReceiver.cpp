#include <utility>

#include "simulator/Xmodem.h"
#include "simulator/XmodemCodes.h"

namespace tintbench::simulator {

namespace {

constexpr double kFirstRequestSeconds = 0.5;  // leaves the sender time to get ready
constexpr double kRequestSeconds = 3.0;
constexpr double kByteSeconds = 1.0;
constexpr double kQuietSeconds = 0.2;      // a line quiet for so long holds nothing of a bad block
constexpr double kStalledSeconds = 120.0;  // silent for longer than anyone waits
constexpr int kCrcRequests = 3;
constexpr std::size_t kNumbers = 2;  // block number and its complement

}  // namespace

XmodemReceiver::XmodemReceiver(bool crc, const TransferFaults& faults, double now, int mostRequests)
    : crc_(crc), faults_(faults), mostRequests_(mostRequests) {
  deadline_ = now + kFirstRequestSeconds;
  if (!faults_.NoStart) return;
  state_ = State::Stalled;
  deadline_ = now + kStalledSeconds;
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
      if (IsSecondCancel(byte)) Finish(TransferEnd::Failed);
      return;
  }
}

void XmodemReceiver::Header(unsigned char byte, double now) {
  if (IsSecondCancel(byte)) return Finish(TransferEnd::Failed);
  const char header = static_cast<char>(byte);
  if (header == kEot) return EndOfFile();
  if (header != kSoh && header != kStx) return;
  blockSize_ = header == kSoh ? kShortBlock : kLongBlock;
  started_ = true;
  frame_.clear();
  state_ = State::Block;
  deadline_ = now + kByteSeconds;
}

void XmodemReceiver::EndOfFile() {
  if (faults_.LostEots > 0) {
    --faults_.LostEots;
    return;
  }
  if (faults_.RefusedEots > 0) {
    --faults_.RefusedEots;
    return Emit(kNak);
  }
  if (Strikes(faults_.LoseAckAt, blocks_ + 1)) return;
  if (Strikes(faults_.OneCancelAt, blocks_ + 1)) Emit(kCan);
  Emit(kAck);
  if (Strikes(faults_.DoubleAckAt, blocks_ + 1)) Emit(kAck);
  Finish(TransferEnd::Good);
}

bool XmodemReceiver::BlockGood() const {
  const std::string_view frame = frame_;
  const auto number = static_cast<unsigned char>(frame[0]);
  const auto complement = static_cast<unsigned char>(frame[1]);
  if (number + complement != 255) return false;
  return frame.substr(kNumbers + blockSize_) == CheckOf(frame.substr(kNumbers, blockSize_), crc_);
}

void XmodemReceiver::BlockDone(double now) {
  const std::size_t next = blocks_ + 1;
  if (Strikes(faults_.BadBlockAt, next) || Strikes(faults_.BadComplementAt, next) || !BlockGood()) {
    state_ = State::Drain;
    deadline_ = now + kQuietSeconds;
    return;
  }
  const unsigned number = static_cast<unsigned char>(frame_[0]);
  if (number == (next & 0xFFU)) return TakeNext(now);
  if (blocks_ == 0 || number != (blocks_ & 0xFFU)) return CancelFromHere();
  Acknowledge(now);
}

void XmodemReceiver::TakeNext(double now) {
  if (blocks_ + 1 == faults_.CancelAt || text_.size() > kLongest) return CancelFromHere();
  state_ = State::Header;
  deadline_ = now + kRequestSeconds;
  if (Strikes(faults_.NakAt, blocks_ + 1)) return Emit(kNak);
  if (Strikes(faults_.SkipAt, blocks_ + 1)) return Emit(kAck);
  ++blocks_;
  text_.append(frame_, kNumbers, blockSize_);
  if (Strikes(faults_.RepeatAt, blocks_)) return Emit(kNak);
  Acknowledge(now);
}

void XmodemReceiver::Acknowledge(double now) {
  asked_ = 0;
  state_ = State::Header;
  deadline_ = now + kRequestSeconds;
  if (blocks_ == faults_.StallAt) {
    state_ = State::Stalled;
    return;
  }
  if (faults_.BelAt == blocks_ + 1) return RefuseFromHere();
  if (Strikes(faults_.LoseAckAt, blocks_)) return;
  if (Strikes(faults_.OneCancelAt, blocks_)) Emit(kCan);
  Emit(kAck);
  if (Strikes(faults_.DoubleAckAt, blocks_)) Emit(kAck);
}

void XmodemReceiver::Tick(double now) {
  if (state_ == State::Stalled) return Finish(TransferEnd::Failed);
  state_ = State::Header;
  Ask(now);
}

void XmodemReceiver::Ask(double now) {
  if (++asked_ > mostRequests_) return CancelFromHere();
  if (!started_ && faults_.BelAt == 1) return RefuseFromHere();
  if (!started_ && asked_ > kCrcRequests) crc_ = false;
  Emit(crc_ && !started_ ? kCrcRequest : kNak);
  deadline_ = now + kRequestSeconds;
}

}  // namespace tintbench::simulator
