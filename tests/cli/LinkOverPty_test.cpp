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
  void Kill(int signal = SIGKILL) const { kill(id_, signal); }
  pid_t Id() const { return id_; }

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
  Child tool(Tool({"KSVDEBUG(15)"}), Path("output"));
  ASSERT_TRUE(WaitUntil([&] { return Contents(Path("data/ksvdebug.txt")).starts_with("#jf*: A"); }))
      << Contents(Path("output"));
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(Path("data/CONFIGUR/DEFSLAVE.CFR")); }));
  EXPECT_NE(Contents(Path("data/CONFIGUR/DEFSLAVE.CFR")).find("@PDD 1"), std::string::npos);
  tool.Kill(SIGHUP);
  EXPECT_EQ(tool.Wait(), 0) << Contents(Path("output"));
}

// In the window of commands with a valve on: all is closed from the front window on.
TEST_F(LinkOverPty, AProgramToldToEndSwitchesOffAndLetsTheMachineGoOn) {
  const auto machine = StartMachine();
  std::ofstream(Path("script")) << "click frmSplsh\n"
                                   "until Form1.Visible is \"-1\" within 60\n"
                                   "click Form1.MnuMaint\n"
                                   "click Form1.MMnuMaint\n"
                                   "press F3\n"
                                   "wait 600\n";
  Child tool(Tool({"KSVDEBUG(15)", "--operator", Path("script")}), Path("transcript"));
  ASSERT_TRUE(
      WaitUntil([&] { return Contents(Path("transcript")).find("> wait") != std::string::npos; }));
  tool.Kill(SIGTERM);
  EXPECT_EQ(tool.Wait(), 2);
  const std::string talk = Contents(Path("data/ksvdebug.txt"));
  EXPECT_TRUE(talk.ends_with("#a01*: A01\r\n#z*: A\r\n#pr*: A\r\n#ps*: A\r\n")) << talk;
}

TEST_F(LinkOverPty, ASecondCopyKeepsOutOfTheFolderAndAKilledOneLeavesItFree) {
  std::ofstream(Path("long")) << "wait 600\n";
  std::ofstream(Path("short")) << "until Form1.Visible is \"-1\" within 60\n";
  const auto demo = [this](const std::string& script) {
    return std::vector<std::string>{TINTBENCH_PROGRAM, "--demo",     "--data-dir",
                                    Path("data"),      "--operator", Path(script)};
  };
  Child first(demo("long"), Path("first"));
  ASSERT_TRUE(WaitUntil([&] { return fs::exists(Path("data/tintbench.lock")); }));
  EXPECT_EQ(Child(demo("short"), Path("second")).Wait(), 2);
  const std::string said = Contents(Path("second"));
  EXPECT_NE(said.find("process " + std::to_string(first.Id())), std::string::npos) << said;
  EXPECT_NE(said.find("--data-dir"), std::string::npos) << said;
  first.Kill();
  first.Wait();
  EXPECT_EQ(Child(demo("short"), Path("third")).Wait(), 0) << Contents(Path("third"));
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
