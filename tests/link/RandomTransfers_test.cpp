// Ten thousand transfers in each direction on a line that spoils 5 of 10,000 bytes. One that ends
// well has carried the file as it is, and one that fails leaves the earlier file whole. What nobody
// could notice, by the rules of the protocol, is found in what crossed the line, whatever the
// engine says of it, and is the only excuse.
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "link/SpoiltPort.h"
#include "link/TransferPort.h"
#include "link/XmodemBench.h"

namespace tintbench::testing {
namespace {

constexpr std::uint32_t kParts = 4;
#ifdef __SANITIZE_ADDRESS__
constexpr std::uint32_t kTransfers = 250;  // of each part; a tenth, for the sanitizers' slowness
#else
constexpr std::uint32_t kTransfers = 2500;
#endif
constexpr std::size_t kLongest = 2048;
// Eleven tries of a block with a minute for each answer are the longest that one fault may cost.
constexpr double kLongestSeconds = 900;
const std::string kEarlier(300, 'e');

struct Case {
  std::uint32_t Seed;
  int BlockSize;
  bool Crc;
  std::string File;
};

Case CaseOf(std::uint32_t seed) {
  std::mt19937 random(seed);
  Case made{seed, random() % 2 == 0 ? 128 : 1024, random() % 2 == 0, {}};
  made.File.resize(1 + random() % kLongest);
  for (char& byte : made.File) byte = static_cast<char>(random());
  return made;
}

struct Finding {
  Outcome What;
  int Status = 0;
  double Seconds = 0;
};

class Desk {
 public:
  Finding Receive(const Case& wanted) {
    folder_.Put("target", kEarlier);
    const SentFile sent(wanted.File, static_cast<std::size_t>(wanted.BlockSize), false);
    simulator::XmodemSender machine(wanted.File, sent.BlockSize, {}, 0);
    base::VirtualClock clock;
    TransferPort far(clock, machine);
    SpoiltPort port(far, clock, wanted.Seed);
    link::Xmodem engine(port, clock, files_, {.AppPath = folder_.Path()});
    const int status = engine.XmodemReceiveQuiet(folder_.Path("target"));
    const std::string got = folder_.Get("target");
    Finding found{Outcome::Failed, status, clock.Now()};
    if (status == 0) found.What = ExplainReceived(sent, got, port);
    if (status != 0 && got != kEarlier) found.What = Outcome::Wrong;
    return found;
  }

  Finding Send(const Case& wanted) {
    folder_.Put("source", wanted.File);
    const SentFile sent(wanted.File, static_cast<std::size_t>(wanted.BlockSize), wanted.Crc);
    simulator::XmodemReceiver machine(wanted.Crc, {}, 0);
    base::VirtualClock clock;
    TransferPort far(clock, machine);
    SpoiltPort port(far, clock, wanted.Seed);
    link::Xmodem engine(port, clock, files_, {.AppPath = folder_.Path()});
    engine.XmodemBind();
    const int status =
        engine.XmodemTransfer(link::kXmodemSend, wanted.BlockSize, folder_.Path("source"));
    Finding found{Outcome::Failed, status, clock.Now()};
    if (status != 0) return found;
    const bool ended = machine.End() == simulator::TransferEnd::Good;
    found.What = ExplainSent(sent, machine.Text(), ended, port);
    return found;
  }

 private:
  ScratchFolder folder_;
  base::StandardFileSystem files_;
};

using Operation = Finding (Desk::*)(const Case&);

void TransferAll(Operation operation, std::uint32_t part) {
  Desk desk;
  std::map<Outcome, std::uint32_t> counts;
  double longest = 0;
  for (std::uint32_t seed = part * kTransfers + 1; seed <= (part + 1) * kTransfers; ++seed) {
    const Finding found = (desk.*operation)(CaseOf(seed));
    ++counts[found.What];
    EXPECT_NE(found.What, Outcome::Wrong) << "with seed " << seed << ", status " << found.Status;
    EXPECT_LT(found.Seconds, kLongestSeconds) << "with seed " << seed;
    longest = std::max(longest, found.Seconds);
  }
  // Excuses must stay rare, and so must failures.
  EXPECT_GE(counts[Outcome::Identical], kTransfers - kTransfers / 100);
  ::testing::Test::RecordProperty("Failed", std::to_string(counts[Outcome::Failed]));
  ::testing::Test::RecordProperty("EqualCheck", std::to_string(counts[Outcome::EqualCheck]));
  ::testing::Test::RecordProperty("ForgedWord", std::to_string(counts[Outcome::ForgedWord]));
  ::testing::Test::RecordProperty("LongestSeconds", std::to_string(longest));
}

class RandomTransfers : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomTransfers, ReceiveTheFileAsItIsOrNone) { TransferAll(&Desk::Receive, GetParam()); }
TEST_P(RandomTransfers, SendTheFileAsItIsOrSaySo) { TransferAll(&Desk::Send, GetParam()); }

INSTANTIATE_TEST_SUITE_P(Part, RandomTransfers, ::testing::Range(0U, kParts));

}  // namespace
}  // namespace tintbench::testing
