// The built program links up with the built machine over a pseudo-terminal, on the real clock, with
// an operator script and with windows.
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

namespace {

namespace fs = std::filesystem;

constexpr auto kPatience = std::chrono::seconds(30);

std::string Contents(const fs::path& path) {
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
  void Kill() const { kill(id_, SIGKILL); }

 private:
  pid_t id_ = 0;
  int status_ = -1;
};

bool WaitUntil(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return true;
}

class LinkOverPty : public testing::Test {
 protected:
  LinkOverPty() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::path(TINTBENCH_BINARY_DIR) / "tests/link-over-pty" / test->name();
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

TEST_F(LinkOverPty, AnOperatorScriptSeesTheGoodLink) {
  const auto machine = StartMachine({"--firmware", "6.1"});
  EXPECT_EQ(Play("click frmSplsh\n"
                 "until Form1.Visible is \"-1\" within 60\n"
                 "expect Form1.MMnuSerPort.Caption is \"port1: 19200,N,8,1\"\n"
                 "expect Form1.MMnuLoadfirmw.Caption has \"current version = 6.1\"\n"
                 "expect Form1.LblLink.Caption is \"Machine linked, configuration known\"\n"),
            0)
      << Contents(Path("transcript"));
}

TEST_F(LinkOverPty, TheWindowsLinkUpToo) {
  setenv("QT_QPA_PLATFORM", "offscreen", 1);
  const auto machine = StartMachine();
  const Child tool(Tool({"KSVDEBUG(15)"}), Path("output"));
  ASSERT_TRUE(WaitUntil([&] { return Contents(Path("data/ksvdebug.txt")).starts_with("#jf*: A"); }))
      << Contents(Path("output"));
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(Path("data/CONFIGUR/DEFSLAVE.CFR")); }));
  EXPECT_NE(Contents(Path("data/CONFIGUR/DEFSLAVE.CFR")).find("@PDD 1"), std::string::npos);
}

TEST_F(LinkOverPty, AMachineThatDiesInTheTransferLeavesADefinedState) {
  const auto machine = StartMachine();
  std::thread killer([&] {
    if (WaitUntil([&] { return fs::exists(Path("data/TMP.TMP")); })) machine->Kill();
  });
  EXPECT_EQ(Play("answer OK has \"BUT IT WAS IMPOSSIBLE TO READ THE MACHINE CONFIGURATION !!\"\n"
                 "until Form1.Visible is \"-1\" within 60\n"),
            0)
      << Contents(Path("transcript"));
  killer.join();
  const std::string said = Contents(Path("transcript"));
  EXPECT_NE(said.find("was lost: check the adapter"), std::string::npos) << said;
  EXPECT_FALSE(fs::exists(Path("data/CONFIGUR/DEFSLAVE.CFR")));
}

}  // namespace
