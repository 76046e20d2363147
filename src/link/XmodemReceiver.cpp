#include "link/XmodemReceiver.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace tintbench::link {

namespace {

constexpr int kCharacterTimeoutMs = 5000;
constexpr int kSecondCancelTimeoutMs = 2000;  // the quiet behind the first one is part of it
constexpr int kDrainTimeoutMs = 1000;
// A sender waits silently behind its end of file, while in a block the next character follows at
// once, or, with an adapter that hands them over in heaps, within 16 ms.
constexpr int kQuietEndMs = 60;
constexpr std::size_t kCopySize = 65536;

// A block shows by its check whether its first character was meant.
bool ProvesItself(int answer) { return answer == kXmodemSoh || answer == kXmodemStx; }

}  // namespace

int XmodemReceiver::Run() {
  session_.State.UseCrc = false;
  int header = kXmodemSilence;
  const int status = Handshake(session_.Retries.StartChecksum, header);
  if (status != kXmodemSuccessful) return status;
  base::FileResult opened;
  file_ = session_.Files.OpenToWrite(session_.TempFile, base::WriteMode::kCreate, opened);
  if (!IsKept(opened) || file_ == nullptr) return session_.Cancel(kXmodemUnwritable);
  session_.Report.ReportStatus(kXmodemStarted);
  return ReceiveBlocks(header);
}

int XmodemReceiver::Handshake(const XmodemRetry& description, int& answer) {
  int word = description.Send;
  for (int attempt = 0; attempt < description.Retries; ++attempt) {
    if (session_.State.XmodemAbortFlag) return session_.Cancel(kXmodemAborted);
    session_.Line.SendChar(word);
    answer = AwaitAnswer(description);
    if (answer == kXmodemStopped) return session_.Cancel(kXmodemAborted);
    if (answer == kXmodemBel) return kXmodemMachineRefuses;
    askedAgain_ = attempt > 0;
    if (answer >= 0) return kXmodemSuccessful;
    // A block may have been lost, whole or in its start; another ACK would count for it.
    word = kXmodemNak;
  }
  return kXmodemRetriesUsedUp;
}

// Reads over what isn't believed, until the line rests or the time of one try is over.
int XmodemReceiver::AwaitAnswer(const XmodemRetry& description) {
  const double end = session_.Now() + description.TimeoutMs / 1000.0;
  int answer = session_.Line.ReadChar(description.TimeoutMs);
  if (answer < 0 || IsBelieved(answer, description)) return answer;
  do {
    answer = session_.Line.ReadChar(kDrainTimeoutMs);
    if (answer < 0 || ProvesItself(answer)) return answer;
    if (session_.Attend()) return kXmodemStopped;
  } while (session_.Now() < end);
  return kXmodemSilence;
}

// Of what comes behind strange characters only a block proves itself.
bool XmodemReceiver::IsBelieved(int answer, const XmodemRetry& description) {
  if (ProvesItself(answer)) return true;
  const auto& expected = description.Expected;
  const bool usable =
      answer == kXmodemBel || std::find(expected.begin(), expected.end(), answer) != expected.end();
  if (!usable) return false;
  const int next = session_.Line.PeekChar(kQuietEndMs);
  return next == kXmodemSilence || (answer == kXmodemCan && next == kXmodemCan);
}

int XmodemReceiver::ReceiveBlocks(int header) {
  while (header != kXmodemEot) {
    int status = CheckHeader(header);
    if (status != kXmodemSuccessful) return status;
    const int block = ReadBlock();
    const bool good = block == kXmodemSuccessful;
    if (good) status = KeepBlock();
    if (status != kXmodemSuccessful) return status;
    if (!good) ++session_.State.RepeatedBlocks;
    // A block that was asked for comes twice when the sender, too, had waited long enough. One
    // acknowledgement is for both: a second one would count for the next block.
    const int restMs = good ? kQuietEndMs : kDrainTimeoutMs;
    if ((!good || askedAgain_) && !DrainLine(restMs)) return session_.Cancel(kXmodemRetriesUsedUp);
    status = Handshake(good ? session_.Retries.NextBlock : session_.Retries.RepeatBlock, header);
    if (status != kXmodemSuccessful) return status;
    askedAgain_ = askedAgain_ || !good;
  }
  return Finish();
}

int XmodemReceiver::CheckHeader(int header) {
  XmodemState& state = session_.State;
  state.HeaderChar = header;
  if (header == kXmodemCan) {
    const int second = session_.Line.ReadChar(kSecondCancelTimeoutMs - kQuietEndMs);
    if (second == kXmodemStopped) return session_.Cancel(kXmodemAborted);
    return second == kXmodemCan ? session_.Cancel(kXmodemSenderCancelled) : kXmodemWrongHeader;
  }
  if (header != kXmodemSoh && header != kXmodemStx) return kXmodemWrongHeader;
  state.BlockSize = header == kXmodemStx ? kXmodemLargeBlock : kXmodemSmallBlock;
  return kXmodemSuccessful;
}

int XmodemReceiver::ReadBlock() {
  session_.ServeEvents();
  const int number = session_.Line.ReadChar(kCharacterTimeoutMs);
  if (number < 0) return kXmodemBlockTimeout;
  const int complement = session_.Line.ReadChar(kCharacterTimeoutMs);
  if (complement < 0) return kXmodemBlockTimeout;
  if ((255 ^ number) != complement) return kXmodemWrongComplement;
  XmodemState& state = session_.State;
  state.BlockNumber = static_cast<std::uint8_t>(number);
  state.BlockComplement = static_cast<std::uint8_t>(complement);
  const auto size = static_cast<std::size_t>(state.BlockSize);
  if (!session_.Line.ReadBlock(size, kCharacterTimeoutMs, state.BlockData)) {
    return kXmodemBlockTimeout;
  }
  session_.SumBlock();
  return CheckData();
}

int XmodemReceiver::CheckData() {
  const XmodemState& state = session_.State;
  const int first = session_.Line.ReadChar(kCharacterTimeoutMs);
  if (first < 0) return kXmodemBlockTimeout;
  if (!state.UseCrc) return first == state.Checksum ? kXmodemSuccessful : kXmodemWrongChecksum;
  const int second = session_.Line.ReadChar(kCharacterTimeoutMs);
  if (second < 0) return kXmodemBlockTimeout;
  const bool right = static_cast<std::uint32_t>(first * 256 + second) == state.Crc;
  return right ? kXmodemSuccessful : kXmodemWrongCrc;
}

int XmodemReceiver::KeepBlock() {
  XmodemState& state = session_.State;
  if (state.BlockNumber == expected_) {
    lastGood_ = expected_++;
    if (!IsKept(file_->Write(state.BlockData))) return session_.Cancel(kXmodemUnwritable);
    session_.CountBlock();
    session_.Report.ReportStatus(kXmodemProgress,
                                 {.Block = state.TransferredBlocks,
                                  .Bytes = state.TransferredBytes,
                                  .Crc = state.UseCrc ? 1 : 0,
                                  .Size1024 = state.BlockSize == kXmodemLargeBlock ? 1 : 0});
    return kXmodemSuccessful;
  }
  // A block that comes again, because our acknowledgement was lost, is acknowledged once more.
  const bool repeated = state.BlockNumber == lastGood_;
  return repeated ? kXmodemSuccessful : session_.Cancel(kXmodemOutOfSequence);
}

// False if the line doesn't come to rest for as long as a silent sender would be waited for.
bool XmodemReceiver::DrainLine(int restMs) {
  const XmodemRetry& repeat = session_.Retries.RepeatBlock;
  const double end = session_.Now() + repeat.Retries * (repeat.TimeoutMs / 1000.0);
  while (session_.Line.ReadChar(restMs) >= 0) {
    if (session_.Attend()) return true;
    if (session_.Now() >= end) return false;
  }
  return true;
}

int XmodemReceiver::Finish() {
  // Before the acknowledgement: as long as it is missing the sender knows that we don't have it.
  if (!IsKept(file_->Close())) return session_.Cancel(kXmodemUnwritable);
  session_.Line.SendChar(kXmodemAck);
  return PutInPlace() ? kXmodemSuccessful : kXmodemUnwritable;
}

// Notes why a step of keeping the file failed.
bool XmodemReceiver::IsKept(const base::FileResult& result) {
  if (!result) session_.State.Problem = result.Error();
  return static_cast<bool>(result);
}

bool XmodemReceiver::PutInPlace() {
  const std::string& target = session_.State.FileName;
  if (!IsKept(session_.Files.SyncToDevice(session_.TempFile))) return false;
  // Between two devices there is no renaming.
  if (!session_.Files.Rename(session_.TempFile, target)) return CopyInPlace();
  return IsKept(base::SyncFolderOf(session_.Files, target));
}

bool XmodemReceiver::CopyInPlace() {
  const auto source = session_.Files.OpenToRead(session_.TempFile);
  if (source == nullptr) return false;
  base::ReplacementFile copy(session_.Files, session_.State.FileName);
  std::array<char, kCopySize> buffer{};
  while (const std::size_t count = source->Read(buffer.data(), buffer.size())) {
    if (!IsKept(copy.Write({buffer.data(), count}))) return false;
  }
  if (source->Failed() || !IsKept(copy.Commit())) return false;
  std::ignore = session_.Files.Delete(session_.TempFile);
  return true;
}

}  // namespace tintbench::link
