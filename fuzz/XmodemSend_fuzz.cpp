// Sending a file by Xmodem. An input's first line has five numbers: at which serving of events the
// operator stops the transfer, which file operation fails (0: none), whether blocks are large, the
// file's length, and whether the transfer is traced. The rest is what the far end does; see
// `NextActs`.
#include <algorithm>
#include <array>

#include "Blocks.h"
#include "FuzzInput.h"
#include "Target.h"
#include "TransferDesk.h"

namespace tintbench::fuzz {
namespace {

constexpr double kLongestWait = 61.0;
constexpr std::size_t kMostActs = 200;
constexpr int kBlockTries = 11;

std::string FileOf(int length) {
  std::string file(static_cast<std::size_t>(length), '\0');
  for (std::size_t i = 0; i < file.size(); ++i) file[i] = static_cast<char>(i * 11 + i / 128);
  return file;
}

std::size_t BlocksOf(const std::string& file, bool large) {
  const std::size_t size = large ? 1024 : 128;
  return (file.size() + size - 1) / size;
}

std::deque<Act> Answered(char reply) {
  return {{.What = Act::Kind::Await, .Seconds = kLongestWait}, {.Bytes = std::string(1, reply)}};
}

// A, N, X: ACK, NAK, CAN behind a word of the sender. S: a request for CRC, K: one for checksums,
// both without waiting. C, L: CAN and BEL, the same. W n: n quarters of a second. " n: so many of
// the bytes that follow. U: the line is taken off. Blanks and line ends mean nothing; any other
// byte is sent.
std::deque<Act> NextActs(FuzzInput& input) {
  const unsigned char letter = input.Byte();
  switch (letter) {
    case 'A':
      return Answered(kAck);
    case 'N':
      return Answered(kNak);
    case 'X':
      return Answered(kCan);
    case 'S':
      return {{.Bytes = "C"}};
    case 'K':
      return {{.Bytes = {kNak}}};
    case 'C':
      return {{.Bytes = {kCan}}};
    case 'L':
      return {{.Bytes = {kBel}}};
    case 'W':
      return {{.What = Act::Kind::Wait, .Seconds = input.Byte() * 0.25}};
    case 'U':
      return {{.What = Act::Kind::Unplug}};
    case '"':
      return {{.Bytes = input.Take(input.Byte())}};
    case ' ':
    case '\n':
      return {};
    default:
      return {{.Bytes = std::string(1, static_cast<char>(letter))}};
  }
}

// What waits on the line at the start is thrown away, so the far end begins with a pause.
std::deque<Act> ActsOf(FuzzInput& input) {
  std::deque<Act> acts{{.What = Act::Kind::Wait, .Seconds = 0.5}};
  while (!input.AtEnd() && acts.size() < kMostActs) {
    for (Act& act : NextActs(input)) acts.push_back(std::move(act));
  }
  return acts;
}

// True if the far end asks once and then acknowledges blocks and end.
bool IsGood(FuzzInput input, std::size_t blocks) {
  std::string letters = input.Rest();
  std::erase(letters, ' ');
  return letters.size() > blocks + 1 && letters.find_first_of("SK") == 0 &&
         letters.find_first_not_of('A', 1) == std::string::npos;
}

bool IsSenderStatus(int status) {
  constexpr std::array<int, 8> kStatuses{0, 3, 5, 6, 8, 9, 12, 255};
  return std::find(kStatuses.begin(), kStatuses.end(), status) != kStatuses.end();
}

void CheckSent(const TransferDesk& desk, const std::string& file, bool large, int status) {
  const std::size_t size = large ? 1024 : 128;
  const bool crc = desk.Engine.State().UseCrc;
  const SentFile sent = TakeApart(desk.Port.Written(), size, crc);
  Require(sent.Clean, "the line carries whole blocks in their order");
  std::string padded = file;
  padded.resize(BlocksOf(file, large) * size, kPad);
  Require(padded.starts_with(sent.Data), "the blocks are the file's");
  Require(status != 0 || (sent.Data == padded && sent.Ended),
          "a file that was sent was sent whole");
}

}  // namespace
}  // namespace tintbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tintbench;
  fuzz::FuzzInput input(data, size);
  const int abortAt = input.Number(2000);
  const int failAt = input.Number(40);
  const bool large = input.Flag();
  const std::string file = fuzz::FileOf(input.Number(5000));
  const bool traced = input.Flag();
  const bool good = fuzz::IsGood(input, fuzz::BlocksOf(file, large));
  const std::deque<fuzz::Act> acts = fuzz::ActsOf(input);
  double longest = 0;
  for (const fuzz::Act& act : acts) {
    longest += act.Seconds + static_cast<double>(act.Bytes.size()) * fuzz::kLongestWait;
  }
  longest += (fuzz::kBlockTries * 40 + 3) * fuzz::kLongestWait;
  fuzz::TransferDesk desk(acts, abortAt, traced);
  desk.Files.Put(fuzz::TransferDesk::kFile, file);
  desk.Files.FailAt(failAt);
  const int status = desk.Run(link::kXmodemSend, large ? 1024 : 128);
  const bool undisturbed = abortAt == 0 && !desk.Files.HasFailed();
  fuzz::Require(status == 0 || !undisturbed || !good, "a good receiver gets the file");
  fuzz::Require(fuzz::IsSenderStatus(status), "the status is one of the sender's");
  fuzz::Require(desk.Clock.Now() <= longest, "the sending ends in time");
  fuzz::Require(desk.Files.Get(fuzz::TransferDesk::kFile) == file, "the file stays as it is");
  fuzz::CheckSent(desk, file, large, status);
  return 0;
}
