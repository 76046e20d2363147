// The transaction with a machine that answers in time, late, too much, too little or not at all:
// what goes on the wire, what comes back and when, and what the operator sees meanwhile.
#include "link/Transaction.h"

#include <gtest/gtest.h>

#include "base/ScratchFolder.h"
#include "link/ScriptedPort.h"
#include "ui/NotingScreen.h"

namespace tintbench::link {
namespace {

using testing::NotingScreen;
using testing::ScriptedPort;

struct PanelForm : ui::Form {
  explicit PanelForm(const std::string& name = "Form1") : ui::Form(name) {}
  ui::Label ILabel1{*this, "ILabel1"};
  ui::Label OLabel1{*this, "OLabel1"};
  ui::Label ErLabel1{*this, "ErLabel1"};
  ui::ControlArray<ui::TextBox> TxtIO{*this, "TxtIO", 3};
  ui::TextBox TxtIOm{*this, "TxtIOm"};
  ui::ControlArray<ui::TextBox> TxtDbgIO{*this, "TxtDbgIO", 2};
};

// Notes every value that a caption takes.
struct CaptionLog final : ui::Observer {
  void PropertyChanged(const ui::PropertyBase& property) override {
    Texts.push_back(property.Text());
  }
  void RefreshWanted() override { ++Refreshes; }
  std::vector<std::string> Texts;
  int Refreshes = 0;
};

class TransactionTest : public ::testing::Test {
 protected:
  base::VirtualClock Clock;
  base::StandardFileSystem Files;
  testing::ScratchFolder Folder;
  ScriptedPort Port{Clock};
  CommandTable Commands;
  NotingScreen Screen{Clock};
  DebugLog Log{Files, Folder.Path("ksvdebug.txt")};
  Transaction Line{Port, Clock, Commands, Screen, Log};
  PanelForm Form;
};

struct AnswerCase {
  std::string Name;
  int Row;
  std::string Command;
  std::function<void(ScriptedPort&)> Machine;  // behind the command
  std::string Answer;
  double Seconds;
};

TEST(TransactionAnswers, AreWholeByCountOrByQuiet) {
  const std::vector<AnswerCase> cases{
      {"at once", 0, "#ir*", [](ScriptedPort& p) { p.Reply("A0FFFFFFF"); }, "A0FFFFFFF", 0.3},
      {"after a second", 0, "#ir*", [](ScriptedPort& p) { p.Wait(1.0).Reply("A0FFFFFFF"); },
       "A0FFFFFFF", 1.2},
      {"in two parts", 0, "#ir*", [](ScriptedPort& p) { p.Reply("A0FF").Wait(0.5).Reply("FFFFF"); },
       "A0FFFFFFF", 0.9},
      {"one too many is read at the time-out", 0, "#ir*",
       [](ScriptedPort& p) { p.Reply("A0FFFFFFFF"); }, "A0FFFFFFFF", 5.1},
      {"one too few is read at the time-out", 0, "#ir*",
       [](ScriptedPort& p) { p.Reply("A0FFFFFF"); }, "A0FFFFFF", 5.1},
      {"silence", 0, "#ir*", [](ScriptedPort&) {}, "", 5.1},
      {"letters as they came", 7, "#jf*", [](ScriptedPort& p) { p.Reply("a   5.b"); }, "a   5.b",
       0.3},
      {"quiet line", 3, "#s*", [](ScriptedPort& p) { p.Reply("K00"); }, "K00", 0.3},
      {"quiet line waits while bytes come", 3, "#s*",
       [](ScriptedPort& p) { p.Wait(0.24).Reply("K0").Wait(0.04).Reply("0"); }, "K00", 0.6},
      {"quiet line in silence", 3, "#s*", [](ScriptedPort&) {}, "", 5.1},
      {"ten seconds", 33, "#h*", [](ScriptedPort&) {}, "", 10.2},
  };
  for (const AnswerCase& wanted : cases) {
    SCOPED_TRACE(wanted.Name);
    base::VirtualClock clock;
    base::StandardFileSystem files;
    ScriptedPort port(clock);
    port.Expect(wanted.Command);
    wanted.Machine(port);
    CommandTable commands;
    NotingScreen screen(clock);
    DebugLog log(files, "");
    Transaction line(port, clock, commands, screen, log);
    PanelForm form;
    EXPECT_EQ(line.SendCommand(form, wanted.Row), wanted.Answer);
    EXPECT_NEAR(clock.Now(), wanted.Seconds, 0.001);
    EXPECT_FALSE(line.IsSerialBusy());
    EXPECT_TRUE(screen.Boxes.empty());
  }
}

TEST_F(TransactionTest, ExpectsTheArgumentBackForARowWithoutLength) {
  Port.Expect("#a010203*").Reply("A010203");
  const CommandCall call(Commands, 17, "010203");
  EXPECT_EQ(Line.SendCommand(Form, 17), "A010203");
  EXPECT_NEAR(Clock.Now(), 0.3, 0.001);
}

TEST_F(TransactionTest, KeepsWhatWasLeftInFrontOfTheNewAnswer) {
  Port.Reply("late").Expect("#ir*").Reply("A0FFFFFFF");
  EXPECT_EQ(Line.SendCommand(Form, 0), "lateA0FFFFFFF");
}

TEST_F(TransactionTest, SendsNothingOnAClosedPortAndSaysSo) {
  Port.PortOpen(false);
  EXPECT_EQ(Line.SendCommand(Form, 0), "");
  ASSERT_EQ(Screen.Boxes.size(), 1U);
  EXPECT_EQ(Screen.Boxes[0].Text, "Serial port NOT open!");
  EXPECT_EQ(Screen.Boxes[0].Icon, ui::BoxIcon::Plain);
  EXPECT_FALSE(Line.IsSerialBusy());
}

TEST_F(TransactionTest, GivesNothingWhileAnotherOneRuns) {
  std::string inner = "not called";
  Port.Expect("#ir*").Do([&] {
    EXPECT_TRUE(Line.IsSerialBusy());
    inner = Line.SendCommand(Form, 1);
  });
  Port.Reply("A0FFFFFFF");
  EXPECT_EQ(Line.SendCommand(Form, 0), "A0FFFFFFF");
  EXPECT_EQ(inner, "");
}

TEST_F(TransactionTest, EndsAtOnceWhenThePortIsLost) {
  Port.Expect("#h*").Wait(1.0).Disconnect();
  EXPECT_EQ(Line.SendCommand(Form, 33), "");
  EXPECT_LT(Clock.Now(), 1.4);
}

TEST_F(TransactionTest, CountsDownOnThePanelsOfItsRow) {
  struct Place {
    std::string Form;
    int Row;
    std::string Command;
    std::vector<std::string> Controls;
  };
  const std::vector<Place> places{
      {"Form1", 0, "#ir*", {"ILabel1"}},
      {"Form1", 1, "#ur*", {"OLabel1"}},
      {"Form1", 2, "#iu*", {"ILabel1", "OLabel1"}},
      {"Form1", 3, "#s*", {"ErLabel1"}},
      {"Form1", 7, "#jf*", {}},
      {"FormComm", 7, "#jf*", {"TxtIO(2)"}},
      {"FormComm", 1, "#ur*", {"OLabel1", "TxtIO(2)"}},
  };
  for (const Place& place : places) {
    SCOPED_TRACE(place.Form + " " + place.Command);
    std::vector<CaptionLog> logs;  // must outlive the window that it observes
    PanelForm form(place.Form);
    logs.resize(form.Controls().size());
    for (std::size_t i = 0; i < logs.size(); ++i) form.Controls()[i]->AddObserver(logs[i]);
    Port.Expect(place.Command).Wait(5.0);
    Line.SendCommand(form, place.Row);
    for (std::size_t i = 0; i < logs.size(); ++i) {
      const std::string name = form.Controls()[i]->FullName();
      const bool shown = std::count(place.Controls.begin(), place.Controls.end(), name) > 0;
      EXPECT_EQ(logs[i].Texts.empty(), !shown) << name;
      if (!shown) continue;
      EXPECT_EQ(logs[i].Texts, (std::vector<std::string>{
                                   "wait for machine answer [5]", "wait for machine answer [4]",
                                   "wait for machine answer [3]", "wait for machine answer [2]",
                                   "wait for machine answer [1]"}));
      EXPECT_EQ(logs[i].Refreshes, 5);
    }
  }
}

TEST_F(TransactionTest, CountsDownInTheBoxOfTheMenuOnShow) {
  PanelForm form("FormComm");
  form.TxtIO(2).Visible = false;
  Port.Expect("#jf*").Wait(5.0);
  Line.SendCommand(form, 7);
  EXPECT_EQ(form.TxtIO(2).Text.Get(), "");
  EXPECT_EQ(form.TxtIOm.Text.Get(), "wait for machine answer [1]");
}

TEST_F(TransactionTest, EchoesAndLogsAtItsLevelOnly) {
  for (const int level : {0, 3, 7, 14, 16}) {
    Log.DebugLevel(level);
    Log.ApplyDebugLevel();
    Port.Expect("#jf*").Reply("A   5.2");
    Line.SendCommand(Form, 7);
    EXPECT_EQ(Form.TxtDbgIO(0).Text.Get(), "");
    EXPECT_FALSE(Files.FileExists(Folder.Path("ksvdebug.txt")));
  }
  Log.DebugLevel(15);
  Log.ApplyDebugLevel();
  Port.Expect("#doab*").Reply("aabK");
  const CommandCall call(Commands, 21, "ab");
  Line.SendCommand(Form, 21);
  EXPECT_EQ(Form.TxtDbgIO(0).Text.Get(), "#DOAB*");
  EXPECT_EQ(Form.TxtDbgIO(1).Text.Get(), "AABK");
  Log.CloseDebugLog();
  EXPECT_EQ(Folder.Get("ksvdebug.txt"), "#doab*: aabK\r\n");
}

}  // namespace
}  // namespace tintbench::link
