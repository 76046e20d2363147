// Time of Xmodem transfers on a line at 19200 baud that spoils 5 of 10,000 bytes, beside that of
// sx and rx of lrzsz on a line with the same faults: a byte of a place in the stream is dropped,
// flipped, doubled or followed by another one, whoever sends it. Adapters hand the bytes over
// every 16 ms. A transfer that doesn't end well counts with the time that it took.
#include "PacedTransfer.h"
#include "Ratio.h"

namespace tintbench::bench {
namespace {

constexpr std::uint32_t kSeeds = 8;
constexpr double kPatience = 150;

struct Row {
  const char* Name;
  Ends Between;
  int BlockSize;
  bool Crc;
  std::size_t Peer;
};

constexpr Row kRows[] = {
    {"lrzsz, 128, CRC", Ends::SxToRx, 128, true, 0},
    {"lrzsz, 128, checksum", Ends::SxToRx, 128, false, 1},
    {"lrzsz, 1024, CRC", Ends::SxToRx, 1024, true, 2},
    {"send, 128, CRC", Ends::OursToRx, 128, true, 0},
    {"send, 1024, CRC", Ends::OursToRx, 1024, true, 2},
    {"receive, 128, checksum", Ends::SxToOurs, 128, false, 1},
};

struct Total {
  double Seconds = 0;
  double Good = 0;
};

std::vector<Total> MeasureRows() {
  std::vector<TransferCase> cases;
  for (const Row& row : kRows) {
    for (std::uint32_t seed = 1; seed <= kSeeds; ++seed) {
      cases.push_back({.Between = row.Between, .BlockSize = row.BlockSize, .Crc = row.Crc});
      LineRules& rules = cases.back().Rules;
      rules.HandOver = 0.016;
      rules.FaultRate = 0.0005;
      rules.Seed = seed;
      rules.Patience = kPatience;
    }
  }
  std::vector<Total> totals(std::size(kRows));
  const auto outcomes = RunTransfers(cases);
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    Total& total = totals[i / kSeeds];
    total.Seconds += outcomes[i].Seconds;
    total.Good += outcomes[i].Good ? 1 : 0;
  }
  return totals;
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  using namespace tintbench::bench;
  const std::vector<Total> totals = MeasureRows();
  for (std::size_t i = 0; i < totals.size(); ++i) {
    const std::string name = std::string("faults, ") + kRows[i].Name;
    PrintRatio(name + ", good / all", totals[i].Good, kSeeds, "", "no aim set");
    if (kRows[i].Between == Ends::SxToRx) continue;
    PrintRatio(name + ", time / lrzsz", totals[i].Seconds, totals[kRows[i].Peer].Seconds, "s",
               "aim: not over 1");
  }
  return 0;
}
