// tintbench-machine: the simulated machine at a pseudo-terminal, for any program that speaks to a
// serial line.
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "app/EndSignals.h"
#include "app/MachineOptions.h"
#include "app/MachineTerminal.h"
#include "base/Clock.h"
#include "simulator/Machine.h"

namespace tintbench::app {

namespace {

constexpr int kGood = 0;
constexpr int kWrongUse = 2;
constexpr std::streamsize kLargestFile = 1 << 20;
constexpr std::size_t kLongestWords = 1024;

void Report(const std::string& what) {
  std::fprintf(stderr, "tintbench-machine: %s\n", what.c_str());
}

int Fail(const std::string& reason) {
  Report(reason);
  return kWrongUse;
}

std::optional<std::string> ReadWholeFile(const std::string& path, std::string& error) {
  std::ifstream file(path, std::ios::binary);
  std::string text(static_cast<std::size_t>(kLargestFile), '\0');
  if (file) file.read(text.data(), kLargestFile);
  if (!file.is_open() || file.bad() || (!file.eof() && file.fail())) {
    error = path + ": can't be read";
    return std::nullopt;
  }
  if (!file.eof()) {
    error = path + ": is larger than any configuration";
    return std::nullopt;
  }
  text.resize(static_cast<std::size_t>(file.gcount()));
  return text;
}

// Words on standard input, line by line.
class WordInput {
 public:
  explicit WordInput(bool wanted) : open_(wanted) {}

  int Descriptor() const { return open_ ? STDIN_FILENO : -1; }

  void TellAll(simulator::Machine& machine) {
    std::array<char, 256> buffer{};
    const ssize_t count = read(STDIN_FILENO, buffer.data(), buffer.size());
    if (count <= 0) {
      open_ = false;
      return;
    }
    text_.append(buffer.data(), static_cast<std::size_t>(count));
    for (std::size_t end = text_.find('\n'); end != std::string::npos; end = text_.find('\n')) {
      const std::string error = machine.Tell(text_.substr(0, end));
      if (!error.empty()) Report(error);
      text_.erase(0, end + 1);
    }
    if (text_.size() > kLongestWords) text_.clear();
  }

 private:
  bool open_;
  std::string text_;
};

// Joins machine and terminal until a signal ends it. Sleeps whenever nothing is to be done.
class Session {
 public:
  Session(base::RealClock& clock, simulator::Machine& machine, MachineTerminal& terminal,
          const MachineArguments& arguments)
      : clock_(clock),
        machine_(machine),
        terminal_(terminal),
        words_(arguments.ReadsWords),
        format_{arguments.Baud, 'N', 8, 1.0} {}

  // Returns when `signals` can be read.
  void Run(int signals) {
    machine_.Attach(format_);
    while (true) {
      FollowThePlug();
      terminal_.Write(machine_.Read());
      std::array<pollfd, 3> waits = {pollfd{signals, POLLIN, 0},
                                     pollfd{terminal_.Descriptor(), POLLIN, 0},
                                     pollfd{words_.Descriptor(), POLLIN, 0}};
      Wait(waits);
      if (waits[0].revents != 0) break;
      if (waits[1].revents != 0) machine_.Write(terminal_.Read());
      if (waits[2].revents != 0) words_.TellAll(machine_);
    }
  }

 private:
  void Wait(std::array<pollfd, 3>& waits) {
    const double seconds = std::max(machine_.NextEvent() - clock_.Now(), 0.0);
    const bool endless = !std::isfinite(seconds);
    const double whole = endless ? 0.0 : std::floor(std::min(seconds, 1e6));
    const timespec time{static_cast<std::time_t>(whole),
                        endless ? 0L : static_cast<long>(std::min(seconds - whole, 0.999) * 1e9)};
    ppoll(waits.data(), waits.size(), endless ? nullptr : &time, nullptr);
  }

  // A line that is taken off hangs the terminal up; a new one is there when it is put back.
  void FollowThePlug() {
    if (machine_.Plugged() == terminal_.IsOpen()) return;
    if (terminal_.IsOpen()) {
      terminal_.Close();
      return;
    }
    std::string error;
    if (!terminal_.Open(error)) {
      Report(error);
      machine_.Tell("unplug");
      return;
    }
    machine_.Attach(format_);
  }

  base::RealClock& clock_;
  simulator::Machine& machine_;
  MachineTerminal& terminal_;
  WordInput words_;
  simulator::LineFormat format_;
};

int RunMachine(const MachineArguments& arguments) {
  simulator::MachineOptions options;
  options.ServiceBaud = arguments.Baud;
  if (!arguments.Firmware.empty()) options.Firmware = arguments.Firmware;
  std::string error;
  if (!arguments.ConfigurationFile.empty()) {
    const std::optional<std::string> text = ReadWholeFile(arguments.ConfigurationFile, error);
    if (!text) return Fail(error);
    options.Configuration = *text;
    const std::string fault = simulator::Configuration::Read(*text, options.Slave).Fault();
    if (!fault.empty()) {
      Report(arguments.ConfigurationFile + ": the machine finds error " + fault + " in it");
    }
  }
  base::RealClock clock;
  simulator::Machine machine(clock, options);
  for (const std::string& fault : arguments.Faults) {
    error = machine.Tell("fault " + fault);
    if (!error.empty()) return Fail(error);
  }
  const EndSignals signals;
  MachineTerminal terminal(arguments.Link);
  if (!terminal.Open(error)) return Fail(error);
  std::printf("%s -> %s\n", arguments.Link.c_str(), terminal.Device().c_str());
  std::fflush(stdout);
  Session(clock, machine, terminal, arguments).Run(signals.Descriptor());
  return kGood;
}

}  // namespace

}  // namespace tintbench::app

int main(int count, char** values) {
  using namespace tintbench;
  app::MachineArguments arguments;
  std::string error;
  if (!app::ParseMachineArguments({values + 1, values + count}, arguments, error)) {
    return app::Fail(error + " (see --help)");
  }
  if (arguments.Help) {
    std::fputs(app::MachineHelp().c_str(), stdout);
    return app::kGood;
  }
  if (arguments.Version) {
    std::puts("tintbench-machine " TINTBENCH_VERSION);
    return app::kGood;
  }
  return app::RunMachine(arguments);
}
