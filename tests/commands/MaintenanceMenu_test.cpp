// The Maintenance Menu on the simulated machine: what its keys send, in which order, what the
// operator reads, and what is off whenever a walk ends.
#include <gtest/gtest.h>

#include "base/Text.h"
#include "commands/MaintenanceBench.h"

namespace tintbench::testing {

namespace {

using commands::kMaintenanceMenu;
using Keys = std::vector<std::pair<double, std::string>>;

constexpr const char* kAccepted = "[ command accepted ]\r\n";
constexpr const char* kDone = "[ command accepted ]\r\n[ operation success ]";
constexpr const char* kRefused = "[ command refused ]";
constexpr const char* kStopped = "[ command accepted ]\r\n( process stopped )";

// Presses the keys, each so long after the one before, and gives back what went over the line: the
// commands of each key behind "|", of equal ones in a row only the first. `status` is what the
// status line shows long after the last key, if the window is open then.
std::string Wire(MaintenanceBench& bench, const Keys& keys, std::string* status = nullptr) {
  std::vector<MaintenanceBench::Step> steps;
  for (const auto& [after, key] : keys) {
    steps.push_back({after, [&bench, key = key] {
                       bench.Port.Written += "|";
                       bench.Press(key);
                     }});
  }
  steps.push_back({40, [&bench, status] {
                     bench.Port.Written += "!";
                     if (status != nullptr) *status = bench.StatusLine();
                   }});
  bench.Port.Written.clear();
  bench.Run(kMaintenanceMenu, steps);
  const std::string written = bench.Port.Written.substr(0, bench.Port.Written.find('!'));
  std::string wire;
  std::string last;
  for (std::size_t at = 0; at < written.size();) {
    const std::size_t end = written[at] == '|' ? at + 1 : written.find('*', at) + 1;
    const std::string piece = written.substr(at, end - at);
    if (piece == "|" || piece != last) wire += piece;
    last = piece;
    at = end;
  }
  return wire;
}

// So many presses of one key, with time for each.
Keys Presses(const std::string& key, int count) {
  return Keys(static_cast<std::size_t>(count), {20, key});
}

struct WalkKey {
  const char* Key;
  config::ElementKind Kind;
};
constexpr WalkKey kValves{"F3", config::kCircuits};
constexpr WalkKey kOpen{"F5", config::kCaps};
constexpr WalkKey kClose{"F6", config::kCaps};
constexpr WalkKey kStirrings{"F8", config::kStirrings};
constexpr WalkKey kMiddle{"F10", config::kCaps};

TEST(MaintenanceMenu, WalksTheElementsOfItsList) {
  struct Case {
    WalkKey Walk;
    const char* Elements;
    const char* Wire;  // of four presses
  };
  // clang-format off
  const Case cases[] = {
      {kValves, "", "||||"},
      {kValves, "07,", "|#a07*|#g07*|#a07*|#g07*"},
      {kValves, "01,02,", "|#a01*|#g01*#a02*|#g02*|#a01*"},
      {kStirrings, "", "||||"},
      {kStirrings, "03,", "|#b03*|#m03*|#b03*|#m03*"},
      {kStirrings, "01,16,", "|#b01*|#m01*#b16*|#m16*|#b01*"},
      {kOpen, "", "||||"},
      {kOpen, "02,", "|#do02*|#do02*|#do02*|#do02*"},
      {kOpen, "01,02,03,", "|#do01*|#do02*|#do03*|#do01*"},
      {kClose, "01,02,", "|#dc01*|#dc02*|#dc01*|#dc02*"},
      {kMiddle, "01,02,03,", "|#dm02*|#dm02*|#dm02*|#dm02*"},
      {kMiddle, "01,03,", "||||"},
      {kMiddle, "", "||||"},
  };
  // clang-format on
  for (const Case& walk : cases) {
    SCOPED_TRACE(std::string(walk.Walk.Key) + " of " + walk.Elements);
    MaintenanceBench bench;
    bench.Facts.ElementLists[walk.Walk.Kind] = walk.Elements;
    EXPECT_EQ(Wire(bench, Presses(walk.Walk.Key, 4)), walk.Wire);
    EXPECT_EQ(bench.StatusLine(), std::string(walk.Wire) == "||||" ? "" : kDone);
  }
}

// An element that fails is told, and the walk goes on; it may be on all the same.
TEST(MaintenanceMenu, TellsOfAnElementThatFails) {
  struct Case {
    WalkKey Walk;
    const char* Fault;
    const char* Wire;  // of two presses
    const char* Status;
    const char* Report;  // the line of the result
  };
  constexpr const char* kFail = "[ command accepted ]\r\n[ operation fail ]";
  // clang-format off
  const Case cases[] = {
      {kValves, "echo #a*", "|#a01*|#g01*#a02*", kRefused, "Electrovalve(s) enable|02 -> Failure !"},
      {kValves, "refuse #a*", "|#a01*|#g01*#a02*", kRefused, "Electrovalve(s) enable|02 -> Failure !"},
      {kValves, "silent #a*", "|#a01*|#g01*#a02*", kRefused, "Electrovalve(s) enable|02 -> Failure !"},
      {kValves, "short 2 #a*", "|#a01*|#g01*#a02*", kRefused, "Electrovalve(s) enable|02 -> Failure !"},
      {kValves, "silent #g*", "|#a01*|#g01*#a02*", kDone, "Electrovalve(s) enable|02 -> Success !"},
      {kStirrings, "echo #b*", "|#b01*|#m01*#b02*", kRefused, "Stirring action(s) enable|02 -> Failure !"},
      {kStirrings, "refuse #b*", "|#b01*|#m01*#b02*", kRefused, "Stirring action(s) enable|02 -> Failure !"},
      {kOpen, "fail #do*", "|#do01*|#do02*", kFail, "Cap open|02 -> Failure !"},
      {kOpen, "echo #do*", "|#do01*|#do02*", kRefused, "Cap open|02 -> Failure !"},
      {kClose, "silent #dc*", "|#dc01*|#dc02*", kRefused, "Cap close|02 -> Failure !"},
      {kMiddle, "fail #dm*", "|#dm02*|#dm02*", kFail, "Cap intermediate position|02 -> Failure !"},
      {kMiddle, "none", "|#dm02*|#dm02*", kDone, "Cap intermediate position|02 -> Success !"},
  };
  // clang-format on
  for (const Case& walk : cases) {
    SCOPED_TRACE(std::string(walk.Walk.Key) + " " + walk.Fault);
    MaintenanceBench bench;
    ASSERT_EQ(bench.Machine.Tell("fault " + std::string(walk.Fault)), "");
    EXPECT_EQ(Wire(bench, Presses(walk.Walk.Key, 2)), walk.Wire);
    EXPECT_EQ(bench.StatusLine(), walk.Status);
    const std::string head = base::GetField(1, walk.Report, "|") + "\r\n\r\n" +
                             base::GetField(2, walk.Report, "|") + "\r\n";
    EXPECT_EQ(bench.Report().substr(0, head.size()), head);
  }
}

TEST(MaintenanceMenu, TellsWhatToPressNext) {
  const std::string line(42, '-');
  MaintenanceBench caps;
  Wire(caps, Presses("F5", 1));
  EXPECT_EQ(caps.Report(), "Cap open\r\n\r\n01 -> Success !\r\n" + line +
                               "\r\nPress again the same key to:\r\n"
                               "- enable the command for the next element\r\n" +
                               line + "\r\n");
  const std::string hint = "\r\n" + line +
                           "\r\nPress again the same key to:\r\n"
                           "- disable the command for the current element and\r\n"
                           "- enable the command for the next element\r\n\r\n"
                           "PRESS <HALT PROCESS> TO STOP\r\n" +
                           line + "\r\n";
  MaintenanceBench valves;
  Wire(valves, Presses("F3", 1));
  EXPECT_EQ(valves.Report(), "Electrovalve(s) enable\r\n\r\n01 -> Success !" + hint);
  valves.Facts.ElementLists[config::kCircuits] = "01,";
  Wire(valves, Presses("F3", 2));
  EXPECT_EQ(valves.Report(), "Electrovalve(s) disable\r\n\r\n01 -> Success !");
  MaintenanceBench motors;
  motors.Screen.Replies = {"70"};
  ASSERT_EQ(motors.Machine.Tell("motor 1 123"), "");
  Wire(motors, Presses("F7", 1));
  const std::string speed =
      "Motor ON\r\n\r\n01 (Speed=070) -> Success !" + hint + "Speed received [ 123";
  EXPECT_EQ(motors.Report().substr(0, speed.size()), speed);
  EXPECT_TRUE(motors.Report().ends_with(" rpm ]"));
  motors.Screen.Replies = {"70"};
  ASSERT_EQ(motors.Machine.Tell("fault silent #o*"), "");
  Wire(motors, Presses("F7", 1));
  EXPECT_EQ(motors.Report(), "Motor ON\r\n\r\n01 (Speed=070) -> Success !" + hint +
                                 "Speed received [ 0 rpm ][ INVALID DATA ]");
}

TEST(MaintenanceMenu, RunsMotorsOneAfterTheOther) {
  struct Case {
    const char* Name;
    const char* Motors;
    std::deque<std::string> Replies;
    const char* Fault;
    Keys Pressed;
    const char* Wire;
  };
  const std::pair<double, std::string> f7{5, "F7"};
  const std::pair<double, std::string> halt{5, "HALT"};
  // clang-format off
  const Case cases[] = {
      {"none", "", {}, "none", {f7, f7}, "||"},
      {"one", "01,", {"100", "70"}, "none", {f7, f7, f7, f7}, "|#f01100*#o01*|#l01*|#f01070*#o01*|#l01*"},
      {"two", "01,02,", {"100", "70"}, "none", {f7, f7, f7}, "|#f01100*#o01*|#l01*#f02070*#o02*|#l02*"},
      {"cancelled at the second", "01,02,03,", {"100", "", "70"}, "none", {f7, f7, f7, f7}, "|#f01100*#o01*|#l01*|#f03070*#o03*|#l03*"},
      {"cancelled at the last", "01,02,", {"", "", "70"}, "none", {f7, f7, f7, f7}, "|||#f01070*#o01*|#l01*"},
      {"halted", "01,02,", {"100", "70"}, "none", {f7, halt, f7, f7}, "|#f01100*#o01*|#z*|#f01070*#o01*|#l01*"},
      {"closed", "01,02,", {"100", "70"}, "none", {f7, {5, "Esc"}}, "|#f01100*#o01*|#z*"},
      {"other keys", "01,02,", {"100"}, "none", {f7, {5, "F3"}, {2, "I"}, {2, "F9"}, {2, "F4"}, {2, "A"}}, "|#f01100*#o01*|#o01*|#o01*|#o01*|#o01*|#o01*"},
      {"refused", "01,02,", {"100", "70"}, "refuse 1 #f*", {f7, f7}, "|#f01100*|#l01*#f02070*#o02*"},
      {"wrong echo", "01,02,", {"100", "70"}, "echo 1 #f*", {f7, f7}, "|#f01100*|#l01*#f02070*#o02*"},
      {"last one silent", "01,", {"100", "70"}, "silent 1 #f*", {f7, {15, "F7"}, f7}, "|#f01100*|#l01*|#f01070*#o01*"},
      {"speed unknown", "01,", {"100"}, "refuse #o*", {f7, f7}, "|#f01100*#o01*|#l01*"},
      {"off refused", "01,02,", {"100", "70"}, "refuse #l*", {f7, f7}, "|#f01100*#o01*|#l01*#f02070*#o02*"},
  };
  // clang-format on
  for (const Case& walk : cases) {
    SCOPED_TRACE(walk.Name);
    MaintenanceBench bench;
    bench.Facts.ElementLists[config::kMotors] = walk.Motors;
    bench.Screen.Replies = walk.Replies;
    ASSERT_EQ(bench.Machine.Tell("fault " + std::string(walk.Fault)), "");
    EXPECT_EQ(Wire(bench, walk.Pressed), walk.Wire);
    EXPECT_TRUE(bench.Window.Flags.Idle);
  }
}

TEST(MaintenanceMenu, AsksForASpeedUntilItIsOne) {
  MaintenanceBench bench;
  bench.Screen.Replies = {"0", "abc", "1234", "-5", "0.4", "7", ""};
  EXPECT_EQ(Wire(bench, {{1, "F7"}, {5, "F7"}}), "|#f01007*#o01*|#l01*");
  std::vector<std::string> offered;
  for (const ui::Question& question : bench.Screen.Questions) offered.push_back(question.Default);
  EXPECT_EQ(offered, (std::vector<std::string>{"", "0", "abc", "1234", "-5", "0.4", "007"}));
  const ui::Question& first = bench.Screen.Questions.front();
  EXPECT_EQ(first.Prompt, "Input 3 decimal characters for the speed of motor [ 01 ] ");
  EXPECT_EQ(first.Title, "Motor ON");
  EXPECT_EQ(bench.Screen.Questions.back().Prompt,
            "Input 3 decimal characters for the speed of motor [ 02 ] ");
}

// A key that ends the watch is felt at once, though the watch would wait a second.
TEST(MaintenanceMenu, WhatEndsAWatchWaitsForTheRunningTransactionAlone) {
  for (const auto& [key, command] :
       std::map<std::string, std::string>{{"HALT", "#z*"}, {"F7", "#l01*"}, {"Esc", "#z*"}}) {
    for (double moment = 3.0; moment < 4.5; moment += 0.11) {
      SCOPED_TRACE(key + " " + std::to_string(moment));
      MaintenanceBench bench;
      bench.Screen.Replies = {"100"};
      const double due = bench.Clock.Now() + moment;
      double sent = 0;
      bench.Port.OnWriting = [&, command = command] {
        if (bench.Port.Written.ends_with(command) && sent == 0) sent = bench.Clock.Now();
      };
      bench.Run(kMaintenanceMenu,
                {{0, [&] { bench.Press("F7"); }}, {moment, [&, key = key] { bench.Press(key); }}});
      EXPECT_GE(sent, due);
      EXPECT_LE(sent, due + 0.31);
    }
  }
}

TEST(MaintenanceMenu, AnotherOptionForgetsWhereAWalkStood) {
  MaintenanceBench bench;
  EXPECT_EQ(Wire(bench, {{1, "F3"},
                         {1, "F3"},
                         {2, "I"},
                         {1, "F3"},
                         {1, "F8"},
                         {1, "HALT"},
                         {1, "F8"},
                         {1, "F8"}}),
            "|#a01*|#g01*#a02*|#ir*|#a01*|#b01*|#z*|#b01*|#m01*#b02*");
}

TEST(MaintenanceMenu, DisablesWhatTheMachineDoesNotHave) {
  struct Case {
    void (*Take)(config::MachineFacts&);
    std::vector<std::string> Dead;
  };
  // clang-format off
  const Case cases[] = {
      {[](config::MachineFacts&) {}, {"F4", "A"}},
      {[](config::MachineFacts& facts) { facts.HasPuncher = false;}, {"P"}},
      {[](config::MachineFacts& facts) { facts.HasShelf = false;}, {"F1", "F2"}},
      {[](config::MachineFacts& facts) { facts.CapCount = 0;}, {"F5", "F6"}},
      {[](config::MachineFacts& facts) { facts.CapThreePositionList.clear();}, {"F10"}},
  };
  // clang-format on
  for (const Case& machine : cases) {
    MaintenanceBench bench;
    machine.Take(bench.Facts);
    Keys keys;
    for (const std::string& key : machine.Dead) {
      SCOPED_TRACE(key);
      EXPECT_EQ(Wire(bench, {{1, key}}), "|");
      const int option = commands::OptionOfKey(
          key == "P" ? 'P' : ui::kKeyF1 - 1 + base::LeadingInt(key.substr(1)));
      EXPECT_FALSE(option >= 0 && bench.Window.Option1(option).Enabled);
    }
    int disabled = 0;
    for (int option = 0; option < commands::kMaintenanceOptions; ++option) {
      disabled += bench.Window.Option1(option).Enabled ? 0 : 1;
    }
    EXPECT_EQ(disabled, machine.Dead.front() == "F4" ? 0 : static_cast<int>(machine.Dead.size()));
  }
}

TEST(MaintenanceMenu, AClickSelectsAndTheButtonRuns) {
  MaintenanceBench bench;
  bench.Run(kMaintenanceMenu, {{0, [&] {
                                  EXPECT_EQ(bench.Window.Caption.Get(),
                                            "Main.  Maintenance Menu  [ PUSH < ESC > FOR EXIT ]");
                                  bench.Port.Written.clear();
                                  bench.Window.CmdMultExec.Press();
                                  bench.Window.Option1(8).Press();
                                  EXPECT_EQ(bench.Port.Written, "");
                                  EXPECT_EQ(bench.Window.CmdMultExec.Caption.Get(),
                                            "Enable each electrovalve\r\nE&XECUTE");
                                  EXPECT_EQ(bench.Window.CmdMultExec.Tag.Get(), "8");
                                  bench.Window.CmdMultExec.Press();
                                  EXPECT_EQ(bench.Port.Written, "#a01*");
                                  EXPECT_TRUE(bench.Window.FrameOutput.Visible);
                                }}});
  // Nothing is selected when the window opens again.
  EXPECT_EQ(Wire(bench, {{1, "HALT"}}), "|#z*");
  EXPECT_EQ(bench.Window.CmdMultExec.Tag.Get(), "");
}

TEST(MaintenanceMenu, ReadsAndResets) {
  struct Case {
    const char* Key;
    const char* Fault;
    const char* Wire;
    const char* Status;
    std::vector<int> Panels;
  };
  // clang-format off
  const Case cases[] = {
      {"I", "none", "|#ir*", kAccepted, {0, 3}},
      {"O", "none", "|#ur*", kAccepted, {1, 3}},
      {"S", "none", "|#s*", kAccepted, {2}},
      {"I", "refuse #ir*", "|#ir*", kRefused, {0, 3}},
      {"S", "silent #s*", "|#s*", kRefused, {2}},
      {"R", "none", "|#h*#pb*", kAccepted, {}},
      {"R", "refuse #h*", "|#h*#pb*", kRefused, {}},
  };
  // clang-format on
  for (const Case& reading : cases) {
    SCOPED_TRACE(reading.Key);
    MaintenanceBench bench;
    ASSERT_EQ(bench.Machine.Tell("fault " + std::string(reading.Fault)), "");
    std::vector<int> shown;
    bench.Screen.After(20, [&] {
      for (int panel = 0; panel < state::kPanels; ++panel) {
        if (bench.Window.Panels.Frame(panel).Visible) shown.push_back(panel);
      }
    });
    EXPECT_EQ(Wire(bench, {{1, reading.Key}}), reading.Wire);
    EXPECT_EQ(bench.StatusLine(), reading.Status);
    EXPECT_EQ(shown, reading.Panels);
  }
  MaintenanceBench unknown;
  unknown.Status.LinkState = link::kPortOpen;
  EXPECT_EQ(Wire(unknown, {{1, "R"}}), "|#h*");
}

TEST(MaintenanceMenu, HaltsByWhatIsSelected) {
  struct Case {
    const char* Name;
    const char* Firmware;
    const char* Shelf;
    const char* Can;
    Keys Pressed;
    const char* Wire;
    const char* Status;
  };
  const std::pair<double, std::string> halt{3, "HALT"};
  const std::pair<double, std::string> esc{3, "Esc"};
  // clang-format off
  const Case cases[] = {
      {"nothing selected", "5.2", "low", "off", {halt}, "|#z*", kStopped},
      {"valves", "5.2", "low", "off", {{1, "F3"}, halt}, "|#a01*|#z*", kStopped},
      {"shelf moves up", "5.2", "low", "off", {{1, "F1"}, halt}, "|#eu*|#eu*", kAccepted},
      {"shelf moves down", "5.2", "high", "off", {{1, "F2"}, halt}, "|#ed*|#ed*", kAccepted},
      {"shelf was stopped", "5.2", "low", "off", {{1, "F1"}, halt, halt}, "|#eu*|#eu*|#z*", kStopped},
      {"closed, shelf moves", "5.2", "low", "off", {{1, "F1"}, esc}, "|#eu*|#eu*", ""},
      {"punching waits", "5.2", "low", "off", {{1, "P"}, {2, "F3"}, {1, "P"}, halt}, "|#z*#eu*#ir*|#ir*|#ir*|#eu*#z*", kStopped},
      {"test waits, old", "3.0", "low", "off", {{1, "T"}, halt}, "|#z*#eu*#ir*|#eu*#z*#h*#pb*", kStopped},
      {"purge waits", "5.2", "low", "off", {{1, "F9"}, halt}, "|#z*#eu*#ir*|#eu*", kAccepted},
      {"purge, closed", "5.2", "low", "off", {{1, "F9"}, esc}, "|#z*#eu*#ir*|#eu*#z*", ""},
      {"test", "5.2", "high", "on", {{1, "T"}, {3, "F3"}, {1, "T"}, {1, "F9"}, halt}, "|#z*#eu*#ir*#v*||||#z*", kStopped},
      {"test, read", "5.2", "high", "on", {{1, "T"}, {3, "I"}, {1, "O"}, {1, "S"}, halt, {1, "F3"}}, "|#z*#eu*#ir*#v*|#ir*|#ur*|#s*|#z*|#a01*", kDone},
      {"test, closed", "5.2", "high", "on", {{1, "T"}, esc}, "|#z*#eu*#ir*#v*|#z*", ""},
      {"test, old", "3.0", "high", "on", {{1, "T"}, {3, "I"}, halt}, "|#z*#eu*#ir*#v*|#ir*|#z*#h*#pb*", kStopped},
      {"test, old and closed", "3.0", "high", "on", {{1, "T"}, esc}, "|#z*#eu*#ir*#v*|#z*#h*#pb*", ""},
      {"test, newer", "3.1", "high", "on", {{1, "T"}, halt}, "|#z*#eu*#ir*#v*|#z*", kStopped},
  };
  // clang-format on
  for (const Case& process : cases) {
    SCOPED_TRACE(process.Name);
    MaintenanceBench bench({.Firmware = process.Firmware});
    bench.Status.FirmwareVersion = process.Firmware;
    ASSERT_EQ(bench.Machine.Tell("shelf " + std::string(process.Shelf)), "");
    ASSERT_EQ(bench.Machine.Tell("can " + std::string(process.Can)), "");
    std::string status;
    EXPECT_EQ(Wire(bench, process.Pressed, &status), process.Wire);
    EXPECT_EQ(status, process.Status);
    EXPECT_TRUE(bench.Window.Flags.Idle);
    for (int option = 0; option < commands::kMaintenanceOptions; ++option) {
      EXPECT_TRUE(bench.Window.Option1(option).Enabled);
    }
  }
}

// The report stays on show while the valves are tested, so that the card has no room.
TEST(MaintenanceMenu, ReadingsLeaveTheReportOfAValveTest) {
  MaintenanceBench bench;
  ASSERT_EQ(bench.Machine.Tell("shelf high"), "");
  ASSERT_EQ(bench.Machine.Tell("can on"), "");
  bench.Screen.After(20, [&] {
    EXPECT_TRUE(bench.Window.Panels.Frame(state::kOutputPanel).Visible);
    EXPECT_FALSE(bench.Window.Panels.Frame(state::kInputPanel).Visible);
    EXPECT_FALSE(bench.Window.Panels.Frame(state::kCardPanel).Visible);
    EXPECT_TRUE(bench.Window.FrameOutput.Visible);
    EXPECT_NE(bench.Report().find("expected process time"), std::string::npos);
  });
  Wire(bench, {{1, "T"}, {5, "I"}, {2, "O"}, {20, "HALT"}});
}

// Keys that aren't the menu's stay with the controls, but for a running option, which only lets
// those through that press the halt button.
TEST(MaintenanceMenu, LeavesOtherKeysToTheControls) {
  MaintenanceBench bench;
  bench.Screen.Replies = {"100"};
  const auto taken = [&bench](int code, int shift = 0) {
    ui::KeyEvent key{code, shift};
    bench.Window.Form_KeyDown(key);
    return key.Code == 0;
  };
  bench.Run(kMaintenanceMenu, {{1,
                                [&] {
                                  EXPECT_FALSE(taken(ui::kKeyTab));
                                  EXPECT_FALSE(taken('H', ui::kAlt));
                                  EXPECT_FALSE(taken('C', ui::kCtrl));
                                  EXPECT_FALSE(taken('I', ui::kCtrl));
                                  bench.Press("F7");
                                }},
                               {5, [&] {
                                  EXPECT_FALSE(taken('H', ui::kAlt));
                                  EXPECT_TRUE(taken(ui::kKeySpace));
                                  EXPECT_TRUE(taken(ui::kKeyTab));
                                  EXPECT_TRUE(taken('I'));
                                  bench.Window.CmdMultStop.SetFocus();
                                  EXPECT_FALSE(taken(ui::kKeySpace));
                                  EXPECT_TRUE(taken('I'));
                                }}});
}

}  // namespace

}  // namespace tintbench::testing
