// The Xmodem engine against the sx and rx programs of the lrzsz package, over sockets, for rx
// throws away what a terminal has received. Each case runs in a thread of its own, since rx lets
// the line be silent for a second before it confirms the end.
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>

#include <string>
#include <thread>
#include <vector>

#include "base/Clock.h"
#include "base/Files.h"
#include "base/ScratchFolder.h"
#include "link/Xmodem.h"
#include "pty/FdPort.h"

namespace tintbench::testing {
namespace {

constexpr double kPatience = 20;  // seconds for a program to end by itself
constexpr std::size_t kSizes[] = {0, 1, 127, 128, 129, 1024, 1025, 100000};

// Bytes of all values, among them those that mean something to a terminal or to the protocol.
std::string Sample(std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(i * 13 + i / 251);
  return bytes;
}

// One program of the package, with one end of a socket pair as its standard input and output.
class Peer {
 public:
  Peer(base::Clock& clock, std::vector<std::string> words)
      : clock_(clock), words_(std::move(words)) {
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends_) != 0) ends_[0] = ends_[1] = -1;
  }
  ~Peer() {
    CloseItsEnd();
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  Peer(const Peer&) = delete;
  Peer& operator=(const Peer&) = delete;

  // This program's end of the line, for the one who closes it.
  int Line() const { return ends_[0]; }

  // Starts the program, once.
  void Start() {
    if (ends_[1] < 0) return;
    std::vector<char*> arguments;
    for (std::string& word : words_) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends_[1], STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, ends_[1], STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    if (posix_spawnp(&process_, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) {
      process_ = -1;
    }
    posix_spawn_file_actions_destroy(&actions);
    CloseItsEnd();
  }

  // The exit status of the program; -1 if it couldn't be started or doesn't end.
  int ExitStatus() {
    int status = 0;
    for (const double end = clock_.Now() + kPatience; clock_.Now() < end; clock_.Sleep(0.01)) {
      if (process_ <= 0 || waitpid(process_, &status, WNOHANG) != process_) continue;
      process_ = -1;
      return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    return -1;
  }

 private:
  void CloseItsEnd() {
    if (ends_[1] >= 0) close(ends_[1]);
    ends_[1] = -1;
  }

  base::Clock& clock_;
  std::vector<std::string> words_;
  int ends_[2];
  pid_t process_ = -1;
};

// Starts the program when the engine first listens: what comes earlier is thrown away, and rx
// would ask again after ten seconds only.
class PeerPort final : public FdPort {
 public:
  PeerPort(base::Clock& clock, Peer& peer) : FdPort(clock, peer.Line()), peer_(peer) {}
  bool WaitForInput(double seconds) override {
    peer_.Start();
    return FdPort::WaitForInput(seconds);
  }

 private:
  Peer& peer_;
};

struct Case {
  std::vector<std::string> Program;
  link::XmodemDirection Direction;
  int BlockSize;
  bool Crc;
  std::size_t Size;
};

std::string NameOf(const Case& one) {
  std::string name;
  for (const std::string& word : one.Program) name += word + " ";
  return name + std::to_string(one.BlockSize) + " " + std::to_string(one.Size);
}

struct Outcome {
  int Status = -1;
  int ExitStatus = -1;
  bool Crc = false;
};

Outcome RunCase(const Case& one, const std::string& peerFile, const std::string& ownFile,
                const std::string& appPath) {
  base::RealClock clock;
  base::StandardFileSystem files;
  std::vector<std::string> words = one.Program;
  words.push_back(peerFile);
  Peer peer(clock, words);
  PeerPort port(clock, peer);
  link::Xmodem engine(port, clock, files, {appPath, {}, {}});
  engine.XmodemBind();
  Outcome outcome;
  outcome.Status = engine.XmodemTransfer(one.Direction, one.BlockSize, ownFile);
  outcome.Crc = engine.State().UseCrc;
  if (outcome.Status == 0) outcome.ExitStatus = peer.ExitStatus();
  return outcome;
}

// What was received is what was sent, filled up to whole blocks.
void ExpectPadded(const std::string& received, const std::string& sent, std::size_t blockSize) {
  ASSERT_GE(received.size(), sent.size());
  EXPECT_TRUE(received.starts_with(sent));
  EXPECT_EQ(received.find_first_not_of('\x1A', sent.size()), std::string::npos);
  EXPECT_LT(received.size() - sent.size(), blockSize);
  EXPECT_EQ(received.size() % 128, 0U);
}

// Runs all cases at once and gives their outcomes, with the file received in each.
void RunAll(const std::vector<Case>& cases, const ScratchFolder& folder,
            std::vector<Outcome>& outcomes) {
  outcomes.resize(cases.size());
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < cases.size(); ++i) {
    const std::string number = std::to_string(i);
    const std::string from = folder.Put("from" + number, Sample(cases[i].Size));
    const std::string to = folder.Path("to" + number);
    const bool sending = cases[i].Direction == link::kXmodemSend;
    const std::string appPath = folder.Path("app" + number);
    std::filesystem::create_directory(appPath);
    threads.emplace_back([&, i, from, to, sending, appPath] {
      outcomes[i] = RunCase(cases[i], sending ? to : from, sending ? from : to, appPath);
    });
  }
  for (std::thread& thread : threads) thread.join();
}

void ExpectAllGood(const std::vector<Case>& cases) {
  const ScratchFolder folder;
  std::vector<Outcome> outcomes;
  RunAll(cases, folder, outcomes);
  for (std::size_t i = 0; i < cases.size(); ++i) {
    SCOPED_TRACE(NameOf(cases[i]));
    EXPECT_EQ(outcomes[i].Status, 0);
    EXPECT_EQ(outcomes[i].ExitStatus, 0);
    EXPECT_EQ(outcomes[i].Crc, cases[i].Crc);
    ExpectPadded(folder.Get("to" + std::to_string(i)), Sample(cases[i].Size),
                 static_cast<std::size_t>(cases[i].BlockSize));
  }
}

TEST(Lrzsz, ReceivesWhatWeSend) {
  std::vector<Case> cases;
  for (const int blockSize : {128, 1024}) {
    for (const std::size_t size : kSizes) {
      cases.push_back({{"rx", "-q"}, link::kXmodemSend, blockSize, false, size});
      cases.push_back({{"rx", "-q", "-c"}, link::kXmodemSend, blockSize, true, size});
    }
  }
  ExpectAllGood(cases);
}

TEST(Lrzsz, SendsWhatWeReceive) {
  std::vector<Case> cases;
  for (const std::size_t size : kSizes) {
    if (size == 0) continue;  // tried by itself below
    cases.push_back({{"sx", "-q"}, link::kXmodemReceive, 128, false, size});
    cases.push_back({{"sx", "-q", "-k"}, link::kXmodemReceive, 1024, false, size});
  }
  ExpectAllGood(cases);
}

// The protocol gives no sense to an end without a block, and a reception doesn't begin with one.
TEST(Lrzsz, SendsNoEmptyFileThatWeWouldTake) {
  const ScratchFolder folder;
  std::vector<Outcome> outcomes;
  folder.Put("to0", "earlier");
  RunAll({{{"sx", "-q"}, link::kXmodemReceive, 128, false, 0}}, folder, outcomes);
  EXPECT_EQ(outcomes[0].Status, link::kXmodemRetriesUsedUp);
  EXPECT_EQ(folder.Get("to0"), "earlier");
}

}  // namespace
}  // namespace tintbench::testing
