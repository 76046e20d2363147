// Line use of the Xmodem engine at 19200 baud: the payload's bits divided by those that the line
// could carry in the time from the sender's first byte to the last acknowledgement. Beside it the
// limit of a protocol with one acknowledgement a block, and the sx and rx programs of lrzsz on the
// same line in the same run. Once with a line that hands every byte over at once, and once with an
// adapter at either end that does so every 16 ms. rx is silent for a second before it confirms the
// end: that wait counts only where "whole" is said.
//
// A sender takes the check that its receiver asks for, and a receiver the block size that its
// sender chooses. Our reception always asks for checksums, so that there is none with a CRC.
#include <cmath>

#include "PacedTransfer.h"
#include "Ratio.h"

namespace tintbench::bench {
namespace {

constexpr double kAdapter = 0.016;
constexpr int kRounds = 2;

struct Row {
  const char* Name;
  Ends Between;
  int BlockSize;
  bool Crc;
  std::size_t Peer;  // the row of the two programs of lrzsz with the same blocks
};

constexpr Row kRows[] = {
    {"lrzsz, 128, checksum", Ends::SxToRx, 128, false, 0},
    {"lrzsz, 128, CRC", Ends::SxToRx, 128, true, 1},
    {"lrzsz, 1024, checksum", Ends::SxToRx, 1024, false, 2},
    {"lrzsz, 1024, CRC", Ends::SxToRx, 1024, true, 3},
    {"send, 128, checksum", Ends::OursToRx, 128, false, 0},
    {"send, 128, CRC", Ends::OursToRx, 128, true, 1},
    {"send, 1024, checksum", Ends::OursToRx, 1024, false, 2},
    {"send, 1024, CRC", Ends::OursToRx, 1024, true, 3},
    {"receive, 128, checksum", Ends::SxToOurs, 128, false, 0},
    {"receive, 1024, checksum", Ends::SxToOurs, 1024, false, 2},
};

struct LineUse {
  double Whole = 0;
  double WithoutEndWait = 0;
};

// A part of the line that no sender of such blocks can exceed.
double Limit(const Row& row, double handOver) {
  const LineRules rules;
  double block = (row.BlockSize + (row.Crc ? 5 : 4)) * rules.ByteSeconds;
  double acknowledgement = rules.ByteSeconds;
  if (handOver > 0) {
    block = std::ceil(block / handOver) * handOver;
    acknowledgement = handOver;
  }
  return row.BlockSize * rules.ByteSeconds / (block + acknowledgement);
}

// The best of the rounds, by row.
std::vector<LineUse> MeasureRows(double handOver, int rounds) {
  std::vector<TransferCase> cases;
  for (const Row& row : kRows) {
    cases.push_back({.Between = row.Between, .BlockSize = row.BlockSize, .Crc = row.Crc});
    cases.back().Rules.HandOver = handOver;
  }
  std::vector<LineUse> best(cases.size());
  for (int round = 0; round < rounds; ++round) {
    const auto outcomes = RunTransfers(cases);
    for (std::size_t i = 0; i < cases.size(); ++i) {
      if (!outcomes[i].Good) {
        std::printf("%s: the transfer failed\n", kRows[i].Name);
        continue;
      }
      const double payload = static_cast<double>(cases[i].Size) * cases[i].Rules.ByteSeconds;
      const LineTimes& times = outcomes[i].Times;
      best[i].Whole = std::max(best[i].Whole, payload / times.Whole());
      best[i].WithoutEndWait = std::max(best[i].WithoutEndWait, payload / times.WithoutEndWait());
    }
  }
  return best;
}

void PrintRows(const std::string& line, double handOver, int rounds) {
  const std::vector<LineUse> uses = MeasureRows(handOver, rounds);
  for (std::size_t i = 0; i < uses.size(); ++i) {
    const Row& row = kRows[i];
    const std::string name = line + row.Name;
    PrintRatio(name + " / limit", uses[i].WithoutEndWait, Limit(row, handOver), "", "aim: near 1");
    if (row.Between == Ends::SxToRx) {
      PrintRatio(name + ", whole / limit", uses[i].Whole, Limit(row, handOver), "", "peer");
      continue;
    }
    const LineUse& peer = uses[row.Peer];
    PrintRatio(name + " / lrzsz", uses[i].WithoutEndWait, peer.WithoutEndWait, "",
               "aim: not under 1");
    PrintRatio(name + ", whole / lrzsz", uses[i].Whole, peer.Whole, "", "aim: not under 1");
  }
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  using namespace tintbench::bench;
  PrintRows("", 0, kRounds);
  PrintRows("adapter, ", kAdapter, 1);
  return 0;
}
