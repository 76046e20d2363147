// What the main window's polling costs: the length of a tick beside its protocol's least time, the
// processor time of a day of it on the virtual clock, and its share of a processor in the real
// window, beside a bare window's. TINTBENCH_POLLING_SECONDS says how long the window is watched.
#include <array>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <optional>

#include "BenchScreen.h"
#include "ChildProgram.h"
#include "Ratio.h"
#include "shell/Program.h"
#include "simulator/SimulatedPort.h"

namespace tintbench::bench {
namespace {

constexpr double kTransaction = 0.3;
constexpr double kTicksSeconds = 14;  // long enough for sixteen ticks
constexpr double kDay = 24 * 3600.0;
constexpr double kDayLimit = 5.0;
constexpr auto kLinkingUp = std::chrono::seconds(15);
constexpr double kWatchSeconds = 60;

void Pass(BenchScreen& screen, double seconds) {
  for (const double end = screen.Time().Now() + seconds; screen.Time().Now() < end;) {
    screen.Idle(end - screen.Time().Now());
  }
}

// Runs the whole program with a simulated machine; `measure` is called while it polls.
void RunProgram(base::Clock& clock, const std::filesystem::path& folder,
                const std::function<void(BenchScreen&, shell::Form1&)>& measure) {
  base::StandardFileSystem files;
  simulator::Machine machine(clock);
  simulator::SimulatedPort port(clock, {{1, &machine}});
  BenchScreen screen(clock);
  shell::Program program({clock, files, port, screen, base::MakeIdentity("TintBench", "0.0.0"),
                          folder.string(), "PORT(1:)"});
  screen.AtMainWindow = [&] {
    auto& window = dynamic_cast<shell::Form1&>(*screen.FindForm("Form1"));
    measure(screen, window);
    if (!window.Poll().PollingOn()) std::printf("the machine isn't polled\n");
  };
  program.Main();
}

struct Mean {
  double Sum = 0;
  int Count = 0;

  void Add(double value) {
    Sum += value;
    ++Count;
  }
  double Value() const { return Count == 0 ? 0 : Sum / Count; }
};

// Each fourth tick, from the first on, has the status besides inputs and outputs.
void MeasureTicks(BenchScreen& screen, shell::Form1& window) {
  std::array<Mean, 2> lengths;
  int ticks = 0;
  const ui::Event<> tick = window.Timer1.Tick;
  window.Timer1.Tick = [&] {
    const double start = screen.Time().Now();
    tick.Raise();
    lengths[ticks++ % 4 == 0].Add(screen.Time().Now() - start);
  };
  Pass(screen, kTicksSeconds);
  PrintRatio("tick with two transactions / their least time", lengths[0].Value(), 2 * kTransaction,
             "s", "aim: under 1.05");
  PrintRatio("tick with three transactions / their least time", lengths[1].Value(),
             3 * kTransaction, "s", "aim: under 1.05");
}

void MeasureDay(BenchScreen& screen, shell::Form1&) {
  const std::clock_t before = std::clock();
  Pass(screen, kDay);
  const double processor = static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC;
  PrintRatio("processor time of 24 hours' polling / limit", processor, kDayLimit, "s",
             "aim: under 1");
}

// Seconds of processor time that a running program has taken; nothing once it has ended.
std::optional<double> ProcessorSeconds(pid_t process) {
  std::ifstream file("/proc/" + std::to_string(process) + "/stat");
  std::string text;
  std::getline(file, text, ')');
  char state = 'Z';
  file >> state;
  if (state == 'Z') return std::nullopt;
  constexpr int kFieldsBetween = 10;  // from the state to the time in user mode
  for (int field = 0; field < kFieldsBetween; ++field) file >> text;
  double user = 0;
  double system = 0;
  file >> user >> system;
  return (user + system) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

void MeasureShare(const std::string& what, const std::vector<std::string>& words, double seconds) {
  const pid_t program = Start(words);
  std::this_thread::sleep_for(kLinkingUp);
  const auto before = ProcessorSeconds(program);
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  const auto after = ProcessorSeconds(program);
  kill(program, SIGTERM);
  PeakOf(program);
  if (!before || !after) return void(std::printf("%s: the program has ended\n", what.c_str()));
  PrintRatio("processor time of " + what + " / its length", *after - *before, seconds, "s",
             "aim: under 0.02");
}

void MeasureWindows(const std::filesystem::path& folder) {
  const char* told = std::getenv("TINTBENCH_POLLING_SECONDS");
  const double seconds = told == nullptr ? kWatchSeconds : std::atof(told);
  const DisplayOfItsOwn display;
  MeasureShare("a polling window", {TINTBENCH_PROGRAM, "--demo", "--data-dir", folder.string()},
               seconds);
  MeasureShare("a bare window", {TINTBENCH_WINDOW_PEER}, seconds);
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  using namespace tintbench;
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / "tintbench-polling-bench";
  std::filesystem::create_directories(folder);
  base::RealClock real;
  bench::RunProgram(real, folder, bench::MeasureTicks);
  base::VirtualClock onlyWaits;
  bench::RunProgram(onlyWaits, folder, bench::MeasureDay);
  bench::MeasureWindows(folder);
  std::filesystem::remove_all(folder);
  return 0;
}
