// Calls the built program as a shell does and looks at what comes out: exit status, standard
// output, and what it complains of on standard error.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Arguments = std::vector<std::string>;

struct Outcome {
  int Status = -1;  // -1 if it didn't end by itself
  std::string Output;
  std::string Errors;
};

std::string Contents(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

std::string ShellQuoted(const std::string& word) {
  std::string quoted = "'";
  for (const char c : word) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

class CommandLine : public testing::Test {
 protected:
  CommandLine() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    folder_ = fs::path(TINTBENCH_BINARY_DIR) / "tests/cli" / test->name();
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }

  std::string Path(const std::string& name) const { return (folder_ / name).string(); }

  std::string Write(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
    return Path(name);
  }

  // `input` is what the program reads from standard input.
  Outcome Call(const Arguments& arguments, const std::string& input = "",
               const std::string& program = TINTBENCH_PROGRAM) const {
    std::string line = ShellQuoted(program);
    for (const std::string& argument : arguments) line += " " + ShellQuoted(argument);
    line += " <" + ShellQuoted(Write("input", input)) + " >" + ShellQuoted(Path("output")) + " 2>" +
            ShellQuoted(Path("errors"));
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Contents(folder_ / "output"),
            Contents(folder_ / "errors")};
  }

  // A run on the simulated machine that plays a script.
  Arguments Demo(const std::string& script) const {
    return {"--demo", "--clock", "virtual", "--data-dir", Path("data"), "--operator", script};
  }

 private:
  fs::path folder_;
};

// One line of plain words that holds what is wrong.
void ExpectComplaint(const Outcome& outcome, int status, const std::string& culprit) {
  EXPECT_EQ(outcome.Status, status) << outcome.Errors;
  EXPECT_EQ(outcome.Output, "");
  EXPECT_NE(outcome.Errors.find(culprit), std::string::npos) << outcome.Errors;
  EXPECT_EQ(std::count(outcome.Errors.begin(), outcome.Errors.end(), '\n'), 1) << outcome.Errors;
}

TEST_F(CommandLine, WrongOptionsEndWithStatusTwoAndOneLine) {
  const std::string file = Write("file", "");
  const struct {
    Arguments Given;
    const char* Culprit;
  } calls[] = {
      {{"--frobnicate"}, "--frobnicate"},
      {{"-x"}, "-x"},
      {{"--demo=1"}, "--demo"},
      {{"--port"}, "--port"},
      {{"--port", "1"}, "--port"},
      {{"--port", "1="}, "--port"},
      {{"--port", "0=/dev/null"}, "0=/dev/null"},
      {{"--port", "9=/dev/null"}, "9=/dev/null"},
      {{"--port", "12=/dev/null"}, "12=/dev/null"},
      {{"--port", "one=/dev/null"}, "one=/dev/null"},
      {{"--clock"}, "--clock"},
      {{"--clock", "fast"}, "fast"},
      {{"--clock", "virtual"}, "--demo"},
      {{"--demo", "--port", "1=/dev/null"}, "--port"},
      {{"--operator"}, "--operator"},
      {{"--operator", ""}, "--operator"},
      {{"--data-dir"}, "--data-dir"},
      {{"--demo", "--operator", "-", "--data-dir", file}, file.c_str()},
      {{"--demo", "--operator", "-", "--data-dir", "/dev/null/x"}, "/dev/null/x"},
  };
  for (const auto& call : calls) {
    SCOPED_TRACE(testing::PrintToString(call.Given));
    ExpectComplaint(Call(call.Given), 2, call.Culprit);
  }
}

TEST_F(CommandLine, WrongScriptsEndWithStatusTwoBeforeAnythingIsPlayed) {
  ExpectComplaint(Call(Demo(Path("nowhere.txt"))), 2, Path("nowhere.txt"));
  fs::create_directory(Path("folder"));
  ExpectComplaint(Call(Demo(Path("folder"))), 2, Path("folder"));
  const std::string steps = "print Form1.Caption\n' a comment\n\nclik Form1.MnuPar\n";
  const std::string script = Write("script.txt", steps);
  ExpectComplaint(Call(Demo(script)), 2, script + ":4:");
  ExpectComplaint(Call(Demo("-"), steps), 2, ":4:");
}

TEST_F(CommandLine, ScriptsTellByTheExitStatusHowTheyWent) {
  const std::string start = "until Form1.Visible is \"-1\" within 60\n";
  const struct {
    const char* Steps;
    int Status;
  } scripts[] = {
      {"print Form1.Visible\n", 0},           {"expect Form1.Visible is \"-1\"\n", 0},
      {"expect Form1.Visible is \"7\"\n", 1}, {"until Form1.Visible is \"7\" within 2\n", 1},
      {"click Form1.NoSuchThing\n", 2},       {"answer OK\n", 2},
      {"machine no such words\n", 2},
  };
  for (const auto& script : scripts) {
    const Outcome outcome = Call(Demo("-"), start + script.Steps);
    EXPECT_EQ(outcome.Status, script.Status) << script.Steps << outcome.Output << outcome.Errors;
    EXPECT_NE(outcome.Output.find("> until Form1.Visible"), std::string::npos) << outcome.Output;
  }
}

// The words of a text that look like a long option. A manual writes "-" as "\-".
std::set<std::string> OptionsIn(std::string text) {
  std::erase(text, '\\');
  std::set<std::string> options;
  for (std::size_t i = text.find("--"); i != std::string::npos; i = text.find("--", i + 2)) {
    const std::size_t end = text.find_first_not_of("abcdefghijklmnopqrstuvwxyz-", i);
    options.insert(text.substr(i, end - i));
  }
  return options;
}

TEST_F(CommandLine, HelpAndVersionAreAnswersAndTheManualTellsTheSame) {
  const struct {
    std::string Program;
    std::string Manual;
  } programs[] = {{TINTBENCH_PROGRAM, "tintbench.1"},
                  {TINTBENCH_MACHINE_PROGRAM, "tintbench-machine.1"}};
  for (const auto& [program, manual] : programs) {
    SCOPED_TRACE(program);
    const Outcome version = Call({"--version"}, "", program);
    EXPECT_EQ(version.Status, 0);
    EXPECT_EQ(version.Errors, "");
    EXPECT_NE(version.Output.find(TINTBENCH_VERSION), std::string::npos) << version.Output;

    const Outcome help = Call({"--help"}, "", program);
    EXPECT_EQ(help.Status, 0);
    EXPECT_EQ(help.Errors, "");
    EXPECT_GT(OptionsIn(help.Output).size(), 4U) << help.Output;
    EXPECT_EQ(OptionsIn(Contents(TINTBENCH_SOURCE_DIR "/packaging/" + manual)),
              OptionsIn(help.Output));
  }
}

// All eight numbers are given, so that no real port of this computer is touched.
Arguments AllPortsAre(const std::string& device, const std::string& dataDir) {
  Arguments arguments = {"--operator", "-", "--data-dir", dataDir};
  for (int number = 1; number <= 8; ++number) {
    arguments.insert(arguments.end(), {"--port", std::to_string(number) + "=" + device});
  }
  return arguments;
}

TEST_F(CommandLine, WithoutAPortItEndsWithStatusThreeAndSaysWhy) {
  for (const std::string& device : {Path("nowhere"), Write("file", ""), std::string("/dev/null")}) {
    SCOPED_TRACE(device);
    const Outcome outcome = Call(AllPortsAre(device, Path("data")),
                                 "answer OK has \"NO communication port available\"\n");
    EXPECT_EQ(outcome.Status, 3) << outcome.Output;
    EXPECT_NE(outcome.Output.find("[box]"), std::string::npos) << outcome.Output;
    EXPECT_NE(outcome.Errors.find(device), std::string::npos) << outcome.Errors;
  }
}

}  // namespace
