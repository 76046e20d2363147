// Programs that a measuring program starts, and a display for those that have windows.
#pragma once

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

namespace tintbench::bench {

inline pid_t Start(std::vector<std::string> arguments) {
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
inline double PeakOf(pid_t child) {
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

// A display that nobody sees, for the programs that are started while it lives. Needs Xvfb.
class DisplayOfItsOwn {
 public:
  DisplayOfItsOwn() : server_(Start({"Xvfb", kName, "-screen", "0", "1280x1024x24", "-noreset"})) {
    setenv("DISPLAY", kName, 1);
    std::this_thread::sleep_for(std::chrono::seconds(1));
  }
  ~DisplayOfItsOwn() {
    kill(server_, SIGTERM);
    PeakOf(server_);
  }
  DisplayOfItsOwn(const DisplayOfItsOwn&) = delete;
  DisplayOfItsOwn& operator=(const DisplayOfItsOwn&) = delete;

 private:
  static constexpr const char* kName = ":94";
  pid_t server_;
};

}  // namespace tintbench::bench
