// The answers of inputs in words, and the enquiry's round on the line and in the recording.
#include <gtest/gtest.h>

#include "groups/GroupBench.h"

namespace tintbench::testing {

using groups::CheckSensorAnswer;

TEST(SensorAnswer, IsToldInWords) {
  struct Case {
    const char* Answer;
    const char* Digital;
    const char* Analogue;
    const char* Faults;
  };
  for (const Case& row :
       {Case{"A200000001", "1", "", ""}, Case{"A200000002", "0", "", ""},
        Case{"A000000000", "[-]", "[-]", "(sensor NOT configured)"},
        Case{"A100000000", "[X]", "[X]", "(sensor configured but NOT connected)"},
        Case{"A900000000", "[?]", "[?]", "(unknown answer)"},
        Case{"R200000001", "[1]", "[?]", "[command refused]"},
        Case{"E200000000", "[0]", "[?]", "[group error]"},
        Case{"X900000000", "[?]", "[?]", "[unknown answer](unknown answer)"},
        Case{"A2", "[0]", "[?]", "[incorrect answer length]"},
        Case{"", "[?]", "[?]", "[incorrect answer length][unknown answer](unknown answer)"}}) {
    const auto digital = CheckSensorAnswer(config::kDigitalInput, row.Answer);
    const auto analogue = CheckSensorAnswer(config::kAnalogueInput, row.Answer);
    EXPECT_EQ(groups::DigitalStatusText(digital), row.Digital) << row.Answer;
    EXPECT_EQ(groups::AnalogueStatusText(analogue, true), row.Analogue) << row.Answer;
    EXPECT_EQ(analogue.Faults, row.Faults) << row.Answer;
    EXPECT_EQ(groups::AnalogueReading(analogue).has_value(), analogue.Faults.empty());
  }
}

TEST(SensorAnswer, ReadsSignedTenths) {
  const auto reading = [](const char* answer) {
    return groups::AnalogueReading(CheckSensorAnswer(config::kAnalogueInput, answer));
  };
  EXPECT_EQ(reading("A20000000F"), 1.5);
  EXPECT_EQ(reading("A2FFFFFFF6"), -1.0);
  EXPECT_EQ(reading("A280000000"), -214748364.8);
  EXPECT_FALSE(reading("A20000?000"));
}

// Two digital and two analogue inputs, one of these beyond its scale; the stop comes in the pause
// behind the last.
TEST(EnquiryCycle, AsksInOrderAndRecords) {
  GroupBench bench;
  bench.Open();
  bench.Port.Expect("#ig07031*").Reply("A200000001").Wait(0.28);
  bench.Port.Expect("#ig07038*").Reply("a1").Reply("00000000").Wait(0.28);
  bench.Port.Expect("#ig07101*").Reply("A200000037").Wait(0.28);
  bench.Port.Expect("#ig07104*").Reply("A200000400");
  bench.Screen.After(2.3, [&] { bench.Window.ChkStopEnquire.Press(); });
  bench.Window.ChkEnquire.Press();
  EXPECT_EQ(
      bench.Record.Lines,
      (std::vector<std::string>{"ENQ_TIME = 300", "ENQ_ON", "IDI1_ENQ: sensor_value[ 1 ]",
                                "IDI2_ENQ: sensor_value[ [X] ]", "IAN1_ENQ: sensor_value[ 5.5 ]",
                                "IAN4_ENQ: sensor_value[ 102.4 ]", "ENQ_OFF"}));
  EXPECT_EQ(bench.Window.LblIanStatus(0).Caption.Get(), "");
  EXPECT_EQ(bench.Window.LblIanStatus(3).Caption.Get(), "!");
  EXPECT_EQ(bench.Window.LblCurr(3).Caption.Get(), " 102.4");
  EXPECT_TRUE(bench.Window.ChkEnquire.Enabled);
  EXPECT_FALSE(bench.Window.TxtEnqTime.Locked);
}

TEST(EnquiryCycle, RefusesWhatItCannotDo) {
  struct Case {
    const char* Delay;
    bool Inputs;
    const char* Box;
  };
  for (const Case& row :
       {Case{"0", true, "Delay time"}, Case{"3600001", true, "Delay time"},
        Case{"x", true, "Delay time"}, Case{"300", false, "No input sensor is enabled!"}}) {
    GroupBench bench;
    bench.Open();
    bench.Window.TxtEnqTime.Text = row.Delay;
    for (int input = 0; !row.Inputs && input < 4; ++input) {
      bench.Press(bench.Window.ChkIanOff(input));
      bench.Press(bench.Window.ChkIdiOff(input));
    }
    bench.Record.Lines.clear();
    bench.Press(bench.Window.ChkEnquire);
    EXPECT_TRUE(bench.Screen.Boxes.at(0).Text.starts_with(row.Box)) << row.Delay;
    EXPECT_EQ(bench.Record.Lines.back(), "ENQ_OFF");
    EXPECT_EQ(bench.Record.Lines.size(), 3U);
    EXPECT_TRUE(bench.Window.ChkEnquire.Enabled);
  }
}

// The valve is watched in a pause of an hour, and the window can be closed in it.
TEST(EnquiryCycle, AnHoursPauseHoldsNothingUp) {
  GroupBench bench;
  bench.Facts.GroupInputs[config::kDigitalInput][7] = "31,0,,,,,,|";
  bench.Facts.GroupInputs[config::kAnalogueInput][7] = "";
  bench.Open();
  bench.Port.Expect("#ns*").Reply("AK").Expect("#a03*").Reply("A03");
  bench.Press(bench.Window.ChkValveOn);
  bench.Window.TxtEnqTime.Text = "3600000";
  bench.Port.Expect("#ig07031*").Reply("A200000000").Wait(2).Expect("#ns*").Reply("AK");
  bench.Port.Wait(2.5).Expect("#ns*").Reply("AN").Expect("#g03*").Reply("A03");
  bench.Port.Expect("#g03*").Reply("A03");
  bench.Screen.After(60, [&] { bench.Screen.CloseByOperator(bench.Window); });
  bench.Window.ChkEnquire.Press();
  EXPECT_LT(bench.Clock.Now(), 61);
  EXPECT_TRUE(bench.Window.Visible);
  bench.Screen.Pass(1);
  EXPECT_FALSE(bench.Window.Visible);
}

}  // namespace tintbench::testing
