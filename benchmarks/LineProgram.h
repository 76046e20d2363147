// A program of the lrzsz package at one end of a line that is its standard input and output.
#pragma once

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace tintbench::bench {

// A line without a speed: its two ends, which the programs that are started don't inherit.
inline std::array<int, 2> SocketLine() {
  std::array<int, 2> ends{-1, -1};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) ends = {-1, -1};
  return ends;
}

// The words that start the peer which sends, or receives, a file.
inline std::vector<std::string> SenderWords(int blockSize, const std::string& file) {
  if (blockSize == 1024) return {"sx", "-q", "-k", file};
  return {"sx", "-q", file};
}

inline std::vector<std::string> ReceiverWords(bool crc, const std::string& file) {
  if (crc) return {"rx", "-q", "-c", file};
  return {"rx", "-q", file};
}

class LineProgram {
 public:
  // Takes over `line`, its end of a line.
  LineProgram(std::vector<std::string> words, int line) : words_(std::move(words)), line_(line) {}
  ~LineProgram() {
    CloseLine();
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
  }
  LineProgram(const LineProgram&) = delete;
  LineProgram& operator=(const LineProgram&) = delete;

  void Start() {
    std::vector<char*> arguments;
    for (std::string& word : words_) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, line_, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, line_, STDOUT_FILENO);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    if (posix_spawnp(&process_, arguments[0], &actions, nullptr, arguments.data(), environ) != 0) {
      process_ = -1;
    }
    posix_spawn_file_actions_destroy(&actions);
    CloseLine();
  }

  // Waits for its end, which a line that is taken off brings about. True if it says that all is
  // well.
  bool EndsWell() {
    int status = -1;
    if (process_ > 0) waitpid(std::exchange(process_, -1), &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }

 private:
  void CloseLine() {
    if (line_ >= 0) close(line_);
    line_ = -1;
  }

  std::vector<std::string> words_;
  int line_;
  pid_t process_ = -1;
};

}  // namespace tintbench::bench
