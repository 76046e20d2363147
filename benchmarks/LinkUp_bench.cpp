// How long a link-up with the simulated machine takes on the real clock, divided by the sum of its
// protocol minimums: the half second after the opening, the least time of one transaction, and the
// time of every byte of the configuration's exchange on the line, which carries one byte at a time.
#include <algorithm>
#include <filesystem>

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

// Counts the bytes that pass in either direction.
class CountingPort final : public link::SerialPort {
 public:
  explicit CountingPort(link::SerialPort& port) : port_(port) {}
  std::size_t Bytes = 0;

  int CommPort() const override { return port_.CommPort(); }
  void CommPort(int number) override { port_.CommPort(number); }
  std::string Settings() const override { return port_.Settings(); }
  void Settings(const std::string& settings) override { port_.Settings(settings); }
  bool PortOpen() const override { return port_.PortOpen(); }
  bool PortOpen(bool open) override { return port_.PortOpen(open); }
  int InBufferSize() const override { return port_.InBufferSize(); }
  void InBufferSize(int bytes) override { port_.InBufferSize(bytes); }
  int OutBufferSize() const override { return port_.OutBufferSize(); }
  void OutBufferSize(int bytes) override { port_.OutBufferSize(bytes); }
  int InputLen() const override { return port_.InputLen(); }
  void InputLen(int bytes) override { port_.InputLen(bytes); }
  std::size_t InBufferCount() override { return port_.InBufferCount(); }
  std::string Input() override {
    std::string bytes = port_.Input();
    Bytes += bytes.size();
    return bytes;
  }
  void Output(std::string_view bytes) override {
    Bytes += bytes.size();
    port_.Output(bytes);
  }
  bool WaitForInput(double seconds) override { return port_.WaitForInput(seconds); }

 private:
  link::SerialPort& port_;
};

void Measure() {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() / "tintbench-bench";
  std::filesystem::create_directories(folder);
  base::RealClock clock;
  base::StandardFileSystem files;
  simulator::Machine machine(clock);
  simulator::SimulatedPort simulated(clock, {{1, &machine}});
  CountingPort port(simulated);
  BenchScreen screen(clock);
  shell::Program program({clock, files, port, screen, shell::MakeIdentity("TintBench", "0.0.0"),
                          folder.string(), "PORT(1:)"});
  screen.AtMainWindow = [&] {
    // As ever when something else than the main window uses the line.
    dynamic_cast<shell::Form1&>(*screen.FindForm("Form1")).Poll().EventuallyStopPolling();
    std::string number = "001";
    std::string settings = "19200,N,8,1";
    port.Bytes = 0;
    const double start = clock.Now();
    const int state = program.Linker().LinkMachine(number, settings);
    const double seconds = clock.Now() - start;
    if (state != link::kConfigKnown) std::printf("link-up failed\n");
    // The version's command and answer lie within the transaction's least time.
    const double transfer = static_cast<double>(port.Bytes - 11) * kBitsOfAByte / kBaud;
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
