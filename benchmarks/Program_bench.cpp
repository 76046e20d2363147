// Start and memory of the built program beside the least program of the same toolkit: the time
// until the first window can be seen, and the peak memory with windows and with an operator script.
// The windows are shown on a display of their own, which needs Xvfb and xdotool.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "ChildProgram.h"
#include "Ratio.h"

namespace tintbench::bench {
namespace {

constexpr int kRounds = 5;

double Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

// Ends the child after `seconds`; gives its peak memory in MB.
double PeakAfter(pid_t child, double seconds) {
  std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
  kill(child, SIGTERM);
  return PeakOf(child);
}

// Asks anew each time: xdotool's own waiting looks twice a second only.
bool WindowShows() {
  int status = 0;
  waitpid(Start({"xdotool", "search", "--onlyvisible", "--name", "^TintBench$"}), &status, 0);
  return status == 0;
}

// Seconds until a window of that title can be seen.
double TimeToWindow(const std::vector<std::string>& arguments) {
  const double start = Now();
  const pid_t child = Start(arguments);
  while (!WindowShows()) std::this_thread::sleep_for(std::chrono::milliseconds(1));
  const double seconds = Now() - start;
  kill(child, SIGTERM);
  PeakOf(child);
  return seconds;
}

double BestTimeToWindow(const std::vector<std::string>& arguments) {
  double best = TimeToWindow(arguments);
  for (int round = 1; round < kRounds; ++round) best = std::min(best, TimeToWindow(arguments));
  return best;
}

void Measure(const std::string& folder) {
  const std::vector<std::string> ours{TINTBENCH_PROGRAM, "--demo", "--data-dir", folder};
  const std::vector<std::string> peer{TINTBENCH_WINDOW_PEER};
  const std::string script = folder + "/script.txt";
  std::ofstream(script) << "until Form1.Visible is \"-1\" within 60\n";

  PrintRatio("start to first window / bare window", BestTimeToWindow(ours), BestTimeToWindow(peer),
             "s", "no aim set");
  const double barePeak = PeakAfter(Start(peer), 1.0);
  // Ten seconds: link-up is over, the splash gone, the main window on show.
  PrintRatio("peak memory with windows / bare window", PeakAfter(Start(ours), 10.0), barePeak, "MB",
             "no aim set");
  std::vector<std::string> operatorFace = ours;
  operatorFace.insert(operatorFace.end(), {"--clock", "virtual", "--operator", script});
  PrintRatio("peak memory of the operator face / bare window", PeakOf(Start(operatorFace)),
             barePeak, "MB", "no aim set");
}

}  // namespace
}  // namespace tintbench::bench

int main() {
  using namespace tintbench::bench;
  const DisplayOfItsOwn display;
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / "tintbench-program-bench";
  std::filesystem::create_directories(folder);
  Measure(folder.string());
  std::filesystem::remove_all(folder);
  return 0;
}
