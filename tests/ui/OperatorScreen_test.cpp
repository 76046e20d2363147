// Operator scripts played on small windows: what a step does, what it refuses, and what the
// transcript and the exit status say.
#include "ui/OperatorScreen.h"

#include <gtest/gtest.h>

#include <sstream>
#include <utility>

#include "ui/Picture.h"

namespace tintbench::ui {
namespace {

struct SampleForm : Form {
  explicit SampleForm(Screen& screen) : Form("Sample"), Owner(screen) {
    CmdAsk.Click = [this] {
      Told = Owner.Ask(Box{.Text = "Put the can\r\non the shelf",
                           .Icon = BoxIcon::Question,
                           .Buttons = BoxButtons::OkCancel}) == Answer::OK
                 ? "ok"
                 : "cancel";
    };
    CmdName.Click = [this] {
      LblName.Caption = Owner.Ask(Question{.Prompt = "Name?", .Title = "Naming"}).value_or("-");
    };
    CmdFile.Click = [this] {
      LblName.Caption = Owner.Ask(FileRequest{.Title = "Pick", .Filter = "A|*.a"}).value_or("-");
    };
    CmdLong.Click = [this] {
      // A long process with an event pump between its transactions.
      for (Stopped = false; !Stopped && Rounds < 100; ++Rounds) {
        Owner.Time().Sleep(0.5);
        Owner.DoEvents();
      }
    };
    CmdStop.Click = [this] { Stopped = true; };
    CmdGone.Visible = false;
    CmdGrey.Enabled = false;
    LstRows.CheckMarks = true;
    LstRows.AddItem("first", 10);
    LstRows.AddItem("second", 20);
    Tabs.AddTab({"one", "@ONE", ""});
    Tabs.AddTab({"two", "@TWO", "-1"});
    OptB.Click = [this] { ++OptionClicks; };
    Timer1.Tick = [this] { LblTime.Caption = std::to_string(++Ticks); };
    MnuTop.Click = [this] { ++TitleClicks; };
    MnuItem.Click = [this] { Told = "item"; };
    MnuAlone.Click = [this] { Told = "alone"; };
    LblName.MouseDown = [this](MouseEvent event) { Told = std::to_string(event.Button); };
  }
  void Form_KeyDown(KeyEvent& event) override {
    Keys += std::to_string(event.Shift) + ":" + std::to_string(event.Code) + " ";
  }
  void Form_Click() override { Told = "window"; }
  void Form_QueryUnload(bool& cancel) override { cancel = Refusals-- > 0; }

  Screen& Owner;
  Button CmdAsk{*this, "CmdAsk"};
  Button CmdName{*this, "CmdName"};
  Button CmdFile{*this, "CmdFile"};
  Button CmdLong{*this, "CmdLong"};
  Button CmdStop{*this, "CmdStop"};
  Button CmdGone{*this, "CmdGone"};
  Button CmdGrey{*this, "CmdGrey"};
  Label LblName{*this, "LblName"};
  Label LblTime{*this, "LblTime"};
  ControlArray<TextBox> TxtIO{*this, "TxtIO", 2};
  ListBox LstRows{*this, "LstRows"};
  TabStrip Tabs{*this, "Tabs"};
  CheckBox ChkOn{*this, "ChkOn"};
  OptionButton OptA{*this, "OptA"};
  OptionButton OptB{*this, "OptB"};
  Timer Timer1{*this, "Timer1"};
  Menu MnuTop{*this, "MnuTop", "&Top"};
  Menu MnuItem{MnuTop, "MnuItem", "Item"};
  Menu MnuAlone{*this, "MnuAlone", "Alone"};
  std::string Told;
  std::string Keys;
  bool Stopped = false;
  int Rounds = 0;
  int Ticks = 0;
  int TitleClicks = 0;
  int OptionClicks = 0;
  int Refusals = 0;
};

struct Played {
  int Status = -1;
  std::string Transcript;
  std::string Diagnostics;
};

class OperatorScreenTest : public ::testing::Test {
 protected:
  // Plays the script on a window that shows from the start.
  Played Play(const std::string& text, const OperatorScreen::MachineTeller& machine = {}) {
    OperatorScript script;
    std::string error;
    EXPECT_TRUE(ParseOperatorScript(text, "test", script, error)) << error;
    std::ostringstream transcript;
    std::ostringstream diagnostics;
    Clock = base::VirtualClock();
    screen_ = std::make_unique<OperatorScreen>(Clock, script, transcript, diagnostics, machine);
    screen_->Title = "Tool";
    Window = std::make_unique<SampleForm>(*screen_);
    Window->Refusals = Refusals;
    Window->Timer1.Interval = TimerInterval;
    screen_->Show(*Window);
    screen_->Run();
    const int status = static_cast<int>(screen_->Finish());
    return {status, transcript.str(), diagnostics.str()};
  }

  base::VirtualClock Clock;
  std::unique_ptr<SampleForm> Window;
  int Refusals = 0;
  int TimerInterval = 0;

 private:
  std::unique_ptr<OperatorScreen> screen_;
};

bool Has(const std::string& text, const std::string& piece) {
  return text.find(piece) != std::string::npos;
}

struct ScriptCase {
  std::string Name;
  std::string Script;
  int Status;
  std::string InTranscript;
};

TEST_F(OperatorScreenTest, DoesItsStepsAndRefusesWhatAHandCouldNotDo) {
  const std::vector<ScriptCase> cases{
      {"box answered", "click Sample.CmdAsk\nanswer OK is \"Put the can\\r\\non the shelf\"", 0,
       "[box] Tool | question | Put the can\\non the shelf\n> answer OK"},
      {"box answered otherwise", "click Sample.CmdAsk\nanswer Cancel has \"can\"", 0, ""},
      {"box with another text", "click Sample.CmdAsk\nanswer OK has \"cup\"\nprint Sample.Visible",
       1, "test:2: the box: wanted has \"cup\", found"},
      {"box without such a button", "click Sample.CmdAsk\nanswer Yes", 2, "no button Yes"},
      {"box without answer", "click Sample.CmdAsk\nexpect Sample.Visible is \"-1\"", 2,
       "test:2: a box came that the script does not answer: Put the can\\non the shelf"},
      {"box at the script's end", "click Sample.CmdAsk", 2, "test: a box came"},
      {"no box comes", "answer OK", 2, "test:1: the box to be answered has not come"},
      {"question",
       "click Sample.CmdName\ninput \"Ann\" is \"Name?\"\n"
       "expect Sample.LblName.Caption is \"Ann\"",
       0, "[box] Naming | input | Name?"},
      {"question refused",
       "click Sample.CmdName\ninput cancel\n"
       "expect Sample.LblName.Caption is \"-\"",
       0, ""},
      {"file", "click Sample.CmdFile\nfile \"a b.a\"\nexpect Sample.LblName.Caption is \"a b.a\"",
       0, "[box] Pick | file | A|*.a"},
      {"invisible", "click Sample.CmdGone", 2, "test:1: Sample.CmdGone can't be seen"},
      {"disabled", "click Sample.CmdGrey", 2, "test:1: Sample.CmdGrey is disabled"},
      {"no such control", "click Sample.CmdNone", 2, "test:1: there is no control Sample.CmdNone"},
      {"no such element", "type Sample.TxtIO(2) \"x\"", 2, "there is no control Sample.TxtIO(2)"},
      {"no such window", "click Other.CmdAsk", 2, "test:1: there is no window Other"},
      {"no such property", "expect Sample.CmdAsk.Colour is \"\"", 2, "there is no Sample.CmdAsk"},
      {"typing",
       "type Sample.TxtIO(1) \"a \\\"b\\\"\"\nexpect Sample.TxtIO(1).Text is \"a \\\"b\\\"\"", 0,
       ""},
      {"typing on a button", "type Sample.CmdAsk \"a\"", 2, "can't be typed into"},
      {"pick by number", "pick Sample.LstRows 1\nexpect Sample.LstRows.Text is \"second\"", 0, ""},
      {"pick by text", "pick Sample.LstRows \"first\"\nexpect Sample.LstRows.ListIndex is \"0\"", 0,
       ""},
      {"pick what isn't there", "pick Sample.LstRows \"third\"", 2, "has no such row"},
      {"rows of a list",
       "expect Sample.LstRows.List(1) is \"second\"\n"
       "expect Sample.LstRows.ListCount is \"2\"",
       0, ""},
      {"tabs",
       "pick Sample.Tabs \"two\"\nexpect Sample.Tabs.TabIndex is \"1\"\n"
       "expect Sample.Tabs.Tab(0) is \"one\"\nexpect Sample.Tabs.TabCount is \"2\"",
       0, ""},
      {"check box",
       "tick Sample.ChkOn\ntick Sample.ChkOn\nexpect Sample.ChkOn.Value is \"1\"\n"
       "untick Sample.ChkOn\nexpect Sample.ChkOn.Value is \"0\"",
       0, ""},
      {"check marks",
       "tick Sample.LstRows.List(1)\nexpect Sample.LstRows.Selected(1) is \"-1\"\n"
       "expect Sample.LstRows.Selected(0) is \"0\"\nuntick Sample.LstRows.List(1)\n"
       "expect Sample.LstRows.Selected(1) is \"0\"",
       0, ""},
      {"a check mark that isn't there", "tick Sample.LstRows.List(2)", 2,
       "no row with a check mark"},
      {"option buttons",
       "tick Sample.OptA\ntick Sample.OptB\nexpect Sample.OptA.Value is \"0\"\n"
       "expect Sample.OptB.Value is \"-1\"",
       0, ""},
      {"unticking an option button", "untick Sample.OptA", 2, "can't be unticked"},
      {"failed expectations don't end the script",
       "expect Sample.Visible is \"0\"\nexpect Sample.LblName.Caption isnot \"\"\n"
       "click Sample.CmdStop",
       1, "test:2: Sample.LblName.Caption: wanted isnot \"\", found \"\"\n> click"},
      {"colours", "expect Sample.CmdAsk.BackColor is \"0x8000000F\"", 0, ""},
      {"any letter case", "expect sample.cmdask.enabled is \"-1\"", 0, ""},
      {"an item of a closed menu", "click Sample.MnuItem", 2, "MnuTop is not open"},
      {"a menu that Esc closes", "click Sample.MnuTop\npress Esc\nclick Sample.MnuItem", 2,
       "MnuTop is not open"},
      {"machine words without a machine", "machine can on", 2, "no simulated machine"},
  };
  for (const ScriptCase& wanted : cases) {
    SCOPED_TRACE(wanted.Name);
    const Played played = Play(wanted.Script);
    EXPECT_EQ(played.Status, wanted.Status) << played.Transcript;
    EXPECT_TRUE(Has(played.Transcript, wanted.InTranscript)) << played.Transcript;
    EXPECT_EQ(played.Diagnostics.empty(), wanted.Status != 2) << played.Diagnostics;
    EXPECT_FALSE(Window->Visible);
  }
}

TEST_F(OperatorScreenTest, OpensMenusAndTheirItems) {
  EXPECT_EQ(Play("click Sample.MnuTop\nclick Sample.MnuItem").Status, 0);
  EXPECT_EQ(Window->TitleClicks, 1);
  EXPECT_EQ(Window->Told, "item");
  EXPECT_EQ(Play("click Sample.MnuAlone").Status, 0);
  EXPECT_EQ(Window->Told, "alone");
}

TEST_F(OperatorScreenTest, PressesKeysTheWindowAndOtherButtons) {
  EXPECT_EQ(Play("press Ctrl+Shift+g\npress F9\npress Esc").Status, 0);
  EXPECT_EQ(Window->Keys, "3:71 0:120 0:27 ");
  Play("click Sample");
  EXPECT_EQ(Window->Told, "window");
  Play("rightpress Sample.LblName");
  EXPECT_EQ(Window->Told, "2");
}

TEST_F(OperatorScreenTest, GivesALongProcessItsStepsBetweenTransactions) {
  const Played played = Play("click Sample.CmdLong\nwait 3\nclick Sample.CmdStop");
  EXPECT_EQ(played.Status, 0) << played.Transcript;
  EXPECT_TRUE(Window->Stopped);
  EXPECT_EQ(Window->Rounds, 7);
}

TEST_F(OperatorScreenTest, LetsTimePassAndFiresTimers) {
  TimerInterval = 800;
  const Played played = Play(
      "watch Sample.LblTime.Caption\nuntil Sample.LblTime.Caption is \"2\" within 5\n"
      "until Sample.LblTime.Caption is \"9\" within 1");
  EXPECT_EQ(played.Status, 1);
  EXPECT_TRUE(Has(played.Transcript, "[watch] Sample.LblTime.Caption is \"2\"\n"));
  EXPECT_TRUE(Has(played.Transcript, "wanted is \"9\", found \"3\" after 1 seconds"));
  EXPECT_NEAR(Clock.Now(), 1.6 + 1.0, 0.11);
}

TEST_F(OperatorScreenTest, TellsTheMachineEvenWhileABoxIsOpen) {
  std::string told;
  const Played played = Play("click Sample.CmdAsk\nmachine can on\nanswer OK\nmachine bad words",
                             [&](const std::string& words) {
                               told += words + ";";
                               return words == "bad words" ? "unknown words" : "";
                             });
  EXPECT_EQ(told, "can on;bad words;");
  EXPECT_EQ(played.Status, 2);
  EXPECT_TRUE(Has(played.Diagnostics, "test:4: unknown words"));
  EXPECT_EQ(Window->Told, "ok");
}

TEST_F(OperatorScreenTest, PressesTheCloseButtonUntilTheWindowGoes) {
  Refusals = 3;
  const Played played = Play("print Sample.Caption");
  EXPECT_EQ(played.Status, 0);
  EXPECT_FALSE(Window->Visible);
}

TEST_F(OperatorScreenTest, ReportsStepsThatTheProgramDidNotLiveToSee) {
  const Played played = Play("close Sample\nclick Sample.CmdAsk");
  EXPECT_EQ(played.Status, 2);
  EXPECT_TRUE(Has(played.Diagnostics, "test:2: the program has ended before this step was done"));
}

// Told to end while a process runs in a modal window, from which the window can be closed.
TEST_F(OperatorScreenTest, ClosesAllWindowsInTheirOrderWhenItIsToldTo) {
  std::string told;
  Form main("Main");
  Button open{main, "CmdOpen"};
  std::ostringstream transcript;
  std::ostringstream diagnostics;
  OperatorScript script;
  std::string error;
  ASSERT_TRUE(ParseOperatorScript("click Main.CmdOpen\nclick Sample.CmdLong\nanswer OK", "test",
                                  script, error));
  OperatorScreen screen(Clock, script, transcript, diagnostics);
  SampleForm sub(screen);
  sub.Refusals = 2;
  open.Click = [&] {
    screen.ShowModal(sub);
    told += sub.Visible ? "left " : "back ";
    EXPECT_TRUE(main.Visible);
    EXPECT_EQ(sub.Rounds, 100);
    const Box box{.Text = "?", .Buttons = BoxButtons::YesNo};
    told += screen.Ask(box) == Answer::No ? "no " : "yes ";
  };
  sub.Timer1.Interval = 3000;
  sub.Timer1.Tick = [&] { screen.CloseAll(); };
  screen.Show(main);
  screen.Run();
  EXPECT_EQ(told, "back no ");
  EXPECT_LT(sub.Refusals, 0);
  EXPECT_FALSE(main.Visible);
  EXPECT_EQ(screen.Finish(), OperatorScreen::Outcome::ScriptWrong);
  EXPECT_EQ(diagnostics.str(), "test:3: the program has ended before this step was done\n");
}

// Its way out takes longer than the script's patience.
struct SlowForm : Form {
  explicit SlowForm(Screen& screen) : Form("Slow"), Owner(screen) {}
  void Form_QueryUnload(bool& cancel) override {
    cancel = std::exchange(Ending, true);
    for (int i = 0; !cancel && i < 200; ++i) Owner.Idle(1.0);
  }
  Screen& Owner;
  bool Ending = false;
};

TEST(OperatorScreen, GivesUpOnceOnAWindowThatDoesNotCloseAndLetsItsTimePass) {
  base::VirtualClock clock;
  std::ostringstream transcript;
  std::ostringstream diagnostics;
  OperatorScreen screen(clock, {"test", {}}, transcript, diagnostics);
  SlowForm form(screen);
  screen.Show(form);
  screen.Run();
  EXPECT_EQ(diagnostics.str(), "test: the window Slow does not close\n");
  EXPECT_TRUE(screen.IsQuitting());
  const double before = clock.Now();
  screen.Idle(5.0);
  EXPECT_EQ(clock.Now(), before + 5.0);
}

TEST(OperatorScript, RejectsWrongStepsWithTheirPlace) {
  struct WrongStep {
    std::string Text;
    std::string Error;
  };
  const std::vector<WrongStep> cases{
      {"clack Form1.X", "unknown step \"clack\""},
      {"click", "usage: click"},
      {"click Form1.X more", "usage: click"},
      {"click Form1.X(a)", "usage: click"},
      {"click Form1.", "usage: click"},
      {"click .X", "usage: click"},
      {"click Form1.X.Y", "usage: click"},
      {"press F13", "usage: press"},
      {"press Ctrl+", "usage: press"},
      {"type Form1.X text", "usage: type"},
      {"type Form1.X \"text", "a quoted text is not closed"},
      {"type Form1.X \"\\q\"", "a quoted text is not closed or holds an unknown escape"},
      {"pick Form1.X -1", "usage: pick"},
      {"answer Maybe", "usage: answer"},
      {"answer OK like \"x\"", "usage: answer"},
      {"wait long", "usage: wait"},
      {"wait -1", "usage: wait"},
      {"wait 1000001", "usage: wait"},
      {"until Form1.X is \"a\" within 1e17", "usage: until"},
      {"' " + std::string(10000, 'x'), "the line is too long"},
      {"until Form1.X is \"a\"", "usage: until"},
      {"expect Form1.X was \"a\"", "usage: expect"},
      {"machine", "usage: machine"},
  };
  for (const WrongStep& wrong : cases) {
    SCOPED_TRACE(wrong.Text);
    OperatorScript script;
    std::string error;
    EXPECT_FALSE(
        ParseOperatorScript("' fine\r\n\r\n" + wrong.Text + "\r\n", "a.txt", script, error));
    EXPECT_EQ(error.substr(0, 9), "a.txt:3: ");
    EXPECT_TRUE(Has(error, wrong.Error)) << error;
  }
}

}  // namespace
}  // namespace tintbench::ui
