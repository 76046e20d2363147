// Kills a program that rewrites a file, at system calls taken by chance, and looks at what is left.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <new>
#include <random>

#include "app/AppFiles.h"
#include "base/Files.h"
#include "base/ScratchFolder.h"

namespace tintbench::testing {
namespace {

#ifdef TINTBENCH_SANITIZED
constexpr int kKills = 100;
#else
constexpr int kKills = 1000;
#endif
constexpr unsigned kSeed = 20260417;
constexpr int kNotTraced = 77;  // exit status of a process that can't be traced
constexpr int kFailed = 78;     // and of one whose rewriting failed

// A version of the file, none like its neighbours; short and long ones by turns.
std::string Version(unsigned number) {
  const std::string text = std::to_string(number);
  const std::size_t length = number % 3 == 0 ? number % 200 : number * 7919 % 150000;
  return text + std::string(length, static_cast<char>('a' + number % 26)) + text;
}

// What the rewriting process tells, in memory that outlives it.
class Progress {
 public:
  struct Versions {
    unsigned Begun = 0;  // number of the last that it began to write
    unsigned Done = 0;   // and of the last that it was told is in place
  };

  Progress()
      : memory_(::mmap(nullptr, sizeof(Versions), PROT_READ | PROT_WRITE,
                       MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
    new (memory_) Versions;
  }
  ~Progress() { ::munmap(memory_, sizeof(Versions)); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  volatile Versions& operator*() const { return *static_cast<volatile Versions*>(memory_); }

 private:
  void* memory_;
};

// A process that rewrites a file again and again, and stops twice at each of its system calls:
// before the call and after it. It is killed with its object at the latest.
class RewritingProcess {
 public:
  RewritingProcess(const std::string& path, const Progress& progress) : process_(::fork()) {
    if (process_ == 0) Rewrite(path, *progress);
    alive_ = AwaitStop();
    if (alive_) {
      const int options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL;
      EXPECT_EQ(::ptrace(PTRACE_SETOPTIONS, process_, nullptr, options), 0);
    }
  }
  ~RewritingProcess() { Kill(); }
  RewritingProcess(const RewritingProcess&) = delete;
  RewritingProcess& operator=(const RewritingProcess&) = delete;

  // Lets it run to its next stop. False, and the test has failed, if it ended before.
  bool Step() {
    alive_ = alive_ && ::ptrace(PTRACE_SYSCALL, process_, nullptr, nullptr) == 0 && AwaitStop();
    return alive_;
  }

  void Kill() {
    if (!alive_) return;
    int status = 0;
    EXPECT_EQ(::kill(process_, SIGKILL), 0);
    EXPECT_EQ(::waitpid(process_, &status, 0), process_);
    EXPECT_TRUE(WIFSIGNALED(status));
    alive_ = false;
  }

  // "rename" before a renaming, "sync " and the file's name before something is brought to the
  // device, nothing at any other stop.
  std::string Call() const {
    __ptrace_syscall_info info{};
    EXPECT_GT(::ptrace(PTRACE_GET_SYSCALL_INFO, process_, sizeof info, &info), 0);
    if (info.op != PTRACE_SYSCALL_INFO_ENTRY) return "";
    if (info.entry.nr == SYS_fsync) return "sync " + NameOfFile(info.entry.args[0]);
    bool renames = info.entry.nr == SYS_renameat || info.entry.nr == SYS_renameat2;
#ifdef SYS_rename
    renames = renames || info.entry.nr == SYS_rename;
#endif
    return renames ? "rename" : "";
  }

 private:
  [[noreturn]] static void Rewrite(const std::string& path, volatile Progress::Versions& versions) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(kNotTraced);
    ::raise(SIGSTOP);
    app::SyncedFileSystem files;
    for (;;) {
      versions.Begun = versions.Done + 1;
      if (!base::ReplaceFile(files, path, Version(versions.Begun))) ::_exit(kFailed);
      versions.Done = versions.Begun;
    }
  }

  bool AwaitStop() const {
    int status = 0;
    if (::waitpid(process_, &status, 0) == process_ && WIFSTOPPED(status)) return true;
    const bool untraced = WIFEXITED(status) && WEXITSTATUS(status) == kNotTraced;
    ADD_FAILURE() << (untraced ? "no process can be traced here, so nothing was tested"
                               : "the rewriting process ended by itself")
                  << ", status " << status;
    return false;
  }

  std::string NameOfFile(std::uint64_t descriptor) const {
    const std::string files = "/proc/" + std::to_string(process_) + "/fd/";
    return std::filesystem::read_symlink(files + std::to_string(descriptor)).filename().string();
  }

  pid_t process_;
  bool alive_ = false;
};

class KilledRewrite : public ::testing::Test {
 protected:
  KilledRewrite() { folder_.Put("target", Version(0)); }

  ScratchFolder folder_;
  std::string target_ = folder_.Path("target");
  Progress progress_;
};

TEST_F(KilledRewrite, BringsTheContentToTheDeviceThenTheNameThenTheFolder) {
  RewritingProcess process(target_, progress_);
  std::vector<std::string> calls;
  while ((*progress_).Done == 0 && process.Step()) {
    const std::string call = process.Call();
    if (!call.empty()) calls.push_back(call.substr(0, call.find('-')));
  }
  const std::string folder = std::filesystem::path(target_).parent_path().filename();
  EXPECT_EQ(calls, (std::vector<std::string>{"sync .tintbench", "rename", "sync " + folder}));
}

TEST_F(KilledRewrite, LeavesTheOldFileOrTheNewOne) {
  int stops = 0;  // of a first rewrite, with what comes before it
  for (RewritingProcess process(target_, progress_); (*progress_).Done == 0 && process.Step();) {
    ++stops;
  }
  base::StandardFileSystem files;
  base::SweepTemporaryFiles(files, folder_.Path());
  std::mt19937 random(kSeed);
  int unfinished = 0;
  int untold = 0;
  for (int kill = 0; kill < kKills && !HasFailure(); ++kill) {
    const int stop = 1 + static_cast<int>(random() % static_cast<unsigned>(stops + stops / 4));
    SCOPED_TRACE("seed " + std::to_string(kSeed) + ", kill " + std::to_string(kill) + " at stop " +
                 std::to_string(stop));
    RewritingProcess process(target_, progress_);
    for (int i = 0; i < stop && process.Step(); ++i) {
    }
    process.Kill();
    const std::string found = folder_.Get("target");
    const bool isNew = found == Version((*progress_).Begun);
    EXPECT_TRUE(isNew || found == Version((*progress_).Done)) << found.size() << " bytes";
    if (isNew && (*progress_).Begun != (*progress_).Done) ++untold;
    if (isNew) (*progress_).Done = (*progress_).Begun;
    if (folder_.Count() > 1) ++unfinished;
    base::SweepTemporaryFiles(files, folder_.Path());
    EXPECT_EQ(folder_.Count(), 1);
  }
  if (HasFailure()) return;
  EXPECT_GT(unfinished, kKills / 10) << "kills that left a temporary file";
  EXPECT_GT(untold, kKills / 100) << "kills between the renaming and the news of it";
}

}  // namespace
}  // namespace tintbench::testing
