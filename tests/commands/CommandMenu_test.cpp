// The Command Menu on a scripted line: every row of the command table with a good answer, a refusal
// and silence, what is asked for its argument, and the lists.
#include <gtest/gtest.h>

#include "base/Numbers.h"
#include "base/Text.h"
#include "commands/CommBench.h"

namespace tintbench::testing {

namespace {

const std::string kAccepted = "[ command accepted ]";
const std::string kRefused = "[ command refused ]";
const std::string kInvalid = "[ INVALID DATA ]";

class CommandMenu : public ::testing::Test, protected CommBench {
 protected:
  CommandMenu() { Load(); }

  void Pick(int row) {
    const int group = row < 12 ? 0 : row < 37 ? 1 : row < 49 ? 2 : 3;
    const int firstRows[] = {0, 12, 37, 49};
    Window.CmbCtype.PressRow(group);
    ui::ListBox& list = Window.LstCsingle(group);
    list.SetFocus();
    list.PressRow(row - firstRows[group]);
  }
  void Execute() {
    Window.CmdExec.SetFocus();
    Window.CmdExec.Press();
  }
  // Sends a row; the machine gives `answer`, or nothing.
  void Execute(int row, const std::string& wire, const std::string& answer,
               std::deque<std::string> replies = {}) {
    Port.Expect(wire).Reply(answer);
    Screen.Replies = std::move(replies);
    Pick(row);
    Execute();
  }
  std::string Text(int box) const { return Window.TxtIO(box).Text; }
  std::string Report() const { return Window.TextOutput.Text; }
  // The panels on show by number, and "R" for the report's frame.
  std::string Shown() {
    std::string shown;
    for (int panel = 0; panel < state::kPanels; ++panel) {
      EXPECT_EQ(Window.Panels.Frame(panel).Visible.Get(), Window.LblTitle(panel).Visible.Get());
      if (Window.Panels.Frame(panel).Visible) shown += std::to_string(panel);
    }
    return shown + (Window.FrameOutput.Visible ? "R" : "");
  }
};

// How a row's answer is judged.
enum class Kind {
  Plain,     // by its first character
  Worked,    // and by a "K" that tells whether the operation worked
  NoReport,  // as Worked, without a report
  Panels,    // by its first character, and shown in sensor panels
  Custom,    // not at all
};

struct RowCase {
  Kind Judged;
  const char* Views;
  const char* Wrong;     // an argument that doesn't fit; empty if any does
  const char* Argument;  // empty if the row takes none
  const char* Wire;
  const char* Echo;
  const char* Good;        // an answer
  const char* GoodReport;  // behind the header
  const char* BadReport;   // of a refusal and of silence, behind "[ INVALID DATA ]"
};

// clang-format off
const RowCase kRows[] = {
    {Kind::Panels, "03", "", "", "#ir*", "#IR*", "a00000000", "", ""},
    {Kind::Panels, "13", "", "", "#ur*", "#UR*", "A0000", "", ""},
    {Kind::Plain, "013", "", "", "#iu*", "#IU*", "A000000000000", "", ""},
    {Kind::Panels, "2", "", "", "#s*", "#S*", "k00", "", ""},
    {Kind::Plain, "R", "", "", "#up*", "#UP*", "A10x001", "[ 1 ] SHELF FORWARD\r\n[ 0 ] \r\n[ X ] [ INVALID DATA ]\r\n[ 0 ] \r\n[ 0 ] \r\n[ 1 ] CAP-2 BACKWARD\r\n", ""},
    {Kind::NoReport, "", "12G4", "00Ff", "#uw00Ff*", "#UW00ff*", "AK", "", ""},
    {Kind::NoReport, "", "", "", "#ns*", "#NS*", "ak", "", ""},
    {Kind::Plain, "R", "", "", "#jf*", "#JF*", "A V 5.2", "[  V 5.2 ] ", "[  ] "},
    {Kind::Plain, "R", "", "", "#jp*", "#JP*", "ABRIXEL PLATFORM 2.04", "[ BRIXEL PLATFORM 2.04 ] ", "[  ] "},
    {Kind::Plain, "R", "", "", "#xa*", "#XA*", "A0102", "", ""},
    {Kind::Plain, "R", "", "any Text", "#ixany Text*", "#IXany text*", "A", "", ""},
    {Kind::Plain, "R", "", "01002", "#ig01002*", "#IG01002*", "A012345678", "", ""},
    {Kind::Plain, "", "", "", "#pb*", "#PB*", "A", "", ""},
    {Kind::Plain, "", "", "", "#pr*", "#PR*", "A", "", ""},
    {Kind::Plain, "", "", "", "#pm*", "#PM*", "A", "", ""},
    {Kind::Plain, "", "", "", "#ps*", "#PS*", "A", "", ""},
    {Kind::Plain, "", "", "", "#py*", "#PY*", "A", "", ""},
    {Kind::Plain, "R", "123", "010203", "#a010203*", "#A010203*", "A010203", "[ 01 ] \r\n[ 02 ] \r\n[ 03 ] \r\n", ""},
    {Kind::Plain, "R", "12a4", "0102", "#g0102*", "#G0102*", "A0102", "[ 01 ] \r\n[ 02 ] \r\n", ""},
    {Kind::Plain, "R", "1", "07", "#b07*", "#B07*", "A07", "[ 07 ] \r\n", ""},
    {Kind::Plain, "R", "x1", "07", "#m07*", "#M07*", "A07", "[ 07 ] \r\n", ""},
    {Kind::Worked, "R", "1", "01", "#do01*", "#DO01*", "A01K", "[ 01 ] ", "[  ] "},
    {Kind::Worked, "R", "123", "02", "#dc02*", "#DC02*", "a02k", "[ 02 ] ", "[  ] "},
    {Kind::Worked, "R", "", "Cap 3", "#dmCap 3*", "#DMcap 3*", "A03K", "[ 03 ] ", "[  ] "},
    {Kind::Plain, "", "", "", "#ez*", "#EZ*", "A", "", ""},
    {Kind::Plain, "", "", "", "#eu*", "#EU*", "A", "", ""},
    {Kind::Plain, "", "", "", "#ed*", "#ED*", "A", "", ""},
    {Kind::Plain, "R", "", "", "#ep*", "#EP*", "A0123", "[ 0123 ] (steps)", "[  ] (steps)"},
    {Kind::Plain, "R", "0110", "01100", "#f01100*", "#F01100*", "A01", "[ 01 ] ", "[  ] "},
    {Kind::Plain, "R", "001", "01", "#l01*", "#L01*", "A01", "[ 01 ] ", "[  ] "},
    {Kind::Plain, "R", "a1", "01", "#o01*", "#O01*", "A00000012340000005600", "[ 0000001234 ] (msec)\r\n[ 0000005600 ] (rpm*100)", "[  ] (msec)\r\n[  ] (rpm*100)"},
    {Kind::Plain, "", "", "", "#z*", "#Z*", "A", "", ""},
    {Kind::Plain, "", "", "", "#v*", "#V*", "A", "", ""},
    {Kind::Plain, "", "", "", "#h*", "#H*", "AK", "", ""},
    {Kind::Plain, "", "", "", "#nd*", "#ND*", "A", "", ""},
    {Kind::Plain, "", "", "", "#na*", "#NA*", "A", "", ""},
    {Kind::Plain, "", "", "", "#ja*", "#JA*", "A", "", ""},
    {Kind::Plain, "R", "x0012FF00", "W0012ff00", "#rW0012ff00*", "#Rw0012ff00*", "A00ff", "[ W ] (data type)\r\n[ 0012ff00 ] (data address)\r\n[ 00FF ] (data read)", "[ W ] (data type)\r\n[ 0012ff00 ] (data address)\r\n[  ] (data read)"},
    {Kind::Worked, "R", "b0012ff0000G0", "b0012ff000055", "#wb0012ff000055*", "#Wb0012ff000055*", "AK", "[ b ] (data type)\r\n[ 0012ff00 ] (data address)\r\n[ 0055 ] (data written)", "[ b ] (data type)\r\n[ 0012ff00 ] (data address)\r\n[ 0055 ] (data written)"},
    {Kind::Plain, "R", "1", "0102", "#nm0102*", "#NM0102*", "A0102", "[ 01 ] \r\n[ 02 ] \r\n", ""},
    {Kind::Plain, "", "", "", "#np*", "#NP*", "A", "", ""},
    {Kind::Plain, "R", "0", "03", "#tr03*", "#TR03*", "A10000050", "[ 03 ] (PWM channel)\r\n[ 1000 ] (frequency)\r\n[ 0050 ] (duty-cycle)", "[ 03 ] (PWM channel)\r\n[  ] (frequency)\r\n[  ] (duty-cycle)"},
    {Kind::Plain, "R", "031000005", "0310000050", "#tw0310000050*", "#TW0310000050*", "AK", "[ 03 ] (PWM channel)\r\n[ 1000 ] (frequency)\r\n[ 0050 ] (duty-cycle)", "[ 03 ] (PWM channel)\r\n[ 1000 ] (frequency)\r\n[ 0050 ] (duty-cycle)"},
    {Kind::Plain, "R", "X01", "M01", "#krM01*", "#KRm01*", "A0100000000110000000022", "[ M ] (device-type)\r\n[ 01 ] (device-number)\r\n[ 0000000011 ] (time)\r\n[ 0000000022 ] (cycle-number)", "[ M ] (device-type)\r\n[ 01 ] (device-number)\r\n[  ] (time)\r\n[  ] (cycle-number)"},
    {Kind::Plain, "R", "M01000000001100000000x2", "P0100000000110000000022", "#ktP0100000000110000000022*", "#KTp0100000000110000000022*", "A", "[ P ] (device-type)\r\n[ 01 ] (device-number)\r\n[ 0000000011 ] (time)\r\n[ 0000000022 ] (cycle-number)", "[ P ] (device-type)\r\n[ 01 ] (device-number)\r\n[ 0000000011 ] (time)\r\n[ 0000000022 ] (cycle-number)"},
    {Kind::Plain, "R", "TT", "s", "#krs*", "#KRs*", "A0000000033", "[ s ] (process-type)\r\n[ 0000000033 ] (process-value)", "[ s ] (process-type)\r\n[  ] (process-value)"},
    {Kind::Plain, "", "", "M", "#kvM*", "#KVm*", "A00", "", ""},
    {Kind::Plain, "R", "X0000000044", "D0000000044", "#ktD0000000044*", "#KTd0000000044*", "A", "[ D ] (process-type)\r\n[ 0000000044 ] (process-value)", "[ D ] (process-type)\r\n[ 0000000044 ] (process-value)"},
    {Kind::Plain, "R", "", "", "#km*", "#KM*", "A", "", ""},
    {Kind::Custom, "", "", "#s*", "#s*", "#s*", "A00", "", ""},
};
// clang-format on

std::string StatusOf(const RowCase& row, bool good) {
  if (row.Judged == Kind::Custom) return "";
  const std::string judged = good ? kAccepted : kRefused;
  if (row.Judged == Kind::Plain || row.Judged == Kind::Panels) return judged;
  return judged + (good ? "\r\n[ operation success ]" : "\r\n[ operation fail ]");
}

TEST_F(CommandMenu, EveryRowWithAGoodAnswerARefusalAndSilence) {
  static_assert(std::size(kRows) == link::kCommandRows);
  const link::CommandTable before;
  for (int row = 0; row < link::kCommandRows; ++row) {
    const link::CommandId id{row};
    const RowCase& c = kRows[row];
    for (const std::string& answer : {std::string(c.Good), std::string("r"), std::string()}) {
      const std::string& name = Table.Row(id).Description;
      SCOPED_TRACE(std::to_string(row) + " " + name + ": " + answer);
      Execute(row, c.Wire, answer, {c.Wrong[0] != '\0' ? c.Wrong : c.Argument, c.Argument});
      const bool good = answer == c.Good;
      std::string header = base::ToUpper(name) + "\r\n\r\n";
      if (!good) header += kInvalid + "\r\n\r\n";
      const bool reports = c.Judged == Kind::Plain || c.Judged == Kind::Worked;
      EXPECT_EQ(Text(0), c.Echo);
      EXPECT_EQ(Text(1), base::ToUpper(answer));
      EXPECT_EQ(Text(2), StatusOf(c, good));
      EXPECT_EQ(Report(), !reports ? "" : header + (good ? c.GoodReport : c.BadReport));
      EXPECT_EQ(Shown(), c.Views);
      EXPECT_EQ(Screen.Boxes.size(), c.Wrong[0] != '\0' ? 1U : 0U);
      EXPECT_EQ(Table.Row(id).Command, before.Row(id).Command);
      EXPECT_EQ(Table.Row(id).TimeoutSeconds, before.Row(id).TimeoutSeconds);
      Screen.Boxes.clear();
    }
  }
}

// An answer that is no answer at all, too short or too long, is told as far as it goes.
TEST_F(CommandMenu, OddAnswers) {
  struct {
    int Row;
    const char* Argument;
    const char* Wire;
    const char* Answer;
    const char* Status;
    const char* Report;
  } const cases[] = {
      {4, "", "#up*", "A00000011", "[ command accepted ]",
       "H-BRIDGES STATUS\r\n\r\n[ 0 ] \r\n[ 0 ] \r\n[ 0 ] \r\n[ 0 ] \r\n[ 0 ] \r\n[ 0 ] \r\n"},
      {17, "01", "#a01*", "A0", "[ command accepted ]", "ELECTROVALVE(S) ENABLE\r\n\r\n"},
      {17, "0102", "#a0102*", "A010", "[ command accepted ]",
       "ELECTROVALVE(S) ENABLE\r\n\r\n[ 01 ] \r\n[ 0 ] \r\n"},
      {17, "0102", "#a0102*", "R01029", "[ command refused ]",
       "ELECTROVALVE(S) ENABLE\r\n\r\n[ INVALID DATA ]\r\n\r\n[ 01 ] \r\n[ 02 ] \r\n"},
      {21, "01", "#do01*", "A01N", "[ command accepted ]\r\n[ operation fail ]",
       "CAP OPEN\r\n\r\n[ 01 ] "},
      {21, "01", "#do01*", "R01K", "[ command refused ]\r\n[ operation success ]",
       "CAP OPEN\r\n\r\n[ INVALID DATA ]\r\n\r\n[ 01 ] "},
      {5, "0000", "#uw0000*", "AN", "[ command accepted ]\r\n[ operation fail ]", ""},
      {27, "", "#ep*", "A012345", "[ command accepted ]", "SHELF POSITION\r\n\r\n[ 0123 ] (steps)"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.Answer);
    Execute(c.Row, c.Wire, c.Answer, {c.Argument});
    EXPECT_EQ(Text(2), c.Status);
    EXPECT_EQ(Report(), c.Report);
  }
}

TEST_F(CommandMenu, SilenceLastsAsLongAsTheMachineMayTake) {
  Facts.ElementLists[config::kCaps] = "01,02,";
  Facts.CapTimeList = "20,0,";
  Facts.ResetTimeout = 30;
  struct {
    int Row;
    const char* Argument;
    const char* Wire;
    double Seconds;
  } const cases[] = {{0, "", "#ir*", 5},       {25, "", "#eu*", 10},     {21, "01", "#do01*", 24},
                     {22, "02", "#dc02*", 18}, {23, "07", "#dm07*", 18}, {33, "", "#h*", 36},
                     {46, "M", "#kvM*", 20}};
  for (const auto& c : cases) {
    const double before = Clock.Now();
    Execute(c.Row, c.Wire, "", {c.Argument});
    EXPECT_NEAR(Clock.Now() - before, c.Seconds, 0.6) << c.Wire;
  }
}

TEST_F(CommandMenu, SensorPanelsShowTheAnswerAndTheOthersGoGrey) {
  const auto slave = [this] {
    return base::LeadingInt(base::Behind(Window.Panels.ILabel1.Caption.Get(), '='));
  };
  state::SensorPanels& panels = Window.Panels;
  Execute(0, "#ir*", "A00000000");
  EXPECT_EQ(slave(), 16);
  EXPECT_EQ(panels.OLabel1.Caption.Get(), kInvalid);
  Execute(1, "#ur*", "A8000");
  EXPECT_EQ(panels.ILabel1.Caption.Get(), kInvalid);
  EXPECT_EQ(panels.OLabel1.Caption.Get(), "");
  Execute(2, "#iu*", "A01FFFFFF0000");
  EXPECT_EQ(slave(), 1);
  EXPECT_EQ(panels.OLabel1.Caption.Get(), "");
  Execute(2, "#iu*", "A01FFFFFF");
  EXPECT_EQ(slave(), 1);
  EXPECT_FALSE(panels.OCheck1(0).Value);
  Execute(2, "#iu*", "");
  EXPECT_EQ(panels.ILabel1.Caption.Get(), kInvalid);
  EXPECT_EQ(panels.OLabel1.Caption.Get(), kInvalid);
  for (const char* status : {"K00", "E011103", "B00", "N00"}) {
    Execute(3, "#s*", status);
    EXPECT_EQ(Text(2), kAccepted) << status;
  }
  EXPECT_EQ(panels.ErLabel1.Caption.Get(), "Slave NO busy: errors = 0");
  Execute(3, "#s*", "A00");
  EXPECT_EQ(Text(2), kRefused);
  EXPECT_EQ(panels.ErLabel1.Caption.Get(), kInvalid);
}

TEST_F(CommandMenu, AnArgumentIsAskedUntilItFitsAndOfferedAgain) {
  const auto defaults = [this] {
    std::vector<std::string> texts;
    for (const ui::Question& question : Screen.Questions) texts.push_back(question.Default);
    Screen.Questions.clear();
    return texts;
  };
  using Texts = std::vector<std::string>;
  Execute(28, "#f01100*", "A01", {"x", "0110", "01100"});
  ASSERT_FALSE(Screen.Questions.empty());
  EXPECT_EQ(Screen.Questions[0].Prompt, Table.Row(link::CommandId::MotorOn).Prompt);
  EXPECT_EQ(Screen.Questions[0].Title, "Motor ON");
  EXPECT_EQ(defaults(), (Texts{"", "x", "0110"}));
  ASSERT_EQ(Screen.Boxes.size(), 2U);
  EXPECT_EQ(Screen.Boxes[1].Text, "[ INCORRECT STRING ]");
  EXPECT_EQ(Screen.Boxes[1].Title, "Motor ON");
  EXPECT_EQ(Screen.Boxes[1].Buttons, ui::BoxButtons::Ok);

  // Given up, also behind a wrong one: nothing is sent, and the earlier argument stays.
  Execute(28, "", "", {"y"});
  EXPECT_EQ(Text(2), "[ command aborted ]");
  EXPECT_EQ(Text(0), "#F01100*");
  EXPECT_EQ(defaults(), (Texts{"01100", "y"}));
  Execute(28, "", "", {""});
  EXPECT_EQ(defaults(), (Texts{"01100"}));
  // A row without an argument leaves it, one with an argument ends it.
  Execute(31, "#z*", "A");
  Execute(28, "", "");
  EXPECT_EQ(defaults(), (Texts{"01100"}));
  Execute(29, "", "");
  Execute(28, "", "");
  EXPECT_EQ(defaults(), (Texts{"", ""}));
  EXPECT_EQ(Table.Row(link::CommandId::MotorOn).Command, "#f *");
}

TEST_F(CommandMenu, ListsRememberTheirSelection) {
  const std::string none = "< NO COMMAND AVAILABLE >";
  EXPECT_EQ(Window.Caption.Get(), "TintBench.  Command Menu  [ PUSH < ESC > FOR EXIT ]");
  EXPECT_EQ(Window.CmbCtype.SelectedText(), "STATUS, I/O SENSORS");
  EXPECT_TRUE(Window.LstCsingle(0).Visible);
  EXPECT_FALSE(Window.LstCsingle(1).Visible);
  EXPECT_EQ(Window.CmdExec.Caption.Get(), none);
  Execute();
  const int counts[] = {12, 25, 12, 1};
  for (int group = 0; group < 4; ++group) {
    EXPECT_EQ(Window.LstCsingle(group).ListCount(), counts[group]);
  }
  Pick(3);
  EXPECT_EQ(Window.CmdExec.Caption.Get(), "Status request\r\nEXECUTE");
  Window.CmdExec.SetFocus();
  EXPECT_EQ(Window.LstCsingle(0).ListIndex.Get(), -1);
  EXPECT_EQ(Window.CmdExec.Caption.Get(), "Status request\r\nEXECUTE");
  Window.CmbCtype.PressRow(1);
  EXPECT_EQ(Window.CmdExec.Caption.Get(), none);
  EXPECT_FALSE(Window.LstCsingle(0).Visible);
  EXPECT_TRUE(Window.LstCsingle(1).Visible);
  Window.CmbCtype.PressRow(0);
  EXPECT_EQ(Window.CmdExec.Caption.Get(), "Status request\r\nEXECUTE");
  Window.LstCsingle(0).SetFocus();
  EXPECT_EQ(Window.LstCsingle(0).ListIndex.Get(), 3);
  Port.Expect("#s*").Reply("K00");
  Window.LstCsingle(0).DoublePress();
  EXPECT_EQ(Text(1), "K00");
}

TEST_F(CommandMenu, ARowThatIsNotEnabledIsLeftOut) {
  Port.Expect("#z*").Reply("A");
  Screen.Unload(Window);
  Table.Row(link::CommandId::ReadOutputs).Enabled = false;
  Load();
  EXPECT_EQ(Window.LstCsingle(0).ListCount(), 11);
  Window.LstCsingle(0).PressRow(1);
  Port.Expect("#iu*").Reply("A000000000000");
  Execute();
  EXPECT_EQ(Text(0), "#IU*");
}

TEST_F(CommandMenu, AFewLettersFindACommand) {
  struct {
    const char* Typed;
    const char* Group;
    const char* Button;
    const char* Found;
  } const cases[] = {
      {"mot", "MACHINE TESTS", "Motor ON\r\nEXECUTE", "1 of 6"},
      {"PWM", "MACHINE MEMORY/DATA", "Read PWM freq./duty-cycle\r\nEXECUTE", "1 of 2"},
      {"custom", "CUSTOM COMMAND", "Custom command\r\nEXECUTE", "1 of 1"},
      {"status", "STATUS, I/O SENSORS", "Status request\r\nEXECUTE", "1 of 3"},
      {"no such command", "STATUS, I/O SENSORS", "< NO COMMAND AVAILABLE >", "no command"},
      {"", "STATUS, I/O SENSORS", "< NO COMMAND AVAILABLE >", ""},
  };
  Window.TxtFind.SetFocus();
  for (const auto& c : cases) {
    Window.TxtFind.Text = c.Typed;
    EXPECT_EQ(Window.CmbCtype.SelectedText(), c.Group) << c.Typed;
    EXPECT_EQ(Window.CmdExec.Caption.Get(), c.Button) << c.Typed;
    EXPECT_EQ(Window.LblFound.Caption.Get(), c.Found) << c.Typed;
    Window.PressKey(ui::kKeyEnter, 0);  // sends nothing
  }
  Execute();
  EXPECT_EQ(Text(0), "");
}

TEST_F(CommandMenu, ArrowsGoThroughTheHitsOfAllGroups) {
  Window.TxtFind.SetFocus();
  Window.TxtFind.Text = "read";
  std::vector<int> rows;
  const auto note = [&] {
    const int group = Window.CmbCtype.ListIndex;
    rows.push_back(Window.LstCsingle(group).ItemData(Window.LstCsingle(group).ListIndex));
  };
  for (int press = 0; press < 9; ++press) {
    note();
    Window.PressKey(ui::kKeyDown, 0);
  }
  Window.PressKey(ui::kKeyUp, 0);
  note();
  EXPECT_EQ(rows, (std::vector<int>{0, 1, 2, 11, 37, 41, 43, 45, 46, 46}));
}

// A second press while the line is busy must not answer the question that the first brings up.
TEST_F(CommandMenu, WhatWasPressedBeforeAQuestionDoesNotAnswerIt) {
  Screen.Replies = {"01100"};
  Pick(28);
  Screen.Show(Window);
  Screen.After(0, [this] { Window.CmdExec.Press(); });
  Screen.After(0, [this] { Window.CmdStop.Press(); });
  Screen.After(1, [] {});
  Port.Expect("#z*").Reply("A");
  Execute();
  EXPECT_EQ(Screen.Questions.size(), 0U);
  EXPECT_EQ(Text(2), "[ command aborted ]");
  Port.Expect("#z*").Reply("A");
  Screen.Unload(Window);
}

// Until the machine has answered, nothing is known of it.
TEST_F(CommandMenu, OpensWithoutWhatTheLastOpeningShowed) {
  Execute(2, "#iu*", "A01FFFFFF8000");
  Execute(3, "#s*", "E011103");
  Port.Expect("#z*").Reply("A");
  Screen.Unload(Window);
  Load();
  const state::SensorPanels& panels = Window.Panels;
  EXPECT_EQ(panels.IShape3(20).BackColor.Get(), state::kNoDataColour);
  EXPECT_EQ(panels.GRShape1(20).BackColor.Get(), state::kNoDataColour);
  for (const ui::Label* label : {&panels.ILabel1, &panels.OLabel1, &panels.ErLabel1}) {
    EXPECT_EQ(label->Caption.Get(), "");
  }
  EXPECT_EQ(panels.ErText1.Text.Get(), "");
}

TEST_F(CommandMenu, TheLastCommandsAreTakenUpAgain) {
  Execute(28, "#f01100*", "A01", {"01100"});
  Execute(0, "#ir*", "A00000000");
  Execute(29, "#l01*", "A01", {"01"});
  Execute(28, "#f01100*", "A01", {"01100"});
  Execute(28, "", "", {});
  ui::ComboBox& recent = Window.CmbRecent;
  ASSERT_EQ(recent.ListCount(), 3);
  EXPECT_EQ(recent.List(0), "Motor ON  01100");
  EXPECT_EQ(recent.List(1), "Motor OFF  01");
  EXPECT_EQ(recent.List(2), "Read input sensors");
  recent.PressRow(1);
  EXPECT_EQ(Window.CmdExec.Caption.Get(), "Motor OFF\r\nEXECUTE");
  Port.Expect("#l02*").Reply("A02");
  Screen.Replies = {"02"};
  Execute();
  EXPECT_EQ(Screen.Questions.back().Default, "01");
  EXPECT_EQ(recent.List(0), "Motor OFF  02");
  recent.PressRow(3);
  EXPECT_EQ(Window.CmbCtype.SelectedText(), "STATUS, I/O SENSORS");
  for (int speed = 100; speed < 200; ++speed) {
    const std::string argument = "01" + std::to_string(speed);
    Execute(28, "#f" + argument + "*", "A01", {argument});
  }
  EXPECT_EQ(recent.ListCount(), 12);
  EXPECT_EQ(recent.List(11), "Motor ON  01188");
}

TEST_F(CommandMenu, StopAndExitSwitchEverythingOff) {
  const struct {
    const char* Answer;
    const char* Status;
  } cases[] = {{"a", "[ command accepted ]\r\n( process stopped )"},
               {"R", "[ command refused ]"},
               {"", "[ command refused ]"}};
  for (const auto& c : cases) {
    Port.Expect("#z*").Reply(c.Answer);
    Window.CmdStop.Press();
    EXPECT_EQ(Window.TxtIOm.Text.Get(), c.Status);
    EXPECT_EQ(Text(2), c.Status);
  }
  Port.Expect("#ir*").Reply("A00000000");
  Pick(0);
  Execute();
  EXPECT_EQ(Shown(), "03");
  Port.Expect("#z*").Reply("A");
  EXPECT_TRUE(Window.PressKey(ui::kKeyEsc, 0));
  EXPECT_FALSE(Window.IsLoaded());
  EXPECT_EQ(Shown(), "");
}

TEST_F(CommandMenu, APortThatIsClosedIsTold) {
  Port.PortOpen(false);
  Pick(3);
  Execute();
  ASSERT_EQ(Screen.Boxes.size(), 1U);
  EXPECT_EQ(Screen.Boxes[0].Text, "Serial port NOT open!");
  EXPECT_EQ(Text(2), kRefused);
}

// Counts the seconds that a control shows and draws at once.
struct CountdownLog final : ui::Observer {
  void PropertyChanged(const ui::PropertyBase& property) override {
    if (property.Text().starts_with("wait for machine answer [")) ++Shown;
  }
  void RefreshWanted() override { ++Drawn; }
  int Shown = 0;
  int Drawn = 0;
};

TEST_F(CommandMenu, CountsDownInThePanelAndInTheBoxOfTheMenuOnShow) {
  const std::vector<ui::Control*> places{&Window.Panels.ILabel1, &Window.Panels.OLabel1,
                                         &Window.Panels.ErLabel1, &Window.TxtIO(2), &Window.TxtIOm};
  const std::pair<commands::FormFunction, std::vector<int>> menus[] = {
      {commands::kCommandMenu, {0, 5, 0, 5, 0}}, {commands::kMaintenanceMenu, {0, 5, 0, 0, 5}}};
  for (const auto& [menu, seconds] : menus) {
    Port.Expect("#z*").Reply("A");
    Screen.Unload(Window);
    Load(menu);
    std::vector<CountdownLog> logs(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
      places[i]->AddObserver(logs[i]);
    }
    Port.Expect("#ur*").Wait(5.0);
    Window.Send(link::CommandId::ReadOutputs);
    for (std::size_t i = 0; i < places.size(); ++i) {
      places[i]->RemoveObserver(logs[i]);
      EXPECT_EQ(logs[i].Shown, seconds[i]) << menu << " " << places[i]->FullName();
      EXPECT_EQ(logs[i].Drawn, seconds[i]);
    }
  }
}

TEST_F(CommandMenu, TheDebugFrameEchoesAtItsLevel) {
  EXPECT_FALSE(Window.Debug.FrmDbg.Visible);
  Port.Expect("#z*").Reply("A");
  Screen.Unload(Window);
  Log.DebugLevel(15);
  Load();
  EXPECT_TRUE(Window.Debug.FrmDbg.Visible);
  Execute(37, "#rw0012ff00*", "A00ff", {"w0012ff00"});
  EXPECT_EQ(Window.Debug.TxtDbgIO(0).Text.Get(), "#RW0012FF00*");
  EXPECT_EQ(Window.Debug.TxtDbgIO(1).Text.Get(), "A00FF");
}

// The shelf's guard of ten seconds holds from one menu to the other.
TEST_F(CommandMenu, AMoveOfTheShelfIsBooked) {
  Facts.HasShelf = true;
  Execute(25, "#eu*", "A");
  Port.Expect("#z*").Reply("A");
  Screen.Unload(Window);
  Load(commands::kMaintenanceMenu);
  Port.Expect("#eu*").Reply("A");
  EXPECT_TRUE(Window.PressKey(ui::kKeyF1 + 1, 0));
}

}  // namespace
}  // namespace tintbench::testing
