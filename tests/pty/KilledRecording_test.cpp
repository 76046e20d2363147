// Kills a program that records, at a moment taken by chance, and looks at what is left. The system
// itself cuts a write in two if the kill comes just when it goes from one page of memory to the
// next; nothing else may cut a line, and the next recording must begin on a line of its own.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <random>

#include "app/AppFiles.h"
#include "base/ScratchFolder.h"
#include "groups/RecordFile.h"

namespace tintbench::testing {
namespace {

constexpr int kKills = 100;
constexpr unsigned kSeed = 20261123;
constexpr unsigned kLongest = 3000;  // microseconds that a writer lives
constexpr std::size_t kPage = 4096;
constexpr const char* kName = "20261123.G07";

std::string Line(std::size_t number) {
  const std::string text = std::to_string(number);
  return text + " " + std::string(number % 90, 'x') + " " + text;
}

[[noreturn]] void WriteForEver(const std::string& path, int ready) {
  app::SyncedFileSystem files;
  groups::RecordFile file(files);
  if (!file.Open(path)) ::_exit(1);
  for (std::size_t number = 0;; ++number) {
    if (!file.WriteLine(Line(number))) ::_exit(1);
    if (number == 0 && ::write(ready, "", 1) != 1) ::_exit(1);
  }
}

// Lets a process record for so long, from its first line on.
void RecordAndDie(const std::string& path, unsigned microseconds) {
  int ready[2];
  ASSERT_EQ(::pipe(ready), 0);
  const pid_t writer = ::fork();
  if (writer == 0) WriteForEver(path, ready[1]);
  char byte = 0;
  EXPECT_EQ(::read(ready[0], &byte, 1), 1);
  ::usleep(microseconds);
  int status = 0;
  EXPECT_EQ(::kill(writer, SIGKILL), 0);
  EXPECT_EQ(::waitpid(writer, &status, 0), writer);
  EXPECT_TRUE(WIFSIGNALED(status));
  ::close(ready[0]);
  ::close(ready[1]);
}

// How many lines stand there, whole and in order.
std::size_t CountWhole(const std::string& content) {
  std::size_t number = 0;
  std::size_t at = 0;
  for (; at < content.size(); ++number) {
    const std::string line = Line(number) + "\r\n";
    if (content.compare(at, line.size(), line) != 0) break;
    at += line.size();
  }
  if (at == content.size()) return number;
  EXPECT_EQ(content.size() % kPage, 0U) << "cut at " << at << " of " << content.size();
  EXPECT_TRUE(Line(number).starts_with(content.substr(at)));
  return number;
}

TEST(KilledRecording, KeepsItsLinesWhole) {
  const ScratchFolder folder;
  const std::string path = folder.Path(kName);
  std::mt19937 random(kSeed);
  std::size_t lines = 0;
  int cut = 0;
  for (int kill = 0; kill < kKills && !HasFailure(); ++kill) {
    SCOPED_TRACE("kill " + std::to_string(kill));
    std::filesystem::remove(path);
    RecordAndDie(path, static_cast<unsigned>(random()) % kLongest);
    const std::string content = folder.Get(kName);
    lines += CountWhole(content);
    if (!content.ends_with("\r\n")) ++cut;
    app::SyncedFileSystem files;
    groups::RecordFile next(files);
    ASSERT_TRUE(next.Open(path));
    EXPECT_TRUE(folder.Get(kName).ends_with("\n"));
  }
  EXPECT_GT(lines, 10U * kKills) << "lines written altogether";
  EXPECT_LT(cut, kKills / 10) << "lines that the system cut at a page's end";
}

}  // namespace
}  // namespace tintbench::testing
