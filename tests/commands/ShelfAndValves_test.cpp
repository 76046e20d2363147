// The shelf's guard against a double command, the wait for the can, punching and the valve test:
// what goes over the line, what the boxes say, and how HALT and a closing window end each.
#include <gtest/gtest.h>

#include "commands/CommBench.h"
#include "commands/PurgeBench.h"

namespace tintbench::testing {

namespace {

using commands::kMaintenanceMenu;

// What went over the line: keys behind "|", "!" in front of what the closing sends.
std::string Wire(MaintenanceBench& bench, const std::vector<std::pair<double, std::string>>& keys) {
  std::vector<MaintenanceBench::Step> steps;
  for (const auto& [after, key] : keys) {
    steps.push_back({after, [&bench, key = key] {
                       bench.Port.Written += "|";
                       bench.Press(key);
                     }});
  }
  steps.push_back({100, [&bench] { bench.Port.Written += "!"; }});
  bench.Port.Written.clear();
  bench.Run(kMaintenanceMenu, steps);
  return bench.Port.Written;
}

std::string WireOf(const std::string& wire) { return wire.substr(0, wire.find('!')); }

std::string Times(std::size_t count, const std::string& text) {
  std::string all;
  for (std::size_t i = 0; i < count; ++i) all += text;
  return all;
}

TEST(ShelfAndValves, OppositeKeyStopsTheShelfWithinTenSeconds) {
  struct Case {
    std::vector<std::pair<double, std::string>> Keys;
    const char* Fault;
    const char* Wire;
  };
  const Case cases[] = {
      {{{1, "F1"}}, "none", "|#eu*"},
      {{{1, "F1"}, {5, "F2"}}, "none", "|#eu*|#eu*"},
      {{{1, "F1"}, {9.9, "F2"}}, "none", "|#eu*|#eu*"},
      {{{1, "F1"}, {11, "F2"}}, "none", "|#eu*|#ed*"},
      {{{1, "F2"}, {5, "F1"}}, "none", "|#ed*|#ed*"},
      {{{1, "F2"}, {11, "F1"}}, "none", "|#ed*|#eu*"},
      {{{1, "F1"}, {5, "F1"}}, "none", "|#eu*|#eu*"},
      {{{1, "F1"}, {5, "F2"}, {1, "F2"}}, "none", "|#eu*|#eu*|#ed*"},
      {{{1, "F1"}, {5, "F2"}}, "refuse #eu*", "|#eu*|#ed*"},
      {{{1, "F1"}, {15, "F2"}}, "silent #eu*", "|#eu*|#ed*"},
      {{{1, "F1"}, {5, "HALT"}}, "none", "|#eu*|#eu*"},
      {{{1, "F2"}, {5, "HALT"}}, "none", "|#ed*|#ed*"},
      {{{1, "F1"}, {5, "F1"}, {5, "HALT"}}, "none", "|#eu*|#eu*|#z*"},
  };
  for (const Case& move : cases) {
    SCOPED_TRACE(std::string(move.Wire) + " " + move.Fault);
    MaintenanceBench bench;
    ASSERT_EQ(bench.Machine.Tell("fault " + std::string(move.Fault)), "");
    EXPECT_EQ(WireOf(Wire(bench, move.Keys)), move.Wire);
  }
  MaintenanceBench without;
  without.Facts.HasShelf = false;
  EXPECT_EQ(WireOf(Wire(without, {{1, "F1"}, {5, "F2"}})), "||");
}

TEST(ShelfAndValves, ShelfIsRememberedWhenTheWindowOpensAgain) {
  MaintenanceBench bench;
  EXPECT_EQ(Wire(bench, {{1, "F1"}, {1, "I"}, {1, "Esc"}}), "|#eu*|#ir*|#z*");
  EXPECT_EQ(WireOf(Wire(bench, {{3, "F2"}, {1, "F2"}})), "|#eu*|#ed*");
}

// Both ways booked at once, as by single commands, still end in one command.
TEST(ShelfAndValves, BooksWhatSingleCommandsMove) {
  CommBench bench;
  bench.Facts.HasShelf = true;
  bench.Load(kMaintenanceMenu);
  commands::ElementSender sender(bench.Window);
  commands::ShelfAndValves shelf(bench.Window, sender);
  shelf.ShelfMotion(link::CommandId::ShelfUp, "");
  shelf.ShelfMotion(link::CommandId::ShelfUp, "R");
  EXPECT_FALSE(shelf.IsMovingUp());
  shelf.ShelfMotion(link::CommandId::ShelfUp, "A");
  shelf.ShelfMotion(link::CommandId::ShelfDown, "A");
  EXPECT_TRUE(shelf.IsMovingUp() && shelf.IsMovingDown());
  bench.Port.Expect("#ed*").Reply("A").Expect("#ed*").Reply("A");
  shelf.ShelfUp();
  EXPECT_TRUE(shelf.IsMovingUp());
  EXPECT_FALSE(shelf.IsMovingDown());
  bench.Clock.Sleep(10);
  shelf.ShelfDown();
  EXPECT_TRUE(shelf.IsMovingUp() && shelf.IsMovingDown());
  EXPECT_EQ(bench.Window.TextOutput.Text.Get(),
            "Shelf DOWN and stop low\r\n\r\nPRESS <HALT PROCESS> TO STOP\r\nTHE SHELF");
  EXPECT_EQ(bench.Window.TxtIOm.Text.Get(), "[ command accepted ]\r\n");
}

constexpr const char* kNeedsCan =
    "ATTENTION !\r\nYou ABSOLUTELY need a CAN for this process !\r\nPlease, put a CAN on the shelf";
constexpr const char* kMovesShelf =
    "\r\n\r\nATTENTION !\r\nIf necessary, the SHELF will be MOVED UP !";
constexpr const char* kGoOn = "Press OK to continue or CANCEL to abort.";

// The puncher works only once the can is in its place.
TEST(ShelfAndValves, WaitsForTheCan) {
  struct Case {
    const char* What;
    std::vector<std::string> Machine;
    const char* Later;  // told three seconds behind the key
    bool Shelf;
    int Connector;
    std::deque<ui::Answer> Answers;
    std::string Wire;
    std::string LastBox;
  };
  const std::string request = std::string(kNeedsCan) + kMovesShelf + "\r\n\r\n" + kGoOn;
  const std::string noSensor =
      "Failure !\r\nSensor not associated to the connector or\r\n"
      "incorrectly associated in configuration !";
  const Case cases[] = {
      {"there", {"can on", "shelf high"}, "", true, 6, {}, "#z*#eu*#ir*#ez*", kGoOn},
      {"there, and cancelled",
       {"can on", "shelf high"},
       "",
       true,
       6,
       {ui::Answer::OK, ui::Answer::Cancel},
       "#z*#eu*#ir*",
       kGoOn},
      {"not wanted", {}, "", true, 6, {ui::Answer::Cancel}, "#z*", request},
      {"later",
       {"shelf high"},
       "input 6 on",
       true,
       6,
       {},
       "#z*#eu*" + Times(4, "#ir*") + "#ez*",
       kGoOn},
      {"never",
       {},
       "",
       true,
       6,
       {},
       "#z*#eu*" + Times(17, "#ir*"),
       "Failure !\r\nCan photocell NOT obscured after timeout elapsed ![ 16_seconds ] "},
      {"answers cut short",
       {"fault short 1 #ir*"},
       "",
       true,
       6,
       {},
       "#z*#eu*" + Times(4, "#ir*"),
       "Failure !\r\nCan photocell NOT obscured after timeout elapsed ![ 16_seconds ] "},
      {"no shelf", {}, "", false, 6, {}, "#z*#ir*", "Failure !\r\nCan photocell NOT obscured"},
      {"no shelf, there",
       {"can on", "shelf high"},
       "",
       false,
       6,
       {},
       "#z*#ir*#ez*",
       std::string(kNeedsCan) + "\r\n\r\n" + kGoOn},
      {"no connector", {}, "", true, -1, {}, "#z*#eu*", noSensor},
      {"connector 0", {}, "", true, 0, {}, "#z*#eu*", noSensor},
      {"connector 21", {}, "", true, 21, {}, "#z*#eu*", noSensor},
      {"another connector",
       {"can on", "shelf high", "input 20 off"},
       "",
       true,
       20,
       {},
       "#z*#eu*" + Times(17, "#ir*"),
       ""},
      {"refused", {"fault refuse #z*"}, "", true, 6, {}, "#z*", ""},
  };
  for (const Case& can : cases) {
    SCOPED_TRACE(can.What);
    MaintenanceBench bench;
    for (const std::string& words : can.Machine) ASSERT_EQ(bench.Machine.Tell(words), "");
    bench.Facts.HasShelf = can.Shelf;
    bench.Facts.PhotocellConnector = can.Connector;
    bench.Screen.Answers = can.Answers;
    if (*can.Later != '\0') {
      bench.Screen.After(4, [&] { ASSERT_EQ(bench.Machine.Tell(can.Later), ""); });
    }
    EXPECT_EQ(WireOf(Wire(bench, {{1, "P"}})), "|" + can.Wire);
    if (can.LastBox.empty()) continue;
    ASSERT_FALSE(bench.Screen.Boxes.empty());
    EXPECT_EQ(bench.Screen.Boxes.back().Text, can.LastBox);
    EXPECT_EQ(bench.Screen.Boxes.back().Title, "MOVE SHELF UP WITH CAN");
    EXPECT_EQ(bench.Screen.Boxes.front().Icon, ui::BoxIcon::Exclamation);
    EXPECT_EQ(bench.Screen.Boxes.front().Buttons, ui::BoxButtons::OkCancel);
  }
}

// Whatever earlier trips have left in the book, the shelf that is on its way is stopped.
TEST(ShelfAndValves, TheShelfIsStoppedOnEveryTripForTheCan) {
  for (const std::string key : {"HALT", "Esc"}) {
    for (const char* fault : {"none", "silent 1 #eu*"}) {
      SCOPED_TRACE(key + ", fault " + fault);
      MaintenanceBench bench;
      for (const char* words : {"can on", "shelf high"}) ASSERT_EQ(bench.Machine.Tell(words), "");
      bench.Screen.After(20, [&] {
        for (const std::string& words :
             {std::string("can off"), std::string("shelf low"), "fault " + std::string(fault)}) {
          ASSERT_EQ(bench.Machine.Tell(words), "");
        }
      });
      const std::string stop = "#eu*#z*";
      const std::string wire = Wire(bench, {{1, "P"}, {25, "P"}, {3, key}});
      EXPECT_EQ(wire.substr(wire.rfind('|') + 1, stop.size()), stop) << wire;
      // An unanswered command keeps the line until the shelf is up.
      if (fault == std::string("none")) {
        EXPECT_EQ(bench.Machine.Tell("check shelf between"), "");
      }
    }
  }
}

TEST(ShelfAndValves, WaitForTheCanCanBeEnded) {
  for (const std::string key : {"HALT", "Esc"}) {
    SCOPED_TRACE(key);
    MaintenanceBench bench;
    std::string shown;
    bench.Screen.After(1.5, [&] { shown = bench.Report(); });
    bench.Screen.After(5, [&] {
      EXPECT_TRUE(bench.Report().starts_with("[ 13 ] wait please ... \r\n\r\nShelf UP"));
      EXPECT_FALSE(bench.Window.Options.IsEnabled(commands::kReadInputs));
      bench.Press(key);
    });
    const std::string wire = Wire(bench, {{1, "P"}});
    const std::string wanted = "|#z*#eu*" + Times(4, "#ir*") + "#eu*#z*";
    EXPECT_EQ(WireOf(wire), wanted);
    EXPECT_TRUE(shown.starts_with("[ 16 ] wait please ... ")) << shown;
    EXPECT_EQ(bench.Screen.Boxes.size(), 1U);
  }
}

struct TestBench : MaintenanceBench {
  TestBench() {
    Machine.Tell("can on");
    Machine.Tell("shelf high");
  }
};

TEST(ShelfAndValves, TestsTheValvesToTheEnd) {
  struct Case {
    const char* What;
    std::vector<std::pair<double, std::string>> Keys;
    const char* Firmware;
    std::string Wire;
  };
  const std::string begin = "|#z*#eu*#ir*#v*";
  const Case cases[] = {
      {"to its end", {{1, "T"}}, "5.2", begin + "#s*"},
      {"watched",
       {{1, "T"}, {10, "I"}, {5, "S"}, {5, "R"}, {5, "T"}},
       "5.2",
       begin + "|#ir*|#s*||#s*"},
      {"halted", {{1, "T"}, {10, "HALT"}}, "5.2", begin + "|#z*"},
      {"halted while watched", {{1, "T"}, {10, "O"}, {3, "HALT"}}, "5.2", begin + "|#ur*|#z*"},
      {"halted on old firmware", {{1, "T"}, {10, "HALT"}}, "3.0", begin + "|#z*#h*#pb*"},
      {"closed", {{1, "T"}, {10, "Esc"}}, "5.2", begin + "|#z*"},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(test.What);
    TestBench bench;
    bench.Status.FirmwareVersion = test.Firmware;
    bench.Screen.After(7, [&] {
      EXPECT_EQ(bench.Report(),
                "Electrovalves test\r\n\r\n[ expected process time = 48 sec. ]"
                "\r\n\r\nPRESS <HALT PROCESS> TO STOP");
      EXPECT_NE(bench.Window.Running, nullptr);
      EXPECT_EQ(bench.Window.Options.Selected(), commands::kReadInputs);
      EXPECT_TRUE(bench.Window.Options.IsEnabled(commands::kReadStatus));
      EXPECT_FALSE(bench.Window.Options.IsEnabled(commands::kReset));
    });
    EXPECT_EQ(WireOf(Wire(bench, test.Keys)), test.Wire);
    EXPECT_TRUE(bench.Window.Options.IsEnabled(commands::kReset));
  }
}

TEST(ShelfAndValves, WatchesAValveTestThatTakesLonger) {
  TestBench bench;
  bench.Facts.ValveTestTime = 1;
  const std::string wire = WireOf(Wire(bench, {{1, "T"}}));
  // 24 seconds more of half a second and a transaction of the variable length each.
  EXPECT_NEAR(static_cast<double>(CountOf(wire, "#s*")), 24 / 0.8, 2) << wire;
}

TEST(ShelfAndValves, CannotTestWithoutItsConditions) {
  struct Case {
    int Seconds;
    const char* Circuits;
    const char* Fault;
    const char* Wire;
    const char* Box;
    ui::BoxIcon Icon;
  };
  const Case cases[] = {
      {0, "01,", "none", "|",
       "Wrong configuration parameter: \r\n<Opening time for valve-test> = 0\r\n\r\n"
       "Please, correct parameter\r\nin the configuration section!",
       ui::BoxIcon::Exclamation},
      {2, "", "none", "|", "Cannot perform test!\r\n\r\nNo valves!", ui::BoxIcon::Plain},
      {2, "01,", "refuse #z*", "|#z*", nullptr, ui::BoxIcon::Plain},
      {2, "01,", "refuse #v*", "|#z*#eu*#ir*#v*", nullptr, ui::BoxIcon::Plain},
      {2, "01,", "silent #v*", "|#z*#eu*#ir*#v*", nullptr, ui::BoxIcon::Plain},
  };
  for (const Case& test : cases) {
    SCOPED_TRACE(test.Wire);
    TestBench bench;
    ASSERT_EQ(bench.Machine.Tell("fault " + std::string(test.Fault)), "");
    bench.Facts.ValveTestTime = test.Seconds;
    bench.Facts.ElementLists[config::kCircuits] = test.Circuits;
    EXPECT_EQ(WireOf(Wire(bench, {{1, "T"}})), test.Wire);
    if (test.Box == nullptr) continue;
    ASSERT_EQ(bench.Screen.Boxes.size(), 1U);
    EXPECT_EQ(bench.Screen.Boxes[0].Text, test.Box);
    EXPECT_EQ(bench.Screen.Boxes[0].Title, "Cannot perform test!");
    EXPECT_EQ(bench.Screen.Boxes[0].Icon, test.Icon);
  }
}

}  // namespace

}  // namespace tintbench::testing
