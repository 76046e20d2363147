// Hours of transactions with the simulated machine, on the clock that only waits advance, that a
// second of processor time holds, beside the same second of the real clock.
#include <ctime>
#include <iostream>

#include "Ratio.h"
#include "base/Clock.h"
#include "base/Files.h"
#include "link/Transaction.h"
#include "simulator/SimulatedPort.h"
#include "ui/OperatorScreen.h"

namespace tintbench::bench {
namespace {

constexpr auto kStatusRow = link::CommandId::ReadInputs;
constexpr double kProcessorSeconds = 3.0;
constexpr double kSecondsOfAnHour = 3600.0;
constexpr int kBatch = 1000;

double ProcessorSeconds() {
  return static_cast<double>(std::clock()) / static_cast<double>(CLOCKS_PER_SEC);
}

bool Measure() {
  base::VirtualClock clock;
  base::StandardFileSystem files;
  simulator::Machine machine(clock);
  simulator::SimulatedPort port(clock, {{1, &machine}});
  port.CommPort(1);
  port.Settings("19200,N,8,1");
  if (!port.PortOpen(true)) return false;
  link::CommandTable commands;
  ui::OperatorScreen screen(clock, {}, std::cout, std::cerr);
  link::DebugLog log(files, "");
  link::Transaction transaction(port, clock, commands, screen, log);
  link::LineView view;
  const std::size_t whole = link::ExpectedAnswerLength(commands.Row(kStatusRow));
  double transactions = 0;
  const double start = clock.Now();
  const double before = ProcessorSeconds();
  while (ProcessorSeconds() - before < kProcessorSeconds) {
    for (int i = 0; i < kBatch; ++i) {
      if (transaction.SendCommand(view, kStatusRow).size() != whole) return false;
    }
    transactions += kBatch;
  }
  const double processor = ProcessorSeconds() - before;
  const double hours = (clock.Now() - start) / kSecondsOfAnHour;
  PrintRatio("virtual hours of a processor second / real", hours / processor, 1 / kSecondsOfAnHour,
             "h", "no aim set");
  PrintRatio("processor time of a transaction / its length", processor / transactions * 1e6,
             hours * kSecondsOfAnHour / transactions * 1e6, "us", "no aim set");
  return true;
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  if (tintbench::bench::Measure()) return 0;
  std::printf("a transaction failed\n");
  return 1;
}
