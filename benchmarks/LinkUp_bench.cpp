// How long a link-up with the simulated machine takes on the real clock, divided by the sum of its
// protocol minimums: the half second after the opening, the least time of one transaction, and the
// time of every byte of the configuration's exchange on the line, which carries one byte at a time.
#include <algorithm>
#include <filesystem>

#include "../tests/link/NotingPort.h"
#include "BenchScreen.h"
#include "Ratio.h"
#include "base/Clock.h"
#include "base/Files.h"
#include "shell/Program.h"
#include "simulator/SimulatedPort.h"

namespace tintbench::bench {
namespace {

constexpr double kOpening = 0.5;
constexpr double kTransaction = 0.3;
constexpr double kBitsOfAByte = 10.0;
constexpr double kBaud = 19200.0;

void Measure() {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "tintbench-bench";
  std::filesystem::create_directories(folder);
  base::RealClock clock;
  base::StandardFileSystem files;
  simulator::Machine machine(clock);
  simulator::SimulatedPort simulated(clock, {{1, &machine}});
  testing::NotingPort port(simulated);
  BenchScreen screen(clock);
  shell::Program program({clock, files, port, screen, base::MakeIdentity("TintBench", "0.0.0"),
                          folder.string(), "PORT(1:)"});
  screen.AtMainWindow = [&] {
    // As ever when something else than the main window uses the line.
    dynamic_cast<shell::Form1&>(*screen.FindForm("Form1")).Poll().EventuallyStopPolling();
    std::string number = "001";
    std::string settings = "19200,N,8,1";
    port.Sent = port.Read = 0;
    const double start = clock.Now();
    const int state = program.Linker().LinkMachine(number, settings);
    const double seconds = clock.Now() - start;
    if (state != link::kConfigKnown) std::printf("link-up failed\n");
    // The version's command and answer lie within the transaction's least time.
    const double transfer = static_cast<double>(port.Sent + port.Read - 11) * kBitsOfAByte / kBaud;
    PrintRatio("link-up / its protocol minimums", seconds, kOpening + kTransaction + transfer, "s",
               "aim: under 1.05");
  };
  program.Main();
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  tintbench::bench::Measure();
  return 0;
}
