// The record of the self-test: taken apart wherever it is cut, and told in words.
#include <gtest/gtest.h>

#include "autotest/FormAuto.h"
#include "base/MemoryFileSystem.h"
#include "base/Text.h"
#include "link/ScriptedPort.h"
#include "ui/NotingScreen.h"

namespace tintbench::autotest {
namespace {

struct AutoBench {
  base::VirtualClock Clock;
  testing::MemoryFileSystem Files;
  testing::NotingScreen Screen{Clock};
  testing::ScriptedPort Port{Clock};
  link::CommandTable Table;
  link::DebugLog Log{Files, "/app/log"};
  link::Transaction Commands{Port, Clock, Table, Screen, Log};
  state::ErrorTable Errors;
  FormAuto Window{{.Screen = Screen, .Commands = Commands, .Log = Log, .Errors = Errors}};

  // What the list shows, parted by "|", and the box, if any.
  std::string Ask(const std::string& answer) {
    Screen.Boxes.clear();
    Port.Expect("#xa*").Reply(answer);
    Window.CmdAutotest.Press();
    std::string text;
    for (int row = 0; row < Window.LstCycles.ListCount(); ++row) {
      text += Window.LstCycles.List(row) + "|";
    }
    for (const ui::Box& box : Screen.Boxes) text += box.Text;
    return text;
  }
  std::string Numbers() const {
    return Window.LblCdone.Caption.Get() + "/" + Window.LblCtotal.Caption.Get() + " " +
           Window.LblErrInfo.Caption.Get();
  }
};

const std::string kIncomplete = "Incomplete autotest informations!";
const std::string kRefused = "Error while requesting autotest informations!";

// Cycle 1 is good, cycle 10 has two errors, cycle 255 one.
const std::string kRecord =
    "A0A140100"
    "0A0211037002"
    "FF01FFFF";

TEST(Autotest, ARecordIsReadUpToWhereItIsCut) {
  const struct {
    std::size_t Length;
    std::string List;
    const char* Numbers;
  } cases[] = {
      {1, kIncomplete, "/ "},
      {2, kIncomplete, "/ "},
      {3, kIncomplete, "10/ "},
      {4, kIncomplete, "10/ "},
      {5, "", "10/20 NO ERRORS"},
      {6, "", "10/20 NO ERRORS"},  // a single character at the end is passed over
      {7, "1 [tx err(1)]|" + kIncomplete, "10/20 "},
      {8, "1 [tx err(1)]|" + kIncomplete, "10/20 "},
      {9, "1|", "10/20 NO ERRORS"},
      {10, "1|", "10/20 NO ERRORS"},
      {11, "1|10 [tx err(1)]|" + kIncomplete, "10/20 "},
      {12, "1|10 [tx err(1)]|" + kIncomplete, "10/20 "},
      {13, "1|10 [tx err(2)]|" + kIncomplete, "10/20 "},
      {17, "1|10 [tx err(2)]|" + kIncomplete, "10/20 "},
      {20, "1|10 [tx err(2)]|" + kIncomplete, "10/20 "},
      {21, "1|10 [errors]|", "10/20 ERRORS"},
      {22, "1|10 [errors]|", "10/20 ERRORS"},
      {23, "1|10 [errors]|255 [tx err(1)]|" + kIncomplete, "10/20 "},
      {25, "1|10 [errors]|255 [tx err(2)]|" + kIncomplete, "10/20 "},
      {28, "1|10 [errors]|255 [tx err(2)]|" + kIncomplete, "10/20 "},
      {29, "1|10 [errors]|255 [errors]|", "10/20 ERRORS"},
  };
  AutoBench bench;
  for (const auto& one : cases) {
    SCOPED_TRACE(one.Length);
    EXPECT_EQ(bench.Ask(base::ToLower(kRecord.substr(0, one.Length))), one.List);
    EXPECT_EQ(bench.Numbers(), one.Numbers);
    EXPECT_EQ(bench.Window.LstCycles.ListIndex, one.List.find('|') < one.List.size() ? 0 : -1);
  }
}

TEST(Autotest, ACycleIsToldInWords) {
  AutoBench bench;
  bench.Ask(kRecord.substr(0, 25));
  const struct {
    const char* Cycle;
    const char* Count;
    const char* Text;
    CycleKind Kind;
  } cycles[] = {
      {"1", "0", "", kGoodCycle},
      {"10 [errors]", "2", "1103 Encoder damaged on motor-pump unit [ 3 ] \r\n7002 CPU error\r\n",
       kCycleWithErrors},
      {"255 [tx err(2)]", "-2", "Transmission buffer length error", kBrokenCycle},
  };
  int row = 0;
  for (const auto& cycle : cycles) {
    bench.Window.LstCycles.PressRow(row);
    EXPECT_EQ(bench.Window.LblCycles.Caption.Get(), cycle.Cycle);
    EXPECT_EQ(bench.Window.LblErrors.Caption.Get(), cycle.Count);
    EXPECT_EQ(bench.Window.ErText1.Text.Get(), cycle.Text);
    EXPECT_EQ(bench.Window.LstCycles.ItemData(row++), cycle.Kind);
  }
  EXPECT_EQ(ParseAutotest(kRecord).Cycles[0].Value, "0, ,");
  EXPECT_EQ(ParseAutotest(kRecord).Cycles[1].Value, "2,11037002,");
}

TEST(Autotest, ARefusalLeavesNothingOfTheLastRecord) {
  AutoBench bench;
  for (const char* answer : {"N", ""}) {
    bench.Ask(kRecord);
    EXPECT_EQ(bench.Ask(answer), kRefused);
    EXPECT_EQ(bench.Numbers(), "/ ");
    EXPECT_EQ(bench.Window.LblErrors.Caption.Get() + bench.Window.ErText1.Text.Get(), "");
  }
}

}  // namespace
}  // namespace tintbench::autotest
