// Counts on the line: every type received, saved and sent, one by one and all at once, with good
// answers and bad ones, and stopped at each place.
#include <gtest/gtest.h>

#include "stats/StatBench.h"

namespace tintbench::testing {
namespace {

using Texts = std::vector<std::string>;

const std::string kTime = "0000012345";
const std::string kEvents = "0000000007";
const std::string kZeros = "0000000000";

std::string ReadAnswer(const StatItem& item) {
  return HasElement(item) ? std::string("A") + (item.Wire + 1) + kTime + kEvents : "A" + kTime;
}
std::string FileLine(const StatItem& item) {
  return item.Key + ("," + kTime + "," + (HasElement(item) ? kEvents : kZeros));
}

class StatExchange : public ::testing::Test, protected StatBench {};

TEST_F(StatExchange, ReceivesSavesAndSendsOneOfEachType) {
  Load();
  for (const StatItem& item : kStatItems) {
    SCOPED_TRACE(item.Item);
    Pick(item);
    const std::string wire = item.Wire;
    Port.Expect("#kr" + wire + "*").Reply(ReadAnswer(item));
    Window.CmdLRec.Press();
    EXPECT_EQ(Boxes(), (Texts{"Data correctly received !!"}));
    EXPECT_EQ(Lines(kLast).back(), FileLine(item));
    const bool time = item.Tab <= 5;
    const bool events = item.Tab != 5;
    const std::string shownEvents = HasElement(item) ? "7" : "0";
    EXPECT_EQ(Window.LblLData(0).Caption.Get(), time ? "12345" : "");
    EXPECT_EQ(Window.LblLData(1).Caption.Get(), events ? shownEvents : "");
    EXPECT_EQ(Window.LblLData(0).ToolTipText.Get().substr(0, 11), time ? "3 [ hours ]" : "");

    if (item.Key == std::string("MOTOR_1")) Screen.Paths = {"mine.sds"};
    Screen.Answers = {ui::Answer::Yes};
    Window.CmdLSave.Press();
    EXPECT_EQ(Boxes(), (Texts{"CONTINUE ?"}));
    EXPECT_EQ(Lines(kSaved).back(), FileLine(item));

    std::string sent = "#kt" + wire;
    if (time) sent += kTime;
    if (events) sent += HasElement(item) ? kEvents : kZeros;
    Port.Expect(sent + "*").Reply("A").Expect("#km*").Reply("A");
    Screen.Answers = {ui::Answer::Yes};
    Window.CmdSend(item.Tab % 2).Press();
    EXPECT_EQ(Boxes(), (Texts{"WARNING !!\r\n\r\nData will be sent to machine !!\r\n\r\nCONTINUE ?",
                              "Data correctly sent !!"}));
  }
  EXPECT_EQ(Files.Get(kLast).substr(0, 50), "MOTOR_1,0000012345,0000000007,2026.3.7.9.5.12\r\nMOT");
}

TEST_F(StatExchange, TellsWhatWentWrongWithOne) {
  const Texts badReceiving{"Data Transfer Interrupted !!\r\nError in receiving data !!"};
  Load();
  for (const char* answer : {"N", ""}) {
    Port.Expect("#krM01*").Reply(answer);
    Window.CmdLRec.Press();
    EXPECT_EQ(Boxes(), badReceiving);
    EXPECT_FALSE(Files.FileExists(kLast));
  }
  // A short answer has zeros behind it, and no character makes another line or field.
  Port.Expect("#krM01*").Reply("A0100,\r%0345");
  Window.CmdLRec.Press();
  EXPECT_EQ(Lines(kLast).back(), "MOTOR_1,00???03450,0000000000");
  // What is there is overwritten only if the operator wants it, and a reset on screen stays.
  Boxes();
  Window.CmdRes(0).Press();
  Screen.Answers = {ui::Answer::No};
  Window.CmdLRec.Press();
  EXPECT_EQ(Boxes(), (Texts{"WARNING !!\r\n\r\nData received will overwrite current data "
                            "!!\r\n\r\nCONTINUE ?"}));
  EXPECT_EQ(Window.LblLData(0).Caption.Get(), "0");
  EXPECT_TRUE(Window.CmdLRec.Visible);
  const std::string sent = "#ktM01" + kZeros + kZeros + "*";
  const struct {
    Texts Answers;
    const char* Told;
  } sendings[] = {
      {{"N"}, "Data Transfer Interrupted !!\r\nError in sending data !!"},
      {{""}, "Data Transfer Interrupted !!\r\nError in sending data !!"},
      {{"A", "N"}, "Data not stored in flash memory !!"},
      {{"A", ""}, "Data not stored in flash memory !!"},
  };
  for (const auto& sending : sendings) {
    Port.Expect(sent).Reply(sending.Answers[0]);
    if (sending.Answers.size() > 1) Port.Expect("#km*").Reply(sending.Answers[1]);
    Screen.Answers = {ui::Answer::Yes};
    Window.CmdSend(0).Press();
    EXPECT_EQ(Boxes().back(), sending.Told);
  }
  // A number that doesn't fit isn't cut to one that does.
  Files.Put(kLast, "MOTOR_1,123456789012,-5\r\n");
  Screen.Unload(Window);
  Load();
  Window.CmdSend(0).Press();
  EXPECT_EQ(Boxes(), (Texts{"A value is no number of ten digits: nothing is sent."}));
}

TEST(StatRows, FollowTheCatalogueAndTheFirmware) {
  stats::StatCatalogue::Rows rows = stats::StatCatalogue::AllRows();
  rows.erase("C,K");
  rows["B,K"] = "4";
  const stats::StatCatalogue catalogue(rows);
  const struct {
    int Tab;
    std::optional<link::CommandId> Read;
    std::optional<link::CommandId> ReadType;
    std::optional<link::CommandId> Write;
  } cases[] = {{0, link::CommandId{43}, link::CommandId{46}, link::CommandId{44}},
               {5, link::CommandId{45}, link::CommandId{45}, link::CommandId{47}},
               {1, {}, {}, {}},
               {2, {}, {}, {}}};
  for (const auto& one : cases) {
    EXPECT_EQ(stats::ReadRowOfTab(catalogue, one.Tab, false), one.Read);
    EXPECT_EQ(stats::ReadRowOfTab(catalogue, one.Tab, true), one.ReadType);
    EXPECT_EQ(stats::WriteRowOfTab(catalogue, one.Tab), one.Write);
  }
  for (const auto& [firmware, fast] :
       {std::pair("-1", false), std::pair("30", false), std::pair("30.1", true)}) {
    EXPECT_EQ(stats::ReadsFast({.FirmwareVersion = firmware}), fast) << firmware;
  }
}

class BulkExchange : public StatExchange {
 protected:
  static constexpr int kAction[] = {1, 2, 3};
  static constexpr int kItems = 11;

  // Opens the panel for CmdAll(action) and presses START, with Yes to the question.
  void Start(int action, const std::string& path) {
    if (!path.empty()) Screen.Paths = {path};
    Window.CmdAll(action).Press();
    Screen.Answers = {ui::Answer::Yes};
    Window.CmdRSAll(0).Press();
  }
  void Return() {
    Window.CmdRSAll(2).Press();
    EXPECT_FALSE(Window.FrmRSAll.Visible);
  }
  // "good/failed of total", with what the bar and the counter show.
  std::string Counts() const {
    EXPECT_EQ(Window.LblCurr.Caption.Get(), std::to_string(Window.PrgRSAll.Value.Get()));
    EXPECT_EQ(Window.LblSucc.Caption.Get(), std::to_string(Window.CmbSucc.ListCount()));
    return Window.LblSucc.Caption.Get() + "/" + Window.LblFail.Caption.Get() + " of " +
           Window.LblTot.Caption.Get();
  }
  std::string WholeFile() const {
    std::string text = "% all\r\nFOO_1,1,1,x\r\n";
    for (const StatItem& item : kStatItems) text += FileLine(item) + ",2026.1.1.0.0.0\r\n";
    return text;
  }
  // What goes over the line for the items up to `count`, the one numbered `bad` answered badly.
  void Script(int action, int count, int bad, const std::string& badAnswer) {
    for (int number = 0; number < count; ++number) {
      const StatItem& item = kStatItems[number];
      const std::string wire = item.Wire;
      const std::string values =
          action == 3 ? kZeros + kZeros : kTime + (HasElement(item) ? kEvents : kZeros);
      Port.Expect(action == 1 ? "#kr" + wire + "*" : "#kt" + wire + values + "*");
      const std::string good = action == 1 ? ReadAnswer(item) : "A";
      Port.Reply(number == bad ? badAnswer : good);
    }
    if (action == 2) Port.Expect("#km*").Reply("A");
  }
};

TEST_F(BulkExchange, CountsEachItemGoodOrBad) {
  const char* questions[] = {
      "WARNING !!\r\n\r\nStatistical data will be stored on file\r\n<mine.sds> !!\r\n\r\nCONTINUE "
      "?",
      "WARNING !!\r\n\r\nStatistical data file\r\n<mine.sds>\r\nwill be sent to the machine "
      "!!\r\n\r\nCONTINUE ?",
      "WARNING !!\r\n\r\nAll data on the machine will be RESET !!\r\n\r\nCONTINUE ?"};
  const char* captions[] = {"[ RECEIVE ALL DATA ] save to file: mine.sds",
                            "[ SEND ALL DATA ] from file: mine.sds",
                            "[ RESET ALL DATA ] on the machine"};
  Load();
  for (const int action : kAction) {
    for (int bad = -1; bad < kItems; ++bad) {
      for (const char* answer : {"N", "", "E1103123456789012345678", "x"}) {
        SCOPED_TRACE(std::to_string(action) + " bad " + std::to_string(bad) + " " + answer);
        Files.Put(kSaved, WholeFile());
        Script(action, kItems, bad, answer);
        Start(action, action == 3 ? "" : "mine.sds");
        EXPECT_EQ(Boxes(), (Texts{questions[action - 1]}));
        EXPECT_EQ(Window.FrmTabStripStat.Caption.Get(), captions[action - 1]);
        EXPECT_EQ(Counts(), bad < 0 ? "11/0 of 11" : "10/1 of 11");
        if (bad >= 0) {
          EXPECT_EQ(Window.CmbFail.SelectedText(), kStatItems[bad].Item);
        }
        Texts lines;
        for (int number = 0; number < kItems; ++number) {
          const StatItem& item = kStatItems[number];
          lines.push_back(number == bad ? item.Key + ("," + kZeros + "," + kZeros)
                                        : FileLine(item));
        }
        if (action == 1) {
          EXPECT_EQ(Lines(kSaved), lines);
        }
        Return();
        if (bad < 0) break;
      }
    }
  }
}

TEST_F(BulkExchange, StopsAtEachPlace) {
  Load();
  for (const int action : kAction) {
    for (int place = 1; place <= kItems; ++place) {
      SCOPED_TRACE(std::to_string(action) + " at " + std::to_string(place));
      Files.Put(kSaved, WholeFile());
      for (int number = 1; number <= place; ++number) {
        Port.Expect("#k").Expect(action == 1 ? "r" : "t");
        const StatItem& item = kStatItems[number - 1];
        const std::string wire = item.Wire;
        Port.Expect(wire + (action == 1   ? "*"
                            : action == 3 ? kZeros + kZeros + "*"
                                          : kTime + (HasElement(item) ? kEvents : kZeros) + "*"));
        // A window that is busy stays, and the other buttons wait.
        if (number == place) {
          Port.Do([this] {
            EXPECT_FALSE(Screen.CloseByOperator(Window));
            Window.CmdRSAll(2).Press();
            Window.CmdRSAll(0).Press();
            Window.CmdRSAll(1).Press();
          });
        }
        Port.Reply(action == 1 ? ReadAnswer(item) : "A");
      }
      if (action == 2) Port.Expect("#km*").Reply("A");
      Start(action, action == 3 ? "" : "mine.sds");
      EXPECT_EQ(Boxes().back(), "Procedure interrupted by user !!");
      EXPECT_EQ(Counts(), std::to_string(place) + "/0 of 11");
      if (action == 1) {
        EXPECT_EQ(Lines(kSaved).size(), static_cast<std::size_t>(place));
      }
      Return();
    }
  }
}

// With the new firmware a type comes at once; what is announced and doesn't come is left out.
TEST_F(BulkExchange, ReadsTypesAtOnce) {
  const std::string record01 = "01" + kTime + kEvents;
  const std::string record12 = "12" + kTime + kEvents;
  const std::string line = "," + kTime + "," + kEvents;
  const struct {
    std::string Answer;
    const char* Counted;
    Texts Motors;
  } cases[] = {
      {"A02" + record01 + record12, "10/0 of 10", {"MOTOR_1" + line, "MOTOR_2" + line}},
      {"A01" + record01 + record12, "10/0 of 10", {"MOTOR_1" + line}},
      {"A03" + record01 + record12, "10/0 of 10", {"MOTOR_1" + line, "MOTOR_2" + line}},
      {"A02" + record01 + record12.substr(0, 21), "10/0 of 10", {"MOTOR_1" + line}},
      {"Axx" + record01, "10/0 of 10", {}},
      {"A00", "10/0 of 10", {}},
      {"A", "10/0 of 10", {}},
      {"N", "9/1 of 10", {}},
      {"", "9/1 of 10", {}},
  };
  Status.FirmwareVersion = "30.1";
  Load();
  for (const auto& one : cases) {
    SCOPED_TRACE(one.Answer);
    Port.Expect("#kvM*").Reply(one.Answer);
    for (const char* type : {"C", "B", "A", "P"})
      Port.Expect(std::string("#kv") + type + "*").Reply("A01" + record12);
    for (const char* type : {"T", "S", "F", "E", "D"})
      Port.Expect(std::string("#kr") + type + "*").Reply("A" + kTime);
    const double before = Clock.Now();
    Start(1, "");
    if (one.Motors.size() == 2 && one.Answer[2] == '2') {
      EXPECT_NEAR(Clock.Now() - before, 3.0, 0.01);
    }
    EXPECT_EQ(Boxes().front(),
              "WARNING !!\r\n\r\nStatistical data will be stored on file\r\n<Last Received Data> "
              "!!\r\n\r\nCONTINUE ?");
    EXPECT_EQ(Counts(), one.Counted);
    EXPECT_EQ(Window.LblDN1.Caption.Get(), "10");
    Texts lines = one.Motors;
    for (const char* key : {"CIRCUIT_2", "PUMP_2", "STIRRING_2", "CAP_2"})
      lines.push_back(key + line);
    for (int number = 6; number < 11; ++number) lines.push_back(FileLine(kStatItems[number]));
    EXPECT_EQ(Lines(kLast), lines);
    Return();
  }
  EXPECT_EQ(Table.Row(link::CommandId::ReadDevices).AnswerLength, 0);
}

TEST_F(BulkExchange, ATwelfthMotorHasTwoDigits) {
  Status.FirmwareVersion = "30.1";
  Facts.ElementLists = {"", "", "01,02,03,04,05,06,07,08,09,10,11,12,", ""};
  Load();
  std::string records;
  Texts lines;
  for (int motor = 1; motor <= 12; ++motor) {
    records += (motor < 10 ? "0" : "") + std::to_string(motor) + kTime + kEvents;
    lines.push_back("MOTOR_" + std::to_string(motor) + "," + kTime + "," + kEvents);
  }
  Port.Expect("#kvM*").Reply("A12" + records);
  for (const char* type : {"C", "B", "A", "P"})
    Port.Expect(std::string("#kv") + type + "*").Reply("A00");
  for (const char* type : {"T", "S", "F", "E", "D"})
    Port.Expect(std::string("#kr") + type + "*").Reply("N");
  Start(1, "");
  EXPECT_EQ(Counts(), "5/5 of 10");
  EXPECT_EQ(Lines(kLast), lines);
  EXPECT_EQ(Window.LstRemarks.ListCount(), 5);
}

TEST_F(BulkExchange, WhatCantBeDoneIsToldOnceAndLosesNothing) {
  const std::string before = WholeFile();
  Load();
  // The line is lost: the file stays as it was.
  Files.Put(kLast, before);
  Port.Expect("#krM01*").Reply(ReadAnswer(kStatItems[0])).Expect("#krM12*").Disconnect();
  Start(1, "");
  EXPECT_EQ(Boxes().size(), 2U);
  EXPECT_EQ(Files.Get(kLast), before);
  Return();
  Window.CmdRSAll(0).Press();
  // A file that can't be written is told of before the machine is asked.
  Port.PortOpen(true);
  Window.CmdAll(1).Press();
  Files.FailAt(1);
  Screen.Boxes.clear();
  Screen.Answers = {ui::Answer::Yes};
  Window.CmdRSAll(0).Press();
  EXPECT_EQ(Boxes().back().substr(0, 27), "Data not stored on file !!\r");
  EXPECT_EQ(Files.Get(kLast), before);
  Return();
  // What is no number in a file isn't sent.
  Files.Put(kSaved, "MOTOR_1,12*#z*,1,x\r\nMOTOR_x,1,1,x\r\nCAP_2,00000000123,1,x\r\nCDISP_\r\n");
  Port.Expect("#ktD*").Reply("N").Expect("#km*").Reply("N");
  Start(2, "mine.sds");
  EXPECT_EQ(Counts(), "0/4 of 4");
  EXPECT_EQ(Boxes().back(), "Data not stored in flash memory !!");
  Return();
  // Nothing to send opens no panel, and No begins nothing.
  Files.Put(kSaved, "% nothing\r\n");
  Screen.Paths = {"mine.sds"};
  Window.CmdAll(2).Press();
  EXPECT_FALSE(Window.FrmRSAll.Visible);
  Window.CmdAll(3).Press();
  Screen.Answers = {ui::Answer::No};
  Window.CmdRSAll(0).Press();
  EXPECT_EQ(Counts(), "0/0 of 11");
}

}  // namespace
}  // namespace tintbench::testing
