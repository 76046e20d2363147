// The purge on the simulated machine: its batches, what the operator may do when, every step that
// can fail, and above all what is switched off in which order, however it ends.
#include <gtest/gtest.h>

#include <cmath>

#include "commands/CommBench.h"
#include "commands/PurgeBench.h"

namespace tintbench::testing {

namespace {

const std::string kCheck = "#z*#eu*#ir*";                   // before the first batch
const std::string kStart = "#do01*#ns*#a0102*#f01100*#s*";  // of circuits 01 and 02
const std::string kEnd = "#l01*#g0102*#dc01*";
constexpr const char* kNoStart = "Process interrupted !\r\nCannot start the PURGE process!";
constexpr const char* kErrors = "Process interrupted !\r\nErrors during PURGE process !";
constexpr const char* kErrorsEnding = "Errors during PURGE process ending!";
constexpr const char* kEnded = "PURGE process ended !";
constexpr const char* kAgain =
    "PURGE process ended !\r\nSelect PURGE again to continue\r\n  with the remaining circuits !";

TEST(Purge, GoesThroughFiveCircuitsTwoAtATime) {
  for (const bool withShelf : {true, false}) {
    SCOPED_TRACE(withShelf);
    PurgeBench bench(withShelf);
    std::vector<std::string> told;
    for (const std::size_t round : {2U, 4U, 6U}) {
      bench.PressUpon("#s*", round, "F9");
      bench.Upon("#dc01*", round / 2,
                 [&] { bench.Screen.After(10, [&] { told.push_back(bench.Report()); }); });
    }
    const std::string watch = "#ns*#s*";
    EXPECT_EQ(bench.Wire({"F9", "F9", "F9"}),
              (withShelf ? "|#z*#eu*#ir*" : "|#z*#ir*") + kStart + watch + kEnd +
                  "|#do01*#ns*#a0304*#f02200*#s*" + watch + "#l02*#g0304*#dc01*" +
                  "|#do01*#ns*#a05*#f03300*#s*" + watch + "#l03*#g05*#dc01*");
    ASSERT_EQ(told.size(), 3U);
    EXPECT_TRUE(told[0].ends_with(kAgain)) << told[0];
    EXPECT_TRUE(told[1].ends_with(kAgain)) << told[1];
    EXPECT_TRUE(told[2].ends_with(kEnded)) << told[2];
    EXPECT_NE(told[0].find("Motor ON [ 01 ] -> speed [ 100 ]  ... Success !"), std::string::npos);
    EXPECT_NE(told[0].find("Electrovalve(s) disable [ 01 02 ] ... Success !"), std::string::npos);
    EXPECT_NE(told[0].find("... All conditions for purge are OK"), std::string::npos);
    EXPECT_TRUE(bench.Window.Options.IsEnabled(commands::kReset));
  }
}

// Tenths of seconds from an answer to the next command.
TEST(Purge, KeepsItsTimes) {
  PurgeBench bench;
  double read = 0;
  std::string waits;
  bench.Port.OnReading = [&](const std::string&) { read = bench.Clock.Now(); };
  bench.Port.OnWriting = [&, watch = bench.Port.OnWriting] {
    waits += std::to_string(std::lround((bench.Clock.Now() - read) * 10)) + " ";
    watch();
  };
  bench.PressUpon("#s*", 2, "F9");
  bench.Wire({"F9"});
  // Behind the conditions and the can: cap, sensors, valves, motor and its status, then the watch,
  // and the end.
  const std::string due = " 0 0 0 8 0 25 8 9 3 0 25 8 ";
  EXPECT_EQ(waits.substr(waits.find(' '), due.size()), due);
}

// A failure skips the rest of the starting sequence; everything is switched off all the same, and
// the rest of the circuits is forgotten.
TEST(Purge, SwitchesOffAfterEveryFailureAtTheStart) {
  struct Case {
    const char* Fault;
    std::string Wire;
    const char* Line;  // of the report
  };
  const std::string motors = "#do01*#ns*#a0102*#f01100*";
  const Case cases[] = {
      {"fault refuse #do*", "#do01*" + kEnd, "Cap open [ 01 ] ... Machine doesn't answer !"},
      {"fault fail #do*", "#do01*" + kEnd, "Cap open [ 01 ] ... Failure !"},
      {"fault silent #do*", "#do01*" + kEnd, "Cap open [ 01 ] ... Machine doesn't answer !"},
      {"fault fail #ns*", "#do01*#ns*" + kEnd, "dispensing ... Failure !\r\nPlease, check all"},
      {"fault silent #ns*", "#do01*#ns*" + kEnd, "dispensing ... Machine doesn't answer !"},
      {"fault refuse #a*", "#do01*#ns*#a0102*" + kEnd, "enable [ 01 02 ] ... Machine doesn't"},
      {"fault echo #a*", "#do01*#ns*#a0102*" + kEnd, "enable [ 01 02 ] ... Failure !"},
      {"fault echo #f*", motors + kEnd, "Motor ON [ 01 ] -> speed [ 100 ]  ... Failure !"},
      {"fault silent #f*", motors + kEnd, "-> speed [ 100 ]  ... Machine doesn't answer !"},
      {"error 1103", kStart + kEnd, "Failure ! Error condition(s) found on the machine!"},
  };
  for (const Case& fails : cases) {
    SCOPED_TRACE(fails.Fault);
    PurgeBench bench;
    bench.Tell(fails.Fault);
    std::string told;
    bench.Screen.After(115, [&] {
      told = bench.Report();
      bench.Screen.Answers = {ui::Answer::Cancel};
    });
    EXPECT_EQ(bench.Wire({"F9", "F9"}), "|" + kCheck + fails.Wire + "|#z*");
    EXPECT_NE(told.find(fails.Line), std::string::npos) << told;
    EXPECT_NE(told.find(kErrors), std::string::npos) << told;
    EXPECT_TRUE(told.ends_with(kEnded)) << told;
  }
}

// The watch ends with the first failure, and the ending sequence too.
TEST(Purge, SwitchesOffAfterFailuresOfTheWatchAndOfTheEnd) {
  struct Case {
    const char* Fault;  // from the first status on
    bool Stopped;       // by its key, behind the second status
    std::string Wire;   // behind the start
    const char* Told;
  };
  const Case cases[] = {
      {"fault fail #ns*", false, "#ns*" + kEnd, kErrors},
      {"fault silent #ns*", false, "#ns*" + kEnd, kErrors},
      {"error 1103", false, "#ns*#s*" + kEnd, kErrors},
      {"fault silent #l*", true, "#ns*#s*#l01*", kErrorsEnding},
      {"fault echo #l*", true, "#ns*#s*#l01*", kErrorsEnding},
      {"fault refuse #g*", true, "#ns*#s*#l01*#g0102*", kErrorsEnding},
      {"fault fail #dc*", true, "#ns*#s*" + kEnd, kErrorsEnding},
      {"fault silent #dc*", true, "#ns*#s*" + kEnd, kErrorsEnding},
      {"unplug", false, "#ns*#l01*", kErrors},
  };
  for (const Case& fails : cases) {
    SCOPED_TRACE(fails.Fault);
    PurgeBench bench;
    bench.Upon("#s*", 1, [&] { bench.Tell(fails.Fault); });
    if (fails.Stopped) bench.PressUpon("#s*", 2, "F9");
    std::string told;
    bench.Screen.After(115, [&] {
      told = bench.Report();
      bench.Screen.Answers = {ui::Answer::Cancel};
    });
    EXPECT_EQ(bench.Wire({"F9", "F9"}), "|" + kCheck + kStart + fails.Wire + "|#z*");
    EXPECT_NE(told.find(fails.Told), std::string::npos) << told;
  }
}

// What is left of a refusal would be taken for the beginning of the next answer.
TEST(Purge, LeavesTheLineEmptyBehindAFailedEnd) {
  PurgeBench bench;
  bench.Tell("fault refuse #dc*");
  bench.PressUpon("#s*", 1, "F9");
  std::string told;
  bench.Screen.After(110, [&] {
    bench.Press("R");
    told = bench.StatusLine();
  });
  bench.Wire({"F9", "HALT"});
  EXPECT_EQ(told, "[ command accepted ]\r\n");
}

TEST(Purge, DoesNotStartWithoutItsConditions) {
  struct Case {
    const char* Fault;
    std::deque<ui::Answer> Answers;
    std::deque<std::string> Replies;
    const char* Wire;
  };
  const Case cases[] = {
      {"fault refuse #z*", {}, {}, "|#z*"},
      {"fault none", {ui::Answer::Cancel}, {}, "|#z*"},
      {"fault none", {ui::Answer::OK, ui::Answer::Cancel}, {}, "|#z*#eu*#ir*"},
      {"fault none", {}, {}, "|#z*#eu*#ir*"},
      {"fault none", {}, {""}, "|#z*#eu*#ir*"},
      {"fault none", {}, {"nonsense"}, "|#z*#eu*#ir*"},
  };
  for (const Case& fails : cases) {
    PurgeBench bench;
    bench.Tell(fails.Fault);
    bench.Screen.Answers = fails.Answers;
    bench.Screen.Replies = fails.Replies;
    bench.Screen.After(100, [&] { EXPECT_TRUE(bench.Told(kNoStart)) << bench.Report(); });
    EXPECT_EQ(bench.Wire({"F9"}), fails.Wire);
  }
}

TEST(Purge, AsksForCircuitsAndForTheSpeedOfEachMotor) {
  PurgeBench bench;
  bench.Screen.Replies = {"0103", "999", "0", "-5", "fast", "1000", "7", "998"};
  bench.PressUpon("#s*", 1, "HALT");
  // The motor inside the machine goes alone, and so does not run with the other.
  EXPECT_EQ(bench.Wire({"F9"}), "|" + kCheck + "#do01*#ns*#a01*#f01007*#s*#l01*#g01*#dc01*");
  ASSERT_EQ(bench.Screen.Questions.size(), 8U);
  EXPECT_EQ(bench.Screen.Questions[0].Prompt,
            "If you prefer, choose manually the circuits to purge\r\n"
            "by inputing N adjacent groups of 2 decimal characters each.\r\n\r\n"
            "Otherwise the purge will be done automatically\r\n"
            "considering all the circuits of the machine !!");
  EXPECT_EQ(bench.Screen.Questions[0].Default, "0102030405");
  for (std::size_t i = 1; i < 8; ++i) {
    EXPECT_EQ(bench.Screen.Questions[i].Prompt,
              std::string("Input 3 decimal characters (001..999)\r\n") +
                  "for the wished speed of motor [ " + (i < 7 ? "01" : "02") + " ] ");
  }
}

TEST(Purge, AsksForTheCircuitsUntilTheyAreAnyOrNone) {
  PurgeBench bench;
  bench.Screen.Replies = {"011", "01*#", "01", "100"};
  bench.PressUpon("#s*", 1, "F9");
  EXPECT_NE(bench.Wire({"F9"}).find("#a01*"), std::string::npos);
  EXPECT_EQ(bench.Screen.Questions[1].Default, "011");
  EXPECT_EQ(bench.Screen.Questions[2].Default, "01*#");
}

// Giving the question up asks it again; only a closing window ends that.
TEST(Purge, AsksForASpeedUntilTheWindowCloses) {
  PurgeBench bench;
  bench.Screen.Replies = {"01"};
  bench.Screen.After(90, [&] { bench.Press("Esc"); });
  EXPECT_EQ(bench.Wire({"F9"}), "|" + kCheck + "#z*");
  EXPECT_GT(bench.Screen.Questions.size(), 10U);
  EXPECT_FALSE(bench.Window.Visible);
}

// HALT, the key of the purge itself, and the closing of the window, each upon a command of the
// purge. What is left of the circuits is forgotten but for its own key.
TEST(Purge, EndsAsTheOperatorWantsAtEveryStage) {
  struct Case {
    const char* Command;
    std::size_t Nth;
    const char* Key;
    std::string Wire;  // behind the conditions
    bool Remembers;
  };
  const std::string valves = "#do01*#ns*#a0102*";
  const std::string watch = kStart + "#ns*#s*";
  const Case cases[] = {
      {"#do01*", 1, "HALT", "#do01*" + kEnd, false},
      {"#do01*", 1, "F9", kStart + kEnd, true},
      {"#do01*", 1, "Esc", "#do01*#z*", false},
      {"#ns*", 1, "HALT", "#do01*#ns*" + kEnd, false},
      {"#ns*", 1, "F9", kStart + kEnd, true},
      {"#ns*", 1, "Esc", "#do01*#ns*#z*", false},
      {"#a0102*", 1, "HALT", valves + kEnd, false},
      {"#a0102*", 1, "F9", kStart + kEnd, true},
      {"#a0102*", 1, "Esc", valves + "#z*", false},
      {"#f01100*", 1, "HALT", valves + "#f01100*" + kEnd, false},
      {"#f01100*", 1, "Esc", valves + "#f01100*#z*", false},
      {"#s*", 1, "HALT", kStart + kEnd, false},
      {"#s*", 1, "F9", kStart + kEnd, true},
      {"#s*", 1, "Esc", kStart + "#z*", false},
      {"#ns*", 2, "HALT", kStart + "#ns*" + kEnd, false},
      {"#ns*", 2, "Esc", kStart + "#ns*#z*", false},
      {"#s*", 2, "HALT", watch + kEnd, false},
      {"#s*", 2, "F9", watch + kEnd, true},
      {"#s*", 2, "Esc", watch + "#z*", false},
      {"#s*", 2, "close", watch + "#z*", false},
  };
  for (const Case& stage : cases) {
    SCOPED_TRACE(std::string(stage.Key) + " upon " + stage.Command);
    PurgeBench bench;
    bench.Upon(stage.Command, stage.Nth, [&] {
      if (std::string(stage.Key) == "close") {
        bench.Screen.CloseByOperator(bench.Window);
      } else {
        bench.Press(stage.Key);
      }
    });
    std::string told;
    bench.Screen.After(115, [&] {
      told = bench.Report();
      bench.Screen.Answers = {ui::Answer::Cancel};
      bench.PressUpon("#do01*", 2, "HALT");
    });
    const std::string wire = bench.Wire({"F9", "F9"});
    const std::string first = "|" + kCheck + stage.Wire;
    if (first.ends_with("#z*")) {
      EXPECT_EQ(wire, first);
    } else {
      EXPECT_EQ(wire, first + "|" + (stage.Remembers ? "#do01*#l02*#g0304*#dc01*" : "#z*"));
      EXPECT_TRUE(told.ends_with(stage.Remembers ? kAgain : kEnded)) << told;
    }
  }
}

// Nothing comes between the commands that switch off; what the operator did meanwhile comes then.
TEST(Purge, IsNotDisturbedWhileItSwitchesOff) {
  for (const char* key : {"HALT", "Esc"}) {
    SCOPED_TRACE(key);
    PurgeBench bench;
    bench.PressUpon("#s*", 1, "F9");
    bench.PressUpon("#l01*", 1, key);
    bench.Screen.After(115, [&] { bench.Screen.Answers = {ui::Answer::Cancel}; });
    const std::string first = "|" + kCheck + kStart + kEnd;
    EXPECT_EQ(bench.Wire({"F9", "F9"}), first + (key == std::string("Esc") ? "#z*" : "|#z*"));
  }
}

TEST(Purge, TakesNoMoreCircuitsAtATimeThanTheMachineBears) {
  struct Case {
    const char* Circuits;
    const char* Motors;  // of the circuits 01 to 05
    int MaxValves;
    const char* Label;
    int MonoLimit;
    const char* Valves;  // "": nothing is opened
  };
  constexpr const char* kApart = "02,02,03,03,04,";
  const Case cases[] = {
      {"0102030405", kApart, 64, "DEMO", 1, "#a0102030405*"},
      {"0102030405", kApart, 4, "DEMO", 1, "#a01020304*"},
      {"0102030405", kApart, 4, "Perlia Pompe MONO", 3, "#a010203*"},
      {"0102030405", kApart, 2, "PERLIA POMPE MONO", 3, "#a0102*"},
      {"0102030405", kApart, 4, "PERLIA POMPE MONO", 0, ""},
      {"0102030405", kApart, 0, "DEMO", 1, ""},
      {"05", kApart, 4, "DEMO", 1, "#a05*"},
      {"010203", "01,01,02,02,02,", 3, "DEMO", 1, "#a0102*"},
      {"010203", "02,01,01,02,02,", 3, "DEMO", 1, "#a0102*"},
      {"010203", "02,02,01,02,02,", 3, "PERLIA POMPE MONO", 1, "#a01*"},
      {"010203", "01,01,01,02,02,", 3, "PERLIA POMPE MONO", 1, "#a010203*"},
  };
  for (const Case& batch : cases) {
    SCOPED_TRACE(std::string(batch.Circuits) + " of " + batch.Motors);
    PurgeBench bench;
    bench.Facts.CircuitMotorList = batch.Motors;
    bench.Facts.MaxValves = batch.MaxValves;
    bench.Facts.MachineLabel = batch.Label;
    bench.Facts.MonoPurgeLimit = batch.MonoLimit;
    bench.Screen.Replies = {batch.Circuits, "1", "2", "3"};
    bench.PressUpon("#s*", 1, "HALT");
    const std::string wire = bench.Wire({"F9"});
    if (*batch.Valves == '\0') {
      EXPECT_EQ(wire, "|" + kCheck);
      EXPECT_TRUE(bench.Told(kErrors) && bench.Told(kErrorsEnding)) << bench.Report();
    } else {
      EXPECT_NE(wire.find(batch.Valves), std::string::npos) << wire;
    }
  }
}

// Several caps are opened one by one, but the answer of one is never that of all.
TEST(Purge, OpensSeveralCapsAndTakesThemForFailed) {
  PurgeBench bench;
  bench.Facts.CircuitCapList = "01,02,03,01,01,";
  bench.Facts.MaxValves = 3;
  bench.Screen.Replies = {"010203", "100", "200"};
  bench.Facts.CircuitMotorList = "02,02,02,02,02,";
  EXPECT_EQ(bench.Wire({"F9"}),
            "|" + kCheck + "#do01*#do02*#do03*#l02*#g010203*#dc01*#dc02*#dc03*");
  EXPECT_TRUE(bench.Told(kErrors) && bench.Told(kErrorsEnding)) << bench.Report();

  PurgeBench capless;
  capless.Facts.CapCount = 0;
  capless.Tell("cap 1 open");
  capless.PressUpon("#s*", 1, "F9");
  EXPECT_EQ(capless.Wire({"F9"}), "|" + kCheck + "#ns*#a0102*#f01100*#s*#l01*#g0102*");
}

using commands::EchoCheck;

// Each answer is awaited in full, and for five seconds.
TEST(Purge, JudgesTheWholeAnswer) {
  struct Case {
    const char* Expected;
    const char* Answer;
    double Each;  // seconds before each character
    EchoCheck Result;
    double Took;
  };
  const Case cases[] = {
      {"A01", "A01", 0.1, EchoCheck::AsExpected, 0.3},
      {"a01k", "A01K", 0.1, EchoCheck::AsExpected, 0.4},
      {"A01", "A02", 0.1, EchoCheck::Other, 0.3},
      {"A01", "A0", 0.1, EchoCheck::None, 5.0},
      {"A01", "", 0.1, EchoCheck::None, 5.0},
      {"A01", "A01", 1.6, EchoCheck::AsExpected, 4.8},
      {"A01", "A0", 2.4, EchoCheck::None, 5.0},
      {"A**K", "AXYK", 0.1, EchoCheck::AsExpected, 0.4},
      {"A**K", "AXYN", 0.1, EchoCheck::Other, 0.4},
      {"A*", "AXY", 0, EchoCheck::Other, 0},
      {"A01", "A011", 0, EchoCheck::Other, 0},
  };
  for (const Case& answer : cases) {
    SCOPED_TRACE(std::string(answer.Expected) + " " + answer.Answer);
    CommBench bench;
    bench.Load(commands::kMaintenanceMenu);
    commands::ElementSender sender(bench.Window);
    if (answer.Each == 0) {
      bench.Port.Reply(answer.Answer);
    } else {
      bench.Port.Trickle(answer.Answer, answer.Each);
    }
    EXPECT_TRUE(sender.GetDoubleAnswer(answer.Expected) == answer.Result);
    EXPECT_NEAR(bench.Clock.Now(), answer.Took, 0.02);
  }
}

TEST(Purge, MapsLists) {
  const auto map = [](const char* list, bool unique) {
    return commands::MapList(list, "01,02,03,", "07,08,07,", 2, unique);
  };
  EXPECT_EQ(map("", true), "");
  EXPECT_EQ(map("010203", true), "0708");
  EXPECT_EQ(map("030201", false), "070807");
  EXPECT_EQ(map("99010", false), "07");
  EXPECT_EQ(commands::MapList("0201", "01,02", "010,020", 2, false), "020010");
}

}  // namespace

}  // namespace tintbench::testing
