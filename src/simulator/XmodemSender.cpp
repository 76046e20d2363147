#include <algorithm>
#include <utility>

#include "simulator/Xmodem.h"
#include "simulator/XmodemCodes.h"

namespace tintbench::simulator {

namespace {

constexpr double kStartSeconds = 60.0;  // the receiver's first request
// The reply to one block. Receivers repeat their own last word after ten seconds; two repeats that
// cross would leave the two sides a block apart.
constexpr double kReplySeconds = 8.0;
constexpr int kMostTries = 10;

}  // namespace

XmodemSender::XmodemSender(std::string text, std::size_t blockSize, const TransferFaults& faults,
                           double now)
    : text_(std::move(text)), blockSize_(blockSize), faults_(faults) {
  deadline_ = now + kStartSeconds;
  if (faults_.NoStart) state_ = State::Stalled;
}

std::size_t XmodemSender::BlockCount() const {
  return (text_.size() + blockSize_ - 1) / blockSize_;
}

void XmodemSender::Receive(unsigned char byte, double now) {
  if (End() != TransferEnd::Running) return;
  if (IsSecondCancel(byte)) return Finish(TransferEnd::Failed);
  if (state_ == State::Stalled) return;
  const char reply = static_cast<char>(byte);
  if (state_ == State::Start) {
    if (reply != kNak && reply != kCrcRequest) return;
    crc_ = reply == kCrcRequest;
    return Acknowledged(now);
  }
  if (reply == kNak) return Again(now);
  if (reply != kAck) return;
  if (Strikes(faults_.LoseAckAt, block_)) return;
  if (state_ == State::EndOfFile) return Finish(TransferEnd::Good);
  Acknowledged(now);
}

void XmodemSender::Tick(double now) {
  if (state_ == State::Block || state_ == State::EndOfFile) return Again(now);
  Finish(TransferEnd::Failed);
}

void XmodemSender::Again(double now) {
  if (++tries_ >= kMostTries) return CancelFromHere();
  Send(now);
}

void XmodemSender::Acknowledged(double now) {
  tries_ = 0;
  if (Strikes(faults_.RepeatAt, block_)) return Send(now);
  ++block_;
  if (Strikes(faults_.SkipAt, block_)) ++block_;
  if (block_ == faults_.CancelAt) return CancelFromHere();
  if (block_ == faults_.BelAt) return RefuseFromHere();
  state_ = block_ <= BlockCount() ? State::Block : State::EndOfFile;
  Send(now);
}

void XmodemSender::Send(double now) {
  deadline_ = now + kReplySeconds;
  if (Strikes(faults_.OneCancelAt, block_)) Emit(kCan);
  if (state_ == State::EndOfFile) {
    if (faults_.LostEots == 0) return Emit(kEot);
    --faults_.LostEots;
    return;
  }
  const std::string block = Framed(std::string_view(text_).substr((block_ - 1) * blockSize_));
  if (block_ == faults_.StallAt) {
    Emit(std::string_view(block).substr(0, block.size() / 2));
    state_ = State::Stalled;
  } else {
    Emit(block);
  }
}

std::string XmodemSender::Framed(std::string_view rest) {
  std::string data(rest.substr(0, blockSize_));
  data.resize(blockSize_, kPad);
  const auto number = static_cast<unsigned char>(block_ & 0xFFU);
  std::string frame{blockSize_ == kLongBlock ? kStx : kSoh, static_cast<char>(number),
                    static_cast<char>(255 - number)};
  frame += data;
  frame += CheckOf(data, crc_);
  if (Strikes(faults_.BadBlockAt, block_)) frame.back() = static_cast<char>(~frame.back());
  if (Strikes(faults_.BadComplementAt, block_)) frame[2] = static_cast<char>(number);
  return frame;
}

}  // namespace tintbench::simulator
