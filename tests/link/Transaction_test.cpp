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

// Notes what it is told to show.
struct NotingView final : LineView {
  void ShowCountdown(std::span<const state::Panel> panels, const std::string& text) override {
    Panels.assign(panels.begin(), panels.end());
    Countdown.push_back(text);
  }
  void ShowSent(const std::string& text) override { Echo += "> " + text + "\n"; }
  void ShowReceived(const std::string& text) override { Echo += "< " + text + "\n"; }

  std::vector<state::Panel> Panels;
  std::vector<std::string> Countdown;
  std::string Echo;
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
  NotingView View;
};

struct AnswerCase {
  std::string Name;
  CommandId Row;
  std::string Command;
  std::function<void(ScriptedPort&)> Machine;  // behind the command
  std::string Answer;
  double Seconds;
};

TEST(TransactionAnswers, AreWholeByCountOrByQuiet) {
  const std::vector<AnswerCase> cases{
      {"at once", CommandId::ReadInputs, "#ir*", [](ScriptedPort& p) { p.Reply("A0FFFFFFF"); },
       "A0FFFFFFF", 0.3},
      {"after a second", CommandId::ReadInputs, "#ir*",
       [](ScriptedPort& p) { p.Wait(1.0).Reply("A0FFFFFFF"); }, "A0FFFFFFF", 1.2},
      {"in two parts", CommandId::ReadInputs, "#ir*",
       [](ScriptedPort& p) { p.Reply("A0FF").Wait(0.5).Reply("FFFFF"); }, "A0FFFFFFF", 0.9},
      {"one too many is read at the time-out", CommandId::ReadInputs, "#ir*",
       [](ScriptedPort& p) { p.Reply("A0FFFFFFFF"); }, "A0FFFFFFFF", 5.1},
      {"one too few is read at the time-out", CommandId::ReadInputs, "#ir*",
       [](ScriptedPort& p) { p.Reply("A0FFFFFF"); }, "A0FFFFFF", 5.1},
      {"silence", CommandId::ReadInputs, "#ir*", [](ScriptedPort&) {}, "", 5.1},
      {"letters as they came", CommandId::FirmwareVersion, "#jf*",
       [](ScriptedPort& p) { p.Reply("a   5.b"); }, "a   5.b", 0.3},
      {"quiet line", CommandId::ReadStatus, "#s*", [](ScriptedPort& p) { p.Reply("K00"); }, "K00",
       0.3},
      {"quiet line waits while bytes come", CommandId::ReadStatus, "#s*",
       [](ScriptedPort& p) { p.Wait(0.24).Reply("K0").Wait(0.04).Reply("0"); }, "K00", 0.6},
      {"quiet line in silence", CommandId::ReadStatus, "#s*", [](ScriptedPort&) {}, "", 5.1},
      {"ten seconds", CommandId::Reset, "#h*", [](ScriptedPort&) {}, "", 10.2},
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
    NotingView view;
    EXPECT_EQ(line.SendCommand(view, wanted.Row), wanted.Answer);
    EXPECT_NEAR(clock.Now(), wanted.Seconds, 0.001);
    EXPECT_FALSE(line.IsSerialBusy());
    EXPECT_TRUE(screen.Boxes.empty());
  }
}

TEST_F(TransactionTest, ExpectsTheArgumentBackForARowWithoutLength) {
  Port.Expect("#a010203*").Reply("A010203");
  const CommandCall call(Commands, CommandId::ValvesOn, "010203");
  EXPECT_EQ(Line.SendCommand(View, CommandId::ValvesOn), "A010203");
  EXPECT_NEAR(Clock.Now(), 0.3, 0.001);
}

TEST_F(TransactionTest, KeepsWhatWasLeftInFrontOfTheNewAnswer) {
  Port.Reply("late").Expect("#ir*").Reply("A0FFFFFFF");
  EXPECT_EQ(Line.SendCommand(View, CommandId::ReadInputs), "lateA0FFFFFFF");
}

TEST_F(TransactionTest, SendsNothingOnAClosedPortAndSaysSo) {
  Port.PortOpen(false);
  EXPECT_EQ(Line.SendCommand(View, CommandId::ReadInputs), "");
  ASSERT_EQ(Screen.Boxes.size(), 1U);
  EXPECT_EQ(Screen.Boxes[0].Text, "Serial port NOT open!");
  EXPECT_EQ(Screen.Boxes[0].Icon, ui::BoxIcon::Plain);
  EXPECT_FALSE(Line.IsSerialBusy());
}

TEST_F(TransactionTest, GivesNothingWhileAnotherOneRuns) {
  std::string inner = "not called";
  Port.Expect("#ir*").Do([&] {
    EXPECT_TRUE(Line.IsSerialBusy());
    inner = Line.SendCommand(View, CommandId::ReadOutputs);
  });
  Port.Reply("A0FFFFFFF");
  EXPECT_EQ(Line.SendCommand(View, CommandId::ReadInputs), "A0FFFFFFF");
  EXPECT_EQ(inner, "");
}

TEST_F(TransactionTest, EndsAtOnceWhenThePortIsLost) {
  Port.Expect("#h*").Wait(1.0).Disconnect();
  EXPECT_EQ(Line.SendCommand(View, CommandId::Reset), "");
  EXPECT_LT(Clock.Now(), 1.4);
}

TEST_F(TransactionTest, CountsDownForThePanelsOfItsRow) {
  struct Place {
    CommandId Row;
    std::string Command;
    std::vector<state::Panel> Panels;
  };
  const std::vector<Place> places{
      {CommandId::ReadInputs, "#ir*", {state::kInputPanel}},
      {CommandId::ReadOutputs, "#ur*", {state::kOutputPanel}},
      {CommandId::ReadInputsAndOutputs, "#iu*", {state::kInputPanel, state::kOutputPanel}},
      {CommandId::ReadStatus, "#s*", {state::kStatusPanel}},
      {CommandId::FirmwareVersion, "#jf*", {}},
  };
  for (const Place& place : places) {
    SCOPED_TRACE(place.Command);
    NotingView view;
    Port.Expect(place.Command).Wait(5.0);
    Line.SendCommand(view, place.Row);
    EXPECT_EQ(view.Panels, place.Panels);
    EXPECT_EQ(view.Countdown, (std::vector<std::string>{
                                  "wait for machine answer [5]", "wait for machine answer [4]",
                                  "wait for machine answer [3]", "wait for machine answer [2]",
                                  "wait for machine answer [1]"}));
  }
}

TEST_F(TransactionTest, EchoesAndLogsAtItsLevelOnly) {
  for (const int level : {0, 3, 7, 14, 16}) {
    Log.DebugLevel(level);
    Log.ApplyDebugLevel();
    Port.Expect("#jf*").Reply("A   5.2");
    Line.SendCommand(View, CommandId::FirmwareVersion);
    EXPECT_EQ(View.Echo, "");
    EXPECT_FALSE(Files.FileExists(Folder.Path("ksvdebug.txt")));
  }
  Log.DebugLevel(15);
  Log.ApplyDebugLevel();
  Port.Expect("#doab*").Reply("aabK");
  const CommandCall call(Commands, CommandId::CapOpen, "ab");
  Line.SendCommand(View, CommandId::CapOpen);
  EXPECT_EQ(View.Echo, "> #DOAB*\n< \n< AABK\n");
  Log.CloseDebugLog();
  EXPECT_EQ(Folder.Get("ksvdebug.txt"), "#doab*: aabK\r\n");
}

}  // namespace
}  // namespace tintbench::link
