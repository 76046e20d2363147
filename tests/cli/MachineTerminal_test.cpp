// Runs the built tintbench-machine and meets it at its pseudo-terminal, as another program would.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Steady = std::chrono::steady_clock;

constexpr double kPatience = 20.0;  // seconds for what takes a moment on an idle computer

double Since(Steady::time_point begin) {
  return std::chrono::duration<double>(Steady::now() - begin).count();
}

// Waits until a descriptor can be read; false after the patience or the given time.
bool Readable(int descriptor, double seconds = kPatience) {
  pollfd wait{descriptor, POLLIN, 0};
  return poll(&wait, 1, static_cast<int>(seconds * 1000)) > 0;
}

class MachineTerminal : public testing::Test {
 protected:
  MachineTerminal() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::path(TINTBENCH_BINARY_DIR) / "tests/machine" / test->name();
    fs::remove_all(folder_);
    fs::create_directories(folder_);
    link_ = (folder_ / "line").string();
  }

  ~MachineTerminal() override {
    if (child_ > 0) End(SIGKILL);
    CloseAll();
  }

  // Starts the machine and waits for the line in which it tells that it is there.
  void Start(std::vector<std::string> arguments = {}) {
    CloseAll();
    ASSERT_EQ(pipe2(output_, O_CLOEXEC) + pipe2(words_, O_CLOEXEC), 0);
    arguments.insert(arguments.begin(), {TINTBENCH_MACHINE_PROGRAM, "--link", link_});
    std::vector<char*> raw;
    for (std::string& argument : arguments) raw.push_back(argument.data());
    raw.push_back(nullptr);
    child_ = fork();
    if (child_ == 0) {
      dup2(words_[0], STDIN_FILENO);
      dup2(output_[1], STDOUT_FILENO);
      execv(raw[0], raw.data());
      _exit(127);
    }
    ASSERT_TRUE(Readable(output_[0]));
    char told[512];
    ASSERT_GT(read(output_[0], told, sizeof told), 0);
  }

  // Ends the machine; its exit status, -1 if the signal ended it.
  int End(int signal, rusage* usage = nullptr) {
    kill(child_, signal);
    int status = 0;
    wait4(child_, &status, 0, usage);
    child_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  int Open() const { return open(link_.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC); }

  // Sends and reads so many bytes, fewer if they don't come.
  static std::string Ask(int line, const std::string& command, std::size_t count) {
    if (write(line, command.data(), command.size()) < 0) return "can't be written";
    std::string answer;
    while (answer.size() < count && Readable(line)) {
      char bytes[64];
      const ssize_t got = read(line, bytes, sizeof bytes);
      if (got <= 0) break;
      answer.append(bytes, static_cast<std::size_t>(got));
    }
    return answer;
  }

  void Tell(const std::string& words) const {
    ASSERT_EQ(write(words_[1], (words + "\n").data(), words.size() + 1),
              static_cast<ssize_t>(words.size() + 1));
  }

  bool LinkIsThere() const { return fs::is_symlink(fs::symlink_status(link_)); }

  // The exit status of a machine that is called with a wrong command line.
  int Call(const std::string& arguments) const {
    const std::string line = std::string(TINTBENCH_MACHINE_PROGRAM) + " " + arguments + " 2>" +
                             (folder_ / "errors").string() + " </dev/null";
    const int status = std::system(line.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

  void CloseAll() {
    for (int* descriptor : {&output_[0], &output_[1], &words_[0], &words_[1]}) {
      if (*descriptor >= 0) close(*descriptor);
      *descriptor = -1;
    }
  }

  fs::path folder_;
  std::string link_;
  pid_t child_ = 0;
  int output_[2] = {-1, -1};
  int words_[2] = {-1, -1};
};

TEST_F(MachineTerminal, AnswersEachWhoOpensTheLinkAndTakesItAwayAtItsEnd) {
  for (const int signal : {SIGTERM, SIGINT}) {
    Start({"--firmware", "6.1"});
    for (int visit = 0; visit < 3; ++visit) {
      const int line = Open();
      ASSERT_GE(line, 0);
      EXPECT_EQ(Ask(line, "#jf*", 7), "A V 6.1") << visit;
      close(line);
    }
    EXPECT_EQ(End(signal), 0);
    EXPECT_FALSE(LinkIsThere());
  }
}

TEST_F(MachineTerminal, ReplacesTheLinkOfADeadMachineAndNothingElse) {
  Start();
  EXPECT_EQ(End(SIGKILL), -1);
  EXPECT_TRUE(LinkIsThere());
  Start();
  const int line = Open();
  EXPECT_EQ(Ask(line, "#s*", 3), "K00");
  close(line);
  EXPECT_EQ(End(SIGTERM), 0);
  std::ofstream(link_) << "mine";
  EXPECT_EQ(Call("--link " + link_), 2);
  EXPECT_EQ(fs::file_size(link_), 4U);
  const std::string other = (folder_ / "other").string();
  fs::create_symlink(link_, other);
  EXPECT_EQ(Call("--link " + other), 2);
  EXPECT_EQ(fs::read_symlink(other), link_);
}

TEST_F(MachineTerminal, WrongCallsAreToldInOneLineAndLeaveNoLink) {
  const std::string link = "--link " + link_;
  for (const std::string& arguments :
       {std::string(), std::string("--link"), link + " --nonsense", link + " --baud fast",
        link + " --baud 0", link + " --fault nonsense", link + " --fault drop=2",
        link + " --config /nonexistent", link + " --config /", link + " --help=yes",
        std::string("--link /nonexistent/line")}) {
    EXPECT_EQ(Call(arguments), 2) << arguments;
    std::ifstream errors(folder_ / "errors");
    std::string first, second;
    EXPECT_TRUE(std::getline(errors, first) && !first.empty()) << arguments;
    EXPECT_FALSE(std::getline(errors, second)) << second;
    EXPECT_FALSE(LinkIsThere()) << arguments;
  }
}

TEST_F(MachineTerminal, AnUnpluggedLineHangsUpAndComesBackWhenPlugged) {
  Start({"--words"});
  const int line = Open();
  Tell("error 1103");
  std::string status = Ask(line, "#s*", 3);
  while (status == "K00") status = Ask(line, "#s*", 3);
  if (status.size() < 7) status += Ask(line, "", 7 - status.size());
  EXPECT_EQ(status, "E011103");
  Tell("unplug");
  char byte = 0;
  while (Readable(line) && read(line, &byte, 1) > 0) continue;
  EXPECT_LE(read(line, &byte, 1), 0) << "hung up";
  close(line);
  EXPECT_FALSE(LinkIsThere());
  Tell("plug");
  const auto begin = Steady::now();
  int again = Open();
  while (again < 0 && Since(begin) < kPatience) {
    poll(nullptr, 0, 5);
    again = Open();
  }
  EXPECT_EQ(Ask(again, "#s*", 7), "E011103");
  close(again);
}

TEST_F(MachineTerminal, KeepsTheSpeedOfItsLine) {
  Start({"--baud", "300"});
  const int line = Open();
  const auto begin = Steady::now();
  EXPECT_EQ(Ask(line, "#jp*", 21).size(), 21U);
  EXPECT_GE(Since(begin), (4 + 21) * 10 / 300.0);
  close(line);
}

TEST_F(MachineTerminal, TakesNextToNoProcessorTimeWhileNothingHappens) {
  Start();
  const int line = Open();
  Ask(line, "#jf*", 7);
  EXPECT_FALSE(Readable(line, 1.5)) << "nobody asked";
  rusage usage{};
  EXPECT_EQ(End(SIGTERM, &usage), 0);
  const double used = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                      static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
  EXPECT_LT(used, 0.5) << "a program that spins takes all of the 1.5 seconds";
  close(line);
}

}  // namespace
