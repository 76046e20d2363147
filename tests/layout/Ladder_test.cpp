// Holds the program's own sources to the rules of SourceRules.h, and shows of each rule that it
// finds what it forbids and leaves alone what it allows.
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>

#include "layout/SourceRules.h"

namespace tintbench::layout {

namespace {

struct NamedRule {
  const char* Name;
  Rule Find;
};

void PrintTo(const NamedRule& rule, std::ostream* out) { *out << rule.Name; }

const NamedRule kRules[] = {{"Ladder", FindLadderFaults},  {"Headers", FindForeignHeaders},
                            {"Cycles", FindIncludeCycles}, {"Clock", FindClockUses},
                            {"Files", FindFileUses},       {"Length", FindLongFiles}};

std::string Joined(const Faults& faults) {
  std::string text;
  for (const std::string& fault : faults) text += fault + "\n";
  return text;
}

class TheTree : public testing::TestWithParam<NamedRule> {};

TEST_P(TheTree, KeepsTheRule) {
  const auto files = ReadSources(TINTBENCH_SOURCE_DIR "/src");
  const bool found = std::any_of(files.begin(), files.end(), [](const SourceFile& file) {
    return file.Path == "base/Clock.cpp" && file.Text.find("steady_clock") != std::string::npos;
  });
  ASSERT_TRUE(found) << "the sources were not read";
  const Faults faults = GetParam().Find(files);
  EXPECT_TRUE(faults.empty()) << Joined(faults);
}

INSTANTIATE_TEST_SUITE_P(Sources, TheTree, testing::ValuesIn(kRules),
                         [](const auto& rule) { return std::string(rule.param.Name); });

// One file, or two, that keep or break a rule. `FaultAt` is the place of the only fault, empty
// if there is none.
struct Sample {
  Rule Find;
  std::vector<SourceFile> Files;
  std::string FaultAt;
};

void ExpectFault(const Sample& sample) {
  const Faults faults = sample.Find(sample.Files);
  SCOPED_TRACE(sample.Files.front().Path + ": " + sample.Files.front().Text.substr(0, 200));
  if (sample.FaultAt.empty()) {
    EXPECT_TRUE(faults.empty()) << Joined(faults);
    return;
  }
  ASSERT_EQ(faults.size(), 1U) << Joined(faults);
  EXPECT_EQ(faults.front().rfind(sample.FaultAt + ": ", 0), 0U) << faults.front();
}

TEST(SourceRules, IncludesGoDownOnly) {
  const Sample samples[] = {
      {FindLadderFaults, {{"ui/A.h", "#include \"base/Text.h\"\n#include \"ui/B.h\"\n"}}, ""},
      {FindLadderFaults, {{"base/A.h", "\n#include \"ui/B.h\"\n"}}, "base/A.h:2"},
      {FindLadderFaults, {{"link/A.cpp", "# include \"shell/B.h\"\n"}}, "link/A.cpp:1"},
      {FindLadderFaults, {{"stats/A.cpp", "#include \"transfer/B.h\"\n"}}, "stats/A.cpp:1"},
      {FindLadderFaults, {{"shell/A.cpp", "#include \"qt/B.h\"\n"}}, "shell/A.cpp:1"},
      {FindLadderFaults, {{"app/main.cpp", "#include \"qt/B.h\"\n#include \"shell/C.h\"\n"}}, ""},
      {FindLadderFaults, {{"simulator/A.h", "#include \"base/Text.h\"\n"}}, ""},
      {FindLadderFaults, {{"simulator/A.h", "#include \"link/SerialPort.h\"\n"}}, ""},
      {FindLadderFaults, {{"simulator/A.h", "#include \"link/Xmodem.h\"\n"}}, "simulator/A.h:1"},
      {FindLadderFaults, {{"simulator/A.h", "#include \"config/C.h\"\n"}}, "simulator/A.h:1"},
      {FindLadderFaults, {{"base/A.h", "#include \"Text.h\"\n"}}, "base/A.h:1"},
      {FindLadderFaults, {{"base/A.h", "#include \"../ui/B.h\"\n"}}, "base/A.h:1"},
      {FindLadderFaults, {{"helpers/A.h", ""}}, "helpers/A.h:1"},
      {FindLadderFaults, {{"A.h", ""}}, "A.h:1"},
      {FindLadderFaults, {{"qt/View.cpp", "#include \"View.moc\"\n"}}, ""},
  };
  for (const Sample& sample : samples) ExpectFault(sample);
}

TEST(SourceRules, TheCoreKnowsNoToolkitAndNoSystem) {
  for (const char* header : {"QString", "QtCore/QString", "unistd.h", "fcntl.h", "sys/stat.h",
                             "windows.h", "termios.h", "pty.h", "poll.h", "boost/any.hpp"}) {
    const std::string text = std::string("#include <") + header + ">\n";
    ExpectFault({FindForeignHeaders, {{"link/A.cpp", text}}, "link/A.cpp:1"});
    ExpectFault({FindForeignHeaders, {{"simulator/A.cpp", text}}, "simulator/A.cpp:1"});
    ExpectFault({FindForeignHeaders, {{"qt/A.cpp", text}, {"app/A.cpp", text}}, ""});
  }
  ExpectFault({FindForeignHeaders, {{"base/A.h", "#include <string>\n#include <cmath>\n"}}, ""});
}

TEST(SourceRules, NoFileComesBackToItself) {
  const SourceFile b{"ui/B.h", "#include \"ui/C.h\"\n"};
  const SourceFile backToA{"ui/C.h", "#include <map>\n#include \"ui/A.h\"\n"};
  const SourceFile end{"ui/C.h", "#include <map>\n"};
  const SourceFile a{"ui/A.h", "#include \"ui/B.h\"\n#include \"ui/C.h\"\n"};
  ExpectFault({FindIncludeCycles, {a, b, end}, ""});
  ExpectFault({FindIncludeCycles, {a, b, backToA}, "ui/C.h:2"});
  ExpectFault({FindIncludeCycles, {{"ui/A.h", "#include \"ui/A.h\"\n"}}, "ui/A.h:1"});
}

TEST(SourceRules, OnlyTheClockKnowsTheTime) {
  for (const char* use : {"auto t = std::chrono::steady_clock::now();", "std::time(&x);",
                          "std::this_thread::sleep_for(d);", "QDateTime::currentDateTime();"}) {
    ExpectFault({FindClockUses, {{"link/A.cpp", std::string("\n") + use}}, "link/A.cpp:2"});
    ExpectFault({FindClockUses, {{"qt/A.cpp", std::string("\n") + use}}, "qt/A.cpp:2"});
  }
  ExpectFault({FindClockUses, {{"base/Clock.cpp", "auto t = std::time(nullptr);"}}, ""});
  ExpectFault({FindClockUses, {{"link/A.cpp", "clock.Now(); port.time(3); int time = 0;"}}, ""});
}

TEST(SourceRules, OnlyTheFileSystemsBodyTouchesFiles) {
  for (const char* use :
       {"std::ofstream out(path);", "#include <fstream>", "QSettings settings;"}) {
    ExpectFault({FindFileUses, {{"shell/A.cpp", std::string("\n") + use}}, "shell/A.cpp:2"});
  }
  ExpectFault({FindFileUses, {{"base/StandardFileSystem.cpp", "std::ifstream in(path);"}}, ""});
}

TEST(SourceRules, LongFilesSayWhy) {
  const std::string lines(401, '\n');
  ExpectFault({FindLongFiles, {{"base/A.cpp", lines.substr(1)}}, ""});
  ExpectFault({FindLongFiles, {{"base/A.cpp", lines}}, "base/A.cpp:1"});
  ExpectFault({FindLongFiles, {{"base/A.cpp", "// A table. Longer than most: x" + lines}}, ""});
  ExpectFault({FindLongFiles, {{"base/A.cpp", lines + "// Longer than most"}}, "base/A.cpp:1"});
}

}  // namespace

}  // namespace tintbench::layout
