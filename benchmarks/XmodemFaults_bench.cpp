// Time of Xmodem transfers on a line at 19200 baud that spoils 5 of 10,000 bytes, beside that of
// sx and rx of lrzsz on a line with the same faults: a byte of a place in the stream is dropped,
// flipped, doubled or followed by another one, whoever sends it. Adapters hand the bytes over
// every 16 ms. The times are of the streams that both carried well. A transfer that fails, or lasts
// longer than it is given, counts as not good.
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

// By row, and in each by seed.
using Outcomes = std::vector<std::vector<TransferOutcome>>;

Outcomes MeasureRows() {
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
  Outcomes rows(std::size(kRows));
  const auto outcomes = RunTransfers(cases);
  for (std::size_t i = 0; i < outcomes.size(); ++i) rows[i / kSeeds].push_back(outcomes[i]);
  return rows;
}

void PrintRow(const std::string& name, const std::vector<TransferOutcome>& ours,
              const std::vector<TransferOutcome>& peer) {
  double seconds = 0;
  double peerSeconds = 0;
  double good = 0;
  double peerGood = 0;
  for (std::size_t i = 0; i < ours.size(); ++i) {
    good += ours[i].Good ? 1 : 0;
    peerGood += peer[i].Good ? 1 : 0;
    if (!ours[i].Good || !peer[i].Good) continue;
    seconds += ours[i].Seconds;
    peerSeconds += peer[i].Seconds;
  }
  PrintRatio(name + ", good / lrzsz", good, peerGood, "", "aim: not under 1");
  PrintRatio(name + ", time / lrzsz", seconds, peerSeconds, "s", "aim: not over 1");
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  using namespace tintbench::bench;
  const Outcomes rows = MeasureRows();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const Row& row = kRows[i];
    if (row.Between == Ends::SxToRx) continue;
    PrintRow(std::string("faults, ") + row.Name, rows[i], rows[row.Peer]);
  }
  return 0;
}
