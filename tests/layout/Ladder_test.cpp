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
                            {"Length", FindLongFiles},     {"Globals", FindMutableGlobals}};

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
  for (const char* use :
       {"auto t = std::chrono::steady_clock::now();", "auto t = C::now();",
        "auto t = time(nullptr);", "auto t = std::time(&x);", "return time(0);",
        "gettimeofday(&t);", "std::this_thread::sleep_for(d);", "auto t = File::clock::now();",
        "sleep(1);", "auto t = QDateTime::currentDateTime();", "auto t = clock();"}) {
    ExpectFault({FindClockUses, {{"link/A.cpp", std::string("\n") + use}}, "link/A.cpp:2"});
    ExpectFault({FindClockUses, {{"qt/A.cpp", std::string("\n") + use}}, "qt/A.cpp:2"});
  }
  ExpectFault({FindClockUses, {{"base/Clock.cpp", "auto t = std::time(nullptr);"}}, ""});
  for (const char* use : {"clock.Now();", "// std::time(nullptr)", "text = \"steady_clock\";",
                          "double time(3);", "port.time(3);", "/* sleep(\n1) */",
                          "std::chrono::system_clock::to_time_t(t);", "int time = 0;"}) {
    ExpectFault({FindClockUses, {{"link/A.cpp", use}}, ""});
  }
}

TEST(SourceRules, LongFilesSayWhy) {
  const std::string lines(401, '\n');
  ExpectFault({FindLongFiles, {{"base/A.cpp", lines.substr(1)}}, ""});
  ExpectFault({FindLongFiles, {{"base/A.cpp", lines}}, "base/A.cpp:1"});
  ExpectFault({FindLongFiles, {{"base/A.cpp", "// A table. Longer than most: x" + lines}}, ""});
  ExpectFault({FindLongFiles, {{"base/A.cpp", lines + "// Longer than most"}}, "base/A.cpp:1"});
}

TEST(SourceRules, VariablesThatOutliveTheirScopeAreFound) {
  for (const char* code : {"int counter;",
                           "int counter = 0;",
                           "int counter{0};",
                           "std::vector<int> cache(10);",
                           "namespace a {\nnamespace {\nint counter = 0; } }",
                           "extern int counter;",
                           "const char* name = \"x\";",
                           "static int counter;",
                           "std::map<int, const char*> names;",
                           "void F() { static int calls = 0; }",
                           "void F() { if (x) { static const char* p; } }",
                           "struct A { static int count; };",
                           "struct A { inline static int count = 0; };",
                           "struct A {} a;",
                           "thread_local const int depth = 0;",
                           "void F() { static Log log(1); }",
                           "A::A(int x) : x_{x}, y_{x} {}\nint counter;",
                           "std::function<void(int)> handler;",
                           "template <typename T = int> struct B { static T shared; };",
                           "enum E { a, b };\nE e = a;",
                           "auto f = [](int x) { return x; };",
                           "const auto f = [] { static int n = 0; return n; };"}) {
    const Faults faults = FindMutableGlobals({{"base/A.cpp", code}});
    EXPECT_EQ(faults.size(), 1U) << code << "\n" << Joined(faults);
  }
}

TEST(SourceRules, ConstantsFunctionsAndMembersAreNoGlobals) {
  for (const char* code :
       {"constexpr int kA = 1;",
        "const int kA = 1;",
        "inline constexpr std::array kA{1, 2};",
        "const char* const kName = \"x\";",
        "static const int kA = 2;",
        "int F(int a = 3);",
        "struct A { int count = 0; static A Make(int n); static constexpr int kA = 1; };",
        "A::A(int x) : x_{x}, y_(x) { int z = x; }",
        "bool operator==(A a, A b) { return false; }",
        "struct A { bool operator<(const A& b) const; A& operator=(const A&) = default; };",
        "class A;",
        "enum class E : int { a = 1, b };",
        "using T = std::vector<int>;",
        "template <typename T, typename U = int> T Get(T t) { T u = t; return u; }",
        "const std::map<int, std::string> kA = {{1, \"int a;\"}};",
        "// int counter;",
        "void F() { static const std::vector<int> kA = {1}; int n = 0; }",
        "constexpr auto kF = [](int x) { int y = x; return y; };",
        "#define X int y;\n",
        "struct A {\n  int x;\n  struct B { int y; } b;\n};",
        "typedef int (*F)(int);",
        "extern \"C\" { void F(int); }",
        "int F(A a = {}, B b = {1});\nA G(A a = {}) { return a; }",
        "auto F() -> int { return 0; }\nint G();",
        "static int Twice(int x) { return 2 * x; }",
        "const char kLong[] = R\"(int a; {)\";"}) {
    const Faults faults = FindMutableGlobals({{"base/A.cpp", code}});
    EXPECT_TRUE(faults.empty()) << code << "\n" << Joined(faults);
  }
}

}  // namespace

}  // namespace tintbench::layout
