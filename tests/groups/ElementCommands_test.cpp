// Each command of the group monitor with each kind of answer, the valve's watch, and the leaving.
#include <gtest/gtest.h>

#include "groups/GroupBench.h"

namespace tintbench::testing {

using groups::ElementState;

namespace {

struct Outcome {
  const char* Faults;
  bool Good;
};

struct Command {
  groups::Element Which;
  bool On;
  const char* Sent;
  const char* Answer;
  const char* Line;
  const char* Description;
};

constexpr Command kGroupCommands[] = {
    {groups::kCap, true, "#do02*", "A02K", "CAP_OPEN", "Cap open"},
    {groups::kStirring, true, "#b05*", "A05", "STIRRING_ON", "Stirring action(s) enable"},
    {groups::kMotor, true, "#f10400*", "A10", "MOTOR_ON", "Motor ON"},
};

// The answer spoilt in one way, and what that is called.
std::string Spoilt(const Command& command, int way, std::string& faults) {
  std::string answer = command.Answer;
  faults.clear();
  if (way == 1) answer[0] = 'R', faults = "[command refused]";
  if (way == 2) answer[0] = 'E', faults = "[error]";
  if (way == 3) answer[2] = '9', faults = "(unknown answer)";
  if (way == 4) answer += '?', faults = "[incorrect answer length]";
  if (way == 4 && command.Which == groups::kCap) faults += "[ operation fail ]";
  if (way == 5) answer = "", faults = "[incorrect answer length][unknown return code]";
  return answer;
}

}  // namespace

TEST(ElementCommands, JudgeEachAnswer) {
  for (const Command& command : kGroupCommands) {
    for (int way = 0; way <= 5; ++way) {
      GroupBench bench;
      bench.Open();
      std::string faults;
      bench.Port.Expect(command.Sent).Reply(Spoilt(command, way, faults));
      const auto boxes = bench.Window.SwitchOf(command.Which);
      bench.Press(boxes.On);
      const bool good = faults.empty();
      SCOPED_TRACE(std::string(command.Sent) + " " + std::to_string(way));
      EXPECT_EQ(bench.Window.StateOf(command.Which),
                good ? ElementState::On : ElementState::Unknown);
      EXPECT_EQ(boxes.Off.Enabled, true);
      EXPECT_EQ(boxes.Id.BackColor, good ? groups::kOnColour : groups::kOffColour);
      EXPECT_EQ(bench.Window.StatusBar1.Text.Get(),
                good ? "" : faults + ". ERRORS: " + command.Description);
      EXPECT_EQ(bench.Record.Lines.back(), command.Line);
      EXPECT_TRUE(bench.Window.FrmCmd.Enabled);
      bench.Port.Finish();
    }
  }
}

TEST(ElementCommands, ACapOfThreePositionsGoesHalfWay) {
  GroupBench bench;
  bench.Facts.CapThreePositionList = "02,";
  bench.Open();
  bench.Port.Expect("#dm02*").Reply("A02K").Expect("#dc02*").Reply("A02K");
  bench.Press(bench.Window.ChkCapOn);
  bench.Press(bench.Window.ChkCapOff);
  EXPECT_EQ(bench.Window.StateOf(groups::kCap), ElementState::Off);
}

TEST(ElementCommands, TheMotorTakesASpeedOfThreeDigits) {
  struct Case {
    const char* Speed;
    const char* Sent;
  };
  for (const Case& row :
       {Case{" 7 ", "#f10007*"}, Case{"999", "#f10999*"}, Case{"0", ""}, Case{"1000", ""},
        Case{"", ""}, Case{"12x", ""}, Case{"-5", ""}, Case{"7.5", ""}}) {
    GroupBench bench;
    bench.Open();
    bench.Window.TxtMotorSpeed.Text = row.Speed;
    const bool sent = *row.Sent != '\0';
    if (sent) bench.Port.Expect(row.Sent).Reply("A10");
    bench.Press(bench.Window.ChkMotorOn);
    EXPECT_EQ(bench.Window.StateOf(groups::kMotor), sent ? ElementState::On : ElementState::Off);
    EXPECT_EQ(bench.Window.TxtMotorSpeed.Locked, sent);
    EXPECT_EQ(bench.Screen.Boxes.size(), sent ? 0U : 1U) << row.Speed;
  }
}

TEST(ElementCommands, AnXFunctionThatIsRefusedStaysAsItWas) {
  GroupBench bench;
  bench.Open();
  bench.Port.Expect("#ix07010*").Reply("A").Expect("#ix07011*").Reply("R");
  bench.Press(bench.Window.ChkIdiXOff(0));
  EXPECT_EQ(bench.Window.ChkIdiXOff(0).Value, ui::kChecked);
  bench.Press(bench.Window.ChkIdiXOff(0));
  EXPECT_EQ(bench.Window.ChkIdiXOff(0).Value, ui::kChecked);
  EXPECT_EQ(bench.Record.Lines, (std::vector<std::string>{"IDI1_X0", "IDI1_X1"}));
}

// A valve that didn't answer to its opening may be open all the same.
TEST(ElementCommands, AValveIsWatchedEvenIfItsOpeningFailed) {
  GroupBench bench;
  bench.Open();
  bench.Port.Expect("#ns*").Reply("AK").Expect("#a03*").Reply("R").Wait(5);
  bench.Port.Expect("#ns*").Reply("AN").Expect("#g03*").Reply("A03").Expect("#g03*").Reply("A03");
  bench.Press(bench.Window.ChkValveOn);
  EXPECT_EQ(bench.Window.StateOf(groups::kValve), ElementState::Unknown);
  bench.Screen.Pass(12);
  EXPECT_EQ(bench.Window.StateOf(groups::kValve), ElementState::Off);
  EXPECT_EQ(bench.Screen.Boxes.size(), 1U);
  EXPECT_FALSE(bench.Window.Timer2.Enabled);
}

TEST(ElementCommands, LeavingPutsOffInOrderAndTellsWhatFails) {
  GroupBench bench;
  bench.Open();
  bench.Port.Expect("#f10400*").Reply("A10").Expect("#b05*").Reply("A05");
  bench.Port.Expect("#ns*").Reply("AK").Expect("#a03*").Reply("A03");
  for (ui::CheckBox* box :
       {&bench.Window.ChkMotorOn, &bench.Window.ChkStirringOn, &bench.Window.ChkValveOn}) {
    bench.Press(*box);
  }
  bench.Port.Expect("#g03*").Reply("R").Expect("#m05*").Reply("A05").Expect("#l10*").Reply("E");
  EXPECT_TRUE(bench.Close());
  EXPECT_EQ(bench.Screen.Boxes.at(0).Text,
            "ATTENTION!\r\nErrors while trying to put the following elements OFF:\r\n"
            "Valve, Motor");
  EXPECT_EQ(bench.On.Text(), "electrovalve 03, motor 10");
}

// A close that comes while a command is on its way waits for it, and opens no valve.
TEST(ElementCommands, AWindowThatIsToCloseOpensNoValve) {
  GroupBench bench;
  bench.Open();
  bench.Screen.After(0, [&] { EXPECT_FALSE(bench.Screen.CloseByOperator(bench.Window)); });
  bench.Screen.After(100, [] {});
  bench.Port.Expect("#ns*").Reply("AK");
  bench.Window.ChkValveOn.Press();
  EXPECT_EQ(bench.Window.StateOf(groups::kValve), ElementState::Off);
  bench.Screen.Pass(1);
  EXPECT_FALSE(bench.Window.Visible);
}

}  // namespace tintbench::testing
