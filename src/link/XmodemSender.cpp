#include "link/XmodemSender.h"

#include <algorithm>

#include "base/Numbers.h"

namespace tintbench::link {

namespace {

constexpr int kAnswerTimeoutMs = 60000;
// A "C" that comes sooner behind the first block, in seconds, was sent before the block was heard.
constexpr double kLateCrcStart = 1.0;
constexpr int kBlockTries = 11;
constexpr int kWrongStarts = 10;
constexpr int kCancelsToStop = 2;

}  // namespace

int XmodemSender::Run() {
  int status = WaitForStart();
  if (status == kXmodemSuccessful) status = SendFile();
  if (status == kXmodemSuccessful) status = EndTransfer();
  return status;
}

int XmodemSender::WaitForStart() {
  int cancels = 0;
  for (int wrong = 0; wrong < kWrongStarts;) {
    const int start = session_.Line.ReadChar(kAnswerTimeoutMs);
    session_.State.UseCrc = start == kXmodemCrcStart;
    switch (start) {
      case kXmodemCrcStart:
      case kXmodemNak:
        return kXmodemSuccessful;
      case kXmodemBel:
        return session_.Cancel(kXmodemMachineRefuses);
      case kXmodemSilence:
        return session_.Cancel(kXmodemNoStart);
      case kXmodemStopped:
        return session_.Cancel(kXmodemAborted);
      case kXmodemCan:
        if (++cancels == kCancelsToStop) return session_.Cancel(kXmodemReceiverCancelled);
        break;
      default:
        cancels = 0;
        ++wrong;
    }
  }
  return kXmodemNoStart;
}

int XmodemSender::SendFile() {
  XmodemState& state = session_.State;
  const bool large = state.RequestedBlockSize == kXmodemLargeBlock;
  state.BlockSize = large ? kXmodemLargeBlock : kXmodemSmallBlock;
  state.HeaderChar = large ? kXmodemStx : kXmodemSoh;
  const auto length = session_.Files.Length(state.FileName);
  const auto file = session_.Files.OpenToRead(state.FileName);
  if (file == nullptr || !length) return session_.Cancel(kXmodemUnreadable);
  const auto size = static_cast<std::uint64_t>(state.BlockSize);
  state.TotalBlocks = static_cast<std::int64_t>(*length / size + (*length % size != 0 ? 1 : 0));
  session_.Report.ReportStatus(kXmodemStarted, Progress());
  return SendBlocks(*file, *length);
}

int XmodemSender::SendBlocks(base::InputFile& file, std::uint64_t length) {
  XmodemState& state = session_.State;
  const auto size = static_cast<std::size_t>(state.BlockSize);
  while (length > 0) {
    const auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(size, length));
    state.BlockData.assign(size, static_cast<char>(kXmodemSub));
    if (file.Read(state.BlockData.data(), wanted) != wanted) {
      return session_.Cancel(kXmodemUnreadable);
    }
    length -= wanted;
    ++state.BlockNumber;
    state.BlockComplement = static_cast<std::uint8_t>(255 - state.BlockNumber);
    const int status = SendBlock();
    if (status != kXmodemSuccessful) return status;
  }
  return kXmodemSuccessful;
}

int XmodemSender::SendBlock() {
  session_.ServeEvents();
  const std::string block = WireBlock();
  int cancels = 0;
  for (int attempt = 0; attempt < kBlockTries; ++attempt) {
    if (session_.State.XmodemAbortFlag) return session_.Cancel(kXmodemAborted);
    if (attempt > 0) ++session_.State.RepeatedBlocks;
    session_.Line.Send(block);
    const int status = AwaitAcknowledge(cancels);
    if (status == kXmodemSuccessful) {
      session_.CountBlock();
      session_.Report.ReportStatus(kXmodemProgress, Progress());
    }
    if (status != kXmodemNotAcknowledged && status != kXmodemRefusedBlock) return status;
    session_.Report.ReportStatus(status);
  }
  return session_.Cancel(kXmodemNotAcknowledged);
}

std::string XmodemSender::WireBlock() {
  XmodemState& state = session_.State;
  session_.SumBlock();
  std::string block = {static_cast<char>(state.HeaderChar), static_cast<char>(state.BlockNumber),
                       static_cast<char>(state.BlockComplement)};
  block += state.BlockData;
  if (state.UseCrc) {
    block += static_cast<char>(state.Crc >> 8U);
    block += static_cast<char>(state.Crc & 0xFFU);
  } else {
    block += static_cast<char>(state.Checksum);
  }
  return block;
}

// A line that never rests is as good as silent: what is no answer is read over for as long as an
// answer is waited for.
int XmodemSender::AwaitAcknowledge(int& cancels) {
  const double sent = session_.Now();
  const double end = sent + kAnswerTimeoutMs / 1000.0;
  while (session_.Now() < end) {
    switch (session_.Line.ReadCharUntil(end)) {
      case kXmodemSilence:
        return kXmodemNotAcknowledged;
      case kXmodemStopped:
        return session_.Cancel(kXmodemAborted);
      case kXmodemAck:
        return kXmodemSuccessful;
      case kXmodemNak:
        return kXmodemRefusedBlock;
      case kXmodemCan:
        if (++cancels == kCancelsToStop) return session_.Cancel(kXmodemReceiverCancelled);
        break;
      case kXmodemCrcStart:
        if (AsksForFirstBlock(sent)) return kXmodemRefusedBlock;
        break;
      default:
        break;
    }
    if (session_.Attend()) return session_.Cancel(kXmodemAborted);
  }
  return kXmodemNotAcknowledged;
}

// A receiver that wants a CRC says so again where another one would refuse the first block.
bool XmodemSender::AsksForFirstBlock(double sent) const {
  const XmodemState& state = session_.State;
  return state.UseCrc && state.TransferredBlocks == 0 && session_.Now() - sent >= kLateCrcStart;
}

int XmodemSender::EndTransfer() {
  for (;;) {
    session_.Line.SendChar(kXmodemEot);
    const int answer = session_.Line.ReadChar(kAnswerTimeoutMs);
    if (answer == kXmodemSilence) return kXmodemNoEndReply;
    if (answer == kXmodemAck) return kXmodemSuccessful;
    if (answer == kXmodemStopped || session_.Attend()) return session_.Cancel(kXmodemAborted);
  }
}

XmodemProgress XmodemSender::Progress() const {
  XmodemState& state = session_.State;
  if (state.TotalBlocks > 0) {
    const double hundredfold = 100.0 * static_cast<double>(state.TransferredBlocks);
    const double percent = hundredfold / static_cast<double>(state.TotalBlocks);
    state.Percent = static_cast<int>(base::RoundHalfEven(percent));
  }
  return {state.TransferredBlocks, state.TotalBlocks,    state.TransferredBytes,
          state.Percent,           state.UseCrc ? 1 : 0, state.HeaderChar == kXmodemStx ? 1 : 0};
}

}  // namespace tintbench::link
