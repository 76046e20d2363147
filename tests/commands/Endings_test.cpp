// Every process of the window of commands, ended in each way upon each of its commands, answered or
// not: what is on at the end, and what the operator was told.
#include <gtest/gtest.h>

#include <algorithm>

#include "commands/PurgeBench.h"

namespace tintbench::testing {

namespace {

struct Process {
  const char* Name;
  std::vector<const char*> Machine;  // told before
  std::vector<const char*> Keys;     // half a minute after one another
  const char* Firmware = "5.2";
};

// clang-format off
const Process kProcesses[] = {
    {"valves", {}, {"F3", "F3"}},
    {"caps", {}, {"F5", "F6", "F10"}},
    {"stirrings", {}, {"F8", "F8"}},
    {"motors", {}, {"F7", "F7", "F7"}},
    {"a walk's valve, and another option chosen", {}, {"F3", "Option13"}},
    {"a walk's valve, and the shelf moves", {}, {"F3", "F1"}},
    {"a walk's valve, and the shelf went down", {"shelf high"}, {"F3", "F2", "F2"}},
    {"punching with the can there", {"can on", "shelf high"}, {"P"}},
    {"punching with the can raised", {"after 35 input 6 on"}, {"P"}},
    {"punching without a can", {}, {"P"}},
    {"test of the valves", {"can on", "shelf high"}, {"T", "I"}},
    {"test on old firmware", {"can on", "shelf high"}, {"T"}, "3.0"},
    {"test without a can", {}, {"T"}},
    {"purge in batches", {"can on", "shelf high"}, {"F9", "F9", "F9"}},
    {"purge with errors at its end", {"can on", "shelf high", "fault silent #l*"}, {"F9", "F9"}},
    {"purge without a can", {}, {"F9"}},
};
// clang-format on

// What the operator does upon a command, and whether that one stays unanswered.
constexpr std::pair<const char*, bool> kEndings[] = {{"HALT", false},  {"HALT", true},
                                                     {"Esc", false},   {"close", true},
                                                     {"signal", true}, {"unplug", false}};

// One run of a process.
class Ending {
 public:
  // Upon the n-th command, counted from 1, the operator does `ending`; 0 for never. That command is
  // then not answered if `silent`.
  Ending(const Process& process, std::size_t nth, const std::string& ending, bool silent)
      : nth_(nth), ending_(ending), silent_(silent), bench_({.Firmware = process.Firmware}) {
    bench_.Status.FirmwareVersion = process.Firmware;
    bench_.Facts.MaxValves = 2;
    bench_.Facts.ElementLists[config::kCircuits] = "01,02,03,";
    bench_.Screen.Replies = {"010203", "100", "200", "300"};
    if (std::string(process.Keys[0]) == "F7") bench_.Screen.Replies = {"100", "200", "300"};
    for (const char* words : process.Machine) EXPECT_EQ(bench_.Machine.Tell(words), "");
    bench_.Port.OnWriting = [this] { Watch(); };
    std::vector<MaintenanceBench::Step> steps;
    for (const char* key : process.Keys) {
      steps.push_back({30, [this, key] {
                         if (!ended_) bench_.Press(key);
                       }});
    }
    steps.push_back({200, [this] { AtTheEnd(); }});
    bench_.Run(commands::kMaintenanceMenu, steps);
    if (nth_ > 0 && ending_ != "HALT") Check(ending_ == "unplug");
  }

  // How many went over the line before the window was closed.
  std::size_t Commands() const { return atTheEnd_; }

 private:
  void Watch() {
    const std::string& written = bench_.Port.Written;
    if (++commands_ != nth_) return;
    const std::size_t begin = written.rfind('#');
    if (silent_) {
      EXPECT_EQ(bench_.Machine.Tell("fault silent 1 " + written.substr(begin)), "");
    }
    ended_ = true;
    asked_ = Asked();
    // Pressed while the line is busy, with an Enter for whatever box comes next.
    bench_.Screen.After(0, [this] {
      if (ending_ == "unplug") bench_.Machine.Tell("unplug");
      bench_.Window.PressKey(ui::kKeyEnter, 0);
      if (ending_ == "signal") return bench_.Screen.CloseAll();
      bench_.Press(ending_ == "unplug" ? "HALT" : ending_);
    });
  }

  std::size_t Asked() const { return bench_.Screen.Boxes.size() + bench_.Screen.Questions.size(); }

  // What a purge could not switch off is told, and goes off at the next HALT.
  void AtTheEnd() {
    atTheEnd_ = commands_;
    if (nth_ == 0 || ending_ != "HALT") return;
    const bool fails = bench_.Report().find("PURGE process ending!") != std::string::npos;
    Check(fails);
    if (!fails) return;
    bench_.Press("HALT");
    Check(false);
  }

  void Check(bool mayBeTold) {
    SCOPED_TRACE(bench_.Port.Written);
    EXPECT_TRUE(bench_.Window.Flags.Idle);
    EXPECT_EQ(bench_.Window.Running, nullptr);
    const std::string told = bench_.Window.LblOn.Caption;
    const std::pair<const char*, const char*> kinds[] = {
        {"valves", "electrovalve"}, {"stirrings", "stirring"}, {"motors", "motor"}};
    for (const auto& [kind, name] : kinds) {
      const std::string on = bench_.Machine.Tell(std::string("check ") + kind + " none");
      const bool known = mayBeTold && told.find(name) != std::string::npos;
      EXPECT_TRUE(on.empty() || known) << on << told;
    }
    EXPECT_LE(Asked(), asked_ + 7) << "three of HALT, of Esc, and one before";
    if (mayBeTold) return;
    EXPECT_EQ(told, "");
    EXPECT_EQ(Asked(), asked_) << "a box behind HALT";
  }

  std::size_t nth_;
  std::string ending_;
  bool silent_;
  bool ended_ = false;
  std::size_t asked_ = 0;
  std::size_t commands_ = 0;
  std::size_t atTheEnd_ = 0;
  MaintenanceBench bench_;
};

TEST(Endings, LeaveNothingOnThatTheOperatorIsNotToldOf) {
  for (const Process& process : kProcesses) {
    const std::size_t commands = Ending(process, 0, "", false).Commands();
    for (std::size_t nth = 1; nth <= std::min<std::size_t>(commands, 16); ++nth) {
      for (const auto& [ending, silent] : kEndings) {
        SCOPED_TRACE(std::string(process.Name) + ", " + ending + " upon command " +
                     std::to_string(nth) + (silent ? ", unanswered" : ""));
        Ending(process, nth, ending, silent);
      }
    }
  }
}

}  // namespace

}  // namespace tintbench::testing
