// The built program and the built machine as children of a test, with a pseudo-terminal between
// them, in a folder of the test's own.
#pragma once

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace tintbench::testing {

namespace fs = std::filesystem;

inline constexpr auto kPatience = std::chrono::seconds(30);

inline std::string Contents(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

// A program in the background, ended with this object if it hasn't ended by itself.
class Child {
 public:
  Child(std::vector<std::string> arguments, const fs::path& output) {
    std::vector<char*> raw;
    for (std::string& argument : arguments) raw.push_back(argument.data());
    raw.push_back(nullptr);
    id_ = fork();
    if (id_ != 0) return;
    if (std::freopen(output.c_str(), "w", stdout) == nullptr) _exit(126);
    dup2(STDOUT_FILENO, STDERR_FILENO);
    execv(raw[0], raw.data());
    _exit(127);
  }
  ~Child() {
    if (id_ > 0) kill(id_, SIGTERM);
    Wait();
  }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  // The exit status, -1 if a signal ended it.
  int Wait() {
    if (id_ > 0) waitpid(id_, &status_, 0);
    id_ = 0;
    return WIFEXITED(status_) ? WEXITSTATUS(status_) : -1;
  }
  void Kill(int signal = SIGKILL) const { kill(id_, signal); }
  pid_t Id() const { return id_; }

 private:
  pid_t id_ = 0;
  int status_ = -1;
};

inline bool WaitUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return true;
}

class PtyTest : public ::testing::Test {
 protected:
  PtyTest() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::path(TINTBENCH_BINARY_DIR) / "tests/over-pty" / test->name();
    fs::remove_all(folder_);
    fs::create_directories(folder_ / "data");
  }

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }

  std::vector<std::string> Tool(const std::vector<std::string>& more) const {
    std::vector<std::string> arguments{TINTBENCH_PROGRAM, "--port",     "1=" + Path("line"),
                                       "--data-dir",      Path("data"), "PORT(1:19200,N,8,1)"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
  }

  // The machine, once its line is there.
  std::unique_ptr<Child> StartMachine(std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {TINTBENCH_MACHINE_PROGRAM, "--link", Path("line")});
    auto machine = std::make_unique<Child>(more, Path("machine.out"));
    EXPECT_TRUE(WaitUntil([&] { return fs::exists(Path("line")); }));
    return machine;
  }

  int Play(const std::string& script) const {
    std::ofstream(Path("script")) << script;
    return Child(Tool({"--operator", Path("script")}), Path("transcript")).Wait();
  }

 private:
  fs::path folder_;
};

}  // namespace tintbench::testing
