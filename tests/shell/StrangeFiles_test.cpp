// Files that no hand of sense has written, given to every reader of files: each ends, takes no more
// memory than it is entitled to, and makes of the file what its rules say.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <random>

#include "config/ConfigFile.h"
#include "config/FileParts.h"
#include "shell/SettingsFile.h"
#include "shell/TestProgram.h"
#include "ui/OperatorScript.h"

namespace tintbench {
namespace {

using testing::TestProgram;

constexpr std::size_t kMega = 1000000;
// The memory is what a reader may take, in MB: its longest line in some copies, and buffers. The
// address sanitizer holds back what was freed, and is slow.
#ifdef TINTBENCH_SANITIZED
constexpr std::size_t kEndless = 20 * kMega;
constexpr int kMostMemory = 16;
#else
constexpr std::size_t kEndless = 100 * kMega;
constexpr int kMostMemory = 8;
#endif
constexpr std::size_t kLargestScript = 2 * kMega;
constexpr const char* kGoodLine = "@GEN 1 16,1,0,0,2,0,0,3,4,\"SMALL\",0\r\n";

struct StrangeFile {
  std::string Name;
  std::string Content;
  std::size_t Tail = 0;  // so often is the last character repeated
  // What the readers give:
  std::string SerialMode = link::kServiceMode;
  bool Known = true;                         // it can be drawn on for the machine facts
  bool Full = Known;                         // it has no empty parameter
  int Groups = 0;                            // external groups
  int LastPart = 0;                          // when it is cut for sending
  std::string ScriptError = "unknown step";  // as an operator script
};

void PrintTo(const StrangeFile& file, std::ostream* out) { *out << file.Name; }

std::string AllBytes() {
  std::string bytes;
  for (int value = 0; value < 256; ++value) bytes += static_cast<char>(value);
  return bytes;
}

std::string Noise() {
  std::mt19937 random(20260101);
  std::string noise(50000, '\0');
  for (char& byte : noise) byte = static_cast<char>(random());
  return noise;
}

std::string Repeated(const std::string& text, int count) {
  std::string repeated;
  for (int i = 0; i < count; ++i) repeated += text;
  return repeated;
}

const std::string kThousand(1000, '9');
const std::string kNul(1, '\0');

const StrangeFile kFiles[] = {
    {.Name = "Nothing", .SerialMode = "", .LastPart = -1, .ScriptError = ""},
    {.Name = "EndlessLine",
     .Content = "x",
     .Tail = kEndless,
     .LastPart = -1,
     .ScriptError = "unreadable"},
    {.Name = "EndlessDataLine",
     .Content = std::string(kGoodLine) + "@CIR 1 1,1",
     .Tail = kEndless,
     .Known = false,
     .Groups = 3,
     .LastPart = -1,
     .ScriptError = "unreadable"},
    {.Name = "EndlessComment",
     .Content = std::string(kGoodLine) + "% ,",
     .Tail = kEndless,
     .Groups = 3,
     .LastPart = -1,
     .ScriptError = "unreadable"},
    {.Name = "LongLineOfAScript", .Content = "'", .Tail = kMega, .ScriptError = "too long"},
    {.Name = "NulBytes", .Content = kNul, .Tail = 5000},
    {.Name = "NulBytesAroundWords",
     .Content = "MASTER" + kNul + "\n" + kNul + "MASTER\n" + kNul + "@GEN 1 1,,2\n" + kGoodLine,
     .Groups = 3},
    {.Name = "NulByteInAParameter",
     .Content = "@GEN 1 16,1,0,0,2,0,0," + kNul + ",4,\"SMALL\",0\r\n"},
    {.Name = "LoneCarriageReturns", .Content = "SERIAL,x\rMASTER\r@GEN 1 1,,2\r@@@@ 1 1\r"},
    {.Name = "LoneLineFeeds",
     .Content = "\n\n" + std::string(kGoodLine) + "\n SERIAL , MASTER \n\n",
     .SerialMode = link::kMasterMode,
     .Groups = 3},
    {.Name = "CarriageReturnInALineEnd", .Content = "MASTER\r\r\n@GEN 1\r\r\n"},
    {.Name = "AllBytes", .Content = AllBytes() + "\n" + AllBytes()},
    {.Name = "Noise", .Content = Noise()},
    {.Name = "ThousandDigits",
     .Content = "@GEN 1 1,1,0,0," + kThousand + ",0,0," + kThousand + ",-" + kThousand +
                ",\"X\",0." + kThousand + "\n@ILE 1 " + kThousand + ",0,-" + kThousand +
                "\n@IND 1 1,0," + kThousand + "\n@CIR 1 " + kThousand + ",0,0,0," + kThousand +
                ",1," + kThousand + "\n",
     .Groups = 2147483647},
    {.Name = "SlaveOfAThousandDigits",
     .Content = "@GEN " + kThousand + " 1,,2\n@CIR -" + kThousand + " 1,,\n"},
    {.Name = "ElementOfAThousandDigits",
     .Content = "@CIR 1 -" + kThousand + ",0,0,0,1,1,1\n",
     .Known = false,
     .Full = true},
    {.Name = "WaitOfAThousandDigits", .Content = "wait " + kThousand, .ScriptError = "usage: wait"},
    {.Name = "ManyEmptyLines", .Content = Repeated("\r\n", 20000), .ScriptError = ""},
    {.Name = "ManyFields",
     .Content = "SERIAL" + Repeated(",", 3000) + "\n@GEN 1 " + Repeated("1,", 1500) + "1\n",
     .Groups = 1},
};

void Write(const StrangeFile& file, const std::string& path) {
  std::ofstream stream(path, std::ios::binary);
  stream << file.Content;
  const std::string piece(kMega, file.Content.empty() ? ' ' : file.Content.back());
  for (std::size_t left = file.Tail; left > 0; left -= std::min(left, kMega)) {
    stream.write(piece.data(), static_cast<std::streamsize>(std::min(left, kMega)));
  }
}

// The most memory that the process has had so far, in MB.
long Memory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss / 1024;
}

// How many MB more than before an action takes at its height, 200 at the most. It is done in a
// process of its own, so that nothing done earlier counts.
int MemoryOf(const std::function<void()>& action) {
  const pid_t child = fork();
  if (child == 0) {
    const long before = Memory();
    action();
    _exit(static_cast<int>(std::min(Memory() - before, 200L)));
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string ScriptErrorOf(base::FileSystem& files, const std::string& path) {
  const auto text = base::ReadFile(files, path, kLargestScript);
  if (!text) return "unreadable";
  ui::OperatorScript script;
  std::string error;
  ui::ParseOperatorScript(*text, "a", script, error);
  return error;
}

class StrangeFiles : public ::testing::TestWithParam<StrangeFile> {
 protected:
  StrangeFiles() { Write(GetParam(), Path); }

  config::FileParts Split() {
    return config::SplitFileForSending(Test.Files, Test.Folder.Path(), Test.Folder.Path("DEFSLAVE"),
                                       "CFG", "1");
  }

  TestProgram Test;
  const std::string Path = Test.Folder.Path("DEFSLAVE.CFG");
};

TEST_P(StrangeFiles, AreReadByTheRules) {
  const StrangeFile& file = GetParam();
  EXPECT_EQ(shell::ReadSerialMode(Test.Files, Path), file.SerialMode);
  EXPECT_EQ(config::FileHasNoEmptyParameters(Test.Files, Path), file.Full);
  EXPECT_EQ(config::ReadExternalGroups(Test.Files, Path, 1), file.Groups);
  const config::FileParts parts = Split();
  EXPECT_EQ(parts.Last, file.LastPart);
  EXPECT_EQ(parts.Error.empty(), file.Tail < kEndless);
  const std::string error = ScriptErrorOf(Test.Files, Path);
  EXPECT_EQ(error.empty(), file.ScriptError.empty());
  EXPECT_NE(error.find(file.ScriptError), std::string::npos) << error.substr(0, 200);
  EXPECT_LT(error.size(), 20000U);
}

// No machine answers, so the file is what the program falls back to.
TEST_P(StrangeFiles, ServeAsDefaultConfigurationByTheRules) {
  ASSERT_EQ(Test.Machine().Tell("fault silent"), "");
  int linkState = -1;
  Test.Screen.OnMainWindow = [&] { linkState = Test.Program->Status().LinkState; };
  Test.Run("PORT(1:19200,N,8,1)");
  EXPECT_EQ(linkState, link::kPortOpen);
  EXPECT_EQ(Test.Program->Status().ConfigSource,
            GetParam().Known ? link::kDefaultConfig : link::kNoConfig);
  EXPECT_EQ(Test.Screen.Boxes.size(), 2U);
}

class EndlessFiles : public StrangeFiles {};

TEST_P(EndlessFiles, TakeNoMoreMemoryThanShortOnes) {
  config::MachineFacts facts;
  const std::pair<const char*, std::function<void()>> readers[] = {
      {"settings", [&] { shell::ReadSerialMode(Test.Files, Path); }},
      {"empty parameters", [&] { config::FileHasNoEmptyParameters(Test.Files, Path); }},
      {"external groups", [&] { config::ReadExternalGroups(Test.Files, Path, 1); }},
      {"machine facts", [&] { config::ExecuteConfigKnown(Test.Files, Path, 1, facts); }},
      {"parts", [&] { Split(); }},
      {"script", [&] { ScriptErrorOf(Test.Files, Path); }},
  };
  for (const auto& [name, read] : readers) {
    const int memory = MemoryOf(read);
    EXPECT_GE(memory, 0) << name;
    EXPECT_LE(memory, kMostMemory) << name;
  }
}

std::vector<StrangeFile> Endless() {
  std::vector<StrangeFile> files;
  std::copy_if(std::begin(kFiles), std::end(kFiles), std::back_inserter(files),
               [](const StrangeFile& file) { return file.Tail == kEndless; });
  return files;
}

INSTANTIATE_TEST_SUITE_P(Files, StrangeFiles, ::testing::ValuesIn(kFiles),
                         [](const auto& each) { return each.param.Name; });
INSTANTIATE_TEST_SUITE_P(Files, EndlessFiles, ::testing::ValuesIn(Endless()),
                         [](const auto& each) { return each.param.Name; });

}  // namespace
}  // namespace tintbench
