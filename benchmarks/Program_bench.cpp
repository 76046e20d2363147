// Start and memory of the built program beside the least program of the same toolkit: the time
// until the first window can be seen, and the peak memory with windows and with an operator script.
// The windows are shown on a display of their own, which needs Xvfb and xdotool.
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include "Ratio.h"

namespace tintbench::bench {
namespace {

constexpr int kRounds = 5;
constexpr const char* kDisplay = ":94";

double Now() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

pid_t Start(std::vector<std::string> arguments) {
  std::fflush(stdout);  // or the child would print it once more
  const pid_t child = fork();
  if (child != 0) return child;
  std::vector<char*> list;
  for (std::string& argument : arguments) list.push_back(argument.data());
  list.push_back(nullptr);
  if (std::freopen("/dev/null", "w", stdout) == nullptr) _exit(126);
  if (std::freopen("/dev/null", "w", stderr) == nullptr) _exit(126);
  execvp(list[0], list.data());
  _exit(127);
}

// Waits for the child's end; gives its peak memory in MB.
double PeakOf(pid_t child) {
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
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
  const pid_t display = Start({"Xvfb", kDisplay, "-screen", "0", "1280x1024x24", "-noreset"});
  setenv("DISPLAY", kDisplay, 1);
  std::this_thread::sleep_for(std::chrono::seconds(1));
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() / "tintbench-program-bench";
  std::filesystem::create_directories(folder);
  Measure(folder.string());
  std::filesystem::remove_all(folder);
  kill(display, SIGTERM);
  PeakOf(display);
  return 0;
}
