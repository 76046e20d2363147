// Receiving a file by Xmodem. An input's first line has four numbers: at which serving of events
// the operator stops the transfer, which file operation fails (0: none), whether an earlier file is
// there, and whether the transfer is traced. The rest is what the far end does; see `NextActs`.
#include <algorithm>
#include <array>

#include "Blocks.h"
#include "FuzzInput.h"
#include "Target.h"
#include "TransferDesk.h"

namespace tintbench::fuzz {
namespace {

constexpr const char* kEarlier = "the earlier file";
// The longest that the receiver waits in one piece, with some seconds above.
constexpr double kLongestWait = 12.0;
constexpr std::size_t kMostActs = 200;

std::string Pattern(std::size_t size, unsigned char start) {
  std::string data(size, '\0');
  for (std::size_t i = 0; i < size; ++i) data[i] = static_cast<char>(start + i * 7 + i / 128);
  return data;
}

// A sender whose next steps are told by letters.
class Sender {
 public:
  // B n, K n: a good block of 128 or 1024 bytes, behind a word of the receiver. R: the last one
  // again. X p x: the next block with the byte at place p changed. E: the end, behind a word of
  // the receiver. C, L: CAN, BEL. W n: n quarters of a second. " n: so many of the bytes that
  // follow. U: the line is taken off. Blanks and line ends mean nothing; any other byte is sent.
  std::deque<Act> NextActs(FuzzInput& input) {
    const unsigned char letter = input.Byte();
    Judge(letter);
    switch (letter) {
      case 'B':
      case 'K':
        last_ = Block(++number_, Pattern(letter == 'B' ? 128 : 1024, input.Byte()), false);
        return Answered(last_);
      case 'R':
        return Answered(last_);
      case 'X':
        return Answered(Spoiled(input));
      case 'E':
        return Answered({kEot});
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

  // True if all steps so far are those of a sender that does all well and has come to its end. It
  // may repeat a block once, as after a lost acknowledgement.
  bool IsGood() const { return good_ && lastLetter_ == 'E'; }

 private:
  void Judge(unsigned char letter) {
    if (letter == ' ' || letter == '\n') return;
    const bool block = letter == 'B' || letter == 'K';
    const bool behindBlock = lastLetter_ == 'B' || lastLetter_ == 'K' || lastLetter_ == 'R';
    good_ =
        good_ && lastLetter_ != 'E' && (block || (behindBlock && (letter == 'R' || letter == 'E')));
    lastLetter_ = letter;
  }

  static std::deque<Act> Answered(const std::string& bytes) {
    return {{.What = Act::Kind::Await, .Seconds = kLongestWait}, {.Bytes = bytes}};
  }

  std::string Spoiled(FuzzInput& input) const {
    std::string block = Block(number_ + 1, Pattern(128, 0), false);
    char& byte = block[std::min<std::size_t>(input.Byte(), block.size() - 1)];
    byte = static_cast<char>(byte ^ input.Byte());
    return block;
  }

  std::size_t number_ = 0;
  std::string last_;
  unsigned char lastLetter_ = 0;
  bool good_ = true;
};

std::deque<Act> ActsOf(FuzzInput& input, Sender& sender) {
  std::deque<Act> acts;
  while (!input.AtEnd() && acts.size() < kMostActs) {
    for (Act& act : sender.NextActs(input)) acts.push_back(std::move(act));
  }
  return acts;
}

bool IsReceiverStatus(int status) {
  constexpr std::array<int, 8> kStatuses{0, 4, 5, 7, 10, 13, 17, 255};
  return std::find(kStatuses.begin(), kStatuses.end(), status) != kStatuses.end();
}

void CheckFile(TransferDesk& desk, int status, bool earlier) {
  const bool there = desk.Files.FileExists(TransferDesk::kFile);
  const std::string file = desk.Files.Get(TransferDesk::kFile);
  const bool isNew = there && Brings(desk.Port.Read(), file);
  const bool isOld = there == earlier && file == (earlier ? kEarlier : "");
  Require(status != 0 || isNew, "a file that was received is what came on the line");
  Require(status == 0 || isOld || (desk.Files.HasFailed() && isNew),
          "a failed reception leaves the earlier file");
  const std::string& written = desk.Port.Written();
  Require(status != 0 || written.empty() || written.back() == kAck, "the end is acknowledged");
}

}  // namespace
}  // namespace tintbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tintbench;
  fuzz::FuzzInput input(data, size);
  const int abortAt = input.Number(2000);
  const int failAt = input.Number(40);
  const bool earlier = input.Flag();
  const bool traced = input.Flag();
  fuzz::Sender sender;
  const std::deque<fuzz::Act> acts = fuzz::ActsOf(input, sender);
  double longest = 20 * fuzz::kLongestWait;
  for (const fuzz::Act& act : acts) longest += act.Seconds + 11 * fuzz::kLongestWait;
  fuzz::TransferDesk desk(acts, abortAt, traced);
  if (earlier) desk.Files.Put(fuzz::TransferDesk::kFile, fuzz::kEarlier);
  desk.Files.FailAt(failAt);
  const int status = desk.Run(link::kXmodemReceive, 128);
  const bool undisturbed = abortAt == 0 && !desk.Files.HasFailed();
  fuzz::Require(status == 0 || !undisturbed || !sender.IsGood(), "a good sender is received");
  fuzz::Require(fuzz::IsReceiverStatus(status), "the status is one of the receiver's");
  fuzz::Require(desk.Clock.Now() <= longest, "the reception ends in time");
  fuzz::CheckFile(desk, status, earlier);
  return 0;
}
