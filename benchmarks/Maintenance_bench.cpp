// How long the Maintenance Menu takes on the real clock: the steps of a walk, and a purge with two
// rounds of watching, each divided by the least time that its protocol allows; and how long HALT
// waits while a motor is watched, from its key to its command on the line. The least time is that
// of the same commands with the line and the machine alone, on the clock that only waits advance;
// so what the machine needs to move a cap is part of it.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <span>
#include <string>

#include "../tests/link/NotingPort.h"
#include "../tests/ui/NotingScreen.h"
#include "Ratio.h"
#include "commands/FormComm.h"
#include "link/ComPort.h"
#include "simulator/SimulatedPort.h"
#include "state/ErrorCatalogue.h"

namespace tintbench::bench {
namespace {

constexpr double kNever = std::numeric_limits<double>::infinity();
constexpr double kTransaction = 0.3;
constexpr double kSpeedAnswer = 21 * 10 / 19200.0;  // characters, bits, baud
constexpr int kF3 = ui::kKeyF1 + 2;
constexpr int kF7 = ui::kKeyF1 + 6;
constexpr int kF9 = ui::kKeyF1 + 8;

// A command and the wait behind its answer; by the ordinary transaction, or straight on the line.
struct Exchange {
  const char* Command;
  bool Ordinary;
  double Wait = 0;
};

constexpr Exchange kFirstValve[] = {{"#a01*", true}};
constexpr Exchange kNextValve[] = {{"#g01*", true}, {"#a02*", true}};
// clang-format off
constexpr Exchange kPurge[] = {
    // its conditions, the start, two rounds of watching, the end
    {"#z*", false}, {"#eu*", true}, {"#ir*", true},
    {"#do01*", false, 0.8}, {"#ns*", false}, {"#a0102*", false, 2.5}, {"#f01100*", false, 0.8},
    {"#s*", true, 0.9},
    {"#ns*", false, 0.3}, {"#s*", true, 0.9}, {"#ns*", false, 0.3}, {"#s*", true},
    {"#l01*", false, 2.5}, {"#g0102*", false, 0.8}, {"#dc01*", false, 2.1},
};
// clang-format on

// What both machines are told: the can stands on the raised shelf.
void Prepare(simulator::Machine& machine) {
  machine.Tell("can on");
  machine.Tell("shelf high");
}

double LeastSeconds(std::span<const Exchange> exchanges) {
  base::VirtualClock clock;
  simulator::Machine machine(clock);
  Prepare(machine);
  machine.Attach({});
  for (const Exchange& exchange : exchanges) {
    const double start = clock.Now();
    machine.Write(exchange.Command);
    for (double next = machine.NextEvent(); next < kNever; next = machine.NextEvent()) {
      clock.SleepUntil(next);
      machine.Read();
    }
    if (exchange.Ordinary) clock.SleepUntil(start + kTransaction);
    clock.Sleep(exchange.Wait);
  }
  return clock.Now();
}

std::string WireOf(std::span<const Exchange> exchanges) {
  std::string wire;
  for (const Exchange& exchange : exchanges) wire += exchange.Command;
  return wire;
}

// The window of commands on the real clock, with a simulated machine on its line.
struct Bench {
  Bench() {
    Prepare(Machine);
    DrawFacts();
    Status.LinkState = link::kConfigKnown;
    Status.FirmwareVersion = "5.2";
    Port.Settings(link::kServiceSettings);
    Port.PortOpen(true);
    Window.SetFormFunction(commands::kMaintenanceMenu);
    Screen.After(kNever, [] {});  // nobody closes the window
    Screen.Show(Window);
  }

  // Link-up would do it with the file that it has received.
  void DrawFacts() {
    const std::string path =
        (std::filesystem::temp_directory_path() / "tintbench-maintenance-bench").string();
    std::ofstream(path, std::ios::binary) << Machine.ConfigurationText();
    config::ExecuteConfigKnown(Files, path, 1, Facts);
    std::filesystem::remove(path);
  }

  // Presses a key and waits until what it begins is over. Gives the seconds that it took.
  double Press(int key) {
    Port.Written.clear();
    const double start = Clock.Now();
    Window.PressKey(key, 0);
    return Clock.Now() - start;
  }

  base::RealClock Clock;
  simulator::Machine Machine{Clock};
  simulator::SimulatedPort Simulated{Clock, {{1, &Machine}}};
  testing::NotingPort Port{Simulated};
  base::StandardFileSystem Files;
  testing::NotingScreen Screen{Clock};
  link::CommandTable Table;
  link::DebugLog Log{Files, ""};
  link::Transaction Line{Port, Clock, Table, Screen, Log};
  link::LinkStatus Status;
  config::MachineFacts Facts;
  state::SensorNames Names;
  state::ErrorTable Errors;
  state::StateDecoder Decoder{Names, Errors, [this] { return Status.FirmwareNumber(); }};
  state::PanelStyles Styles;
  ui::Form Main{"Form1"};
  commands::FormComm Window{
      {{Port, Clock, Table, Line, Log, Status}, {Names, Decoder, Styles}, Screen, Facts, Main}};
};

void MeasureKey(Bench& bench, int key, const std::string& what,
                std::span<const Exchange> exchanges) {
  const double seconds = bench.Press(key);
  if (bench.Port.Written != WireOf(exchanges)) {
    std::printf("%s: something else went over the line: %s\n", what.c_str(),
                bench.Port.Written.c_str());
    return;
  }
  PrintRatio(what + " / its protocol minimums", seconds, LeastSeconds(exchanges), "s",
             "aim: under 1.05");
}

// The purge's own key comes again while the status that ends the second round is under way.
void MeasurePurge(Bench& bench) {
  bench.Screen.Replies = {"0102", "100"};
  bench.Port.OnWriting = [&bench] {
    if (!bench.Port.Written.ends_with("#ns*#s*#ns*#s*")) return;
    bench.Screen.After(0, [&bench] { bench.Window.PressKey(kF9, 0); });
  };
  MeasureKey(bench, kF9, "purge", kPurge);
  bench.Port.OnWriting = nullptr;
}

// Seconds from the key to its command, if the key comes so long behind the given command of a
// watched motor.
double HaltSeconds(Bench& bench, const std::string& command, double after) {
  double due = 0;
  double sent = kNever;
  bench.Port.OnWriting = [&] {
    const double now = bench.Clock.Now();
    if (bench.Port.Written.ends_with("#z*")) sent = std::min(sent, now);
    if (due > 0 || !bench.Port.Written.ends_with(command)) return;
    due = now + after;
    bench.Screen.After(after, [&bench] { bench.Window.CmdMultStop.Press(); });
  };
  bench.Screen.Replies = {"100"};
  bench.Press(kF7);
  bench.Port.OnWriting = nullptr;
  return sent - due;
}

// HALT may have to wait for the transaction under way, and for nothing else.
void PrintHalt(const std::string& what, double seconds) {
  constexpr double kMilliseconds = 1000;
  PrintRatio(what, seconds * kMilliseconds, (kTransaction + kSpeedAnswer) * kMilliseconds, "ms",
             "aim: under 1");
}

void MeasureHalt(Bench& bench) {
  double longest = 0;
  double sinceStart = 0;
  for (const double after : {0.0, 0.05, 0.1, 0.15, 0.2, 0.25, 0.29}) {
    const double seconds = HaltSeconds(bench, "#o01*", after);
    longest = std::max(longest, seconds);
    sinceStart = std::max(sinceStart, after + seconds);
  }
  PrintHalt("longest HALT in a transaction / limit", longest);
  PrintHalt("transaction's start to HALT / limit", sinceStart);
  longest = 0;
  for (const double after : {0.4, 0.8, 1.2}) {
    longest = std::max(longest, HaltSeconds(bench, "#f01100*", after));
  }
  PrintHalt("longest HALT between transactions / limit", longest);
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  using namespace tintbench::bench;
  Bench bench;
  MeasureKey(bench, kF3, "first valve", kFirstValve);
  MeasureKey(bench, kF3, "next valve", kNextValve);
  MeasurePurge(bench);
  MeasureHalt(bench);
  return 0;
}
