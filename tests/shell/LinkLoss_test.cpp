// A line that is lost while the main window is open, and what the operator's hand can do while the
// window links up again or closes.
#include <gtest/gtest.h>

#include <filesystem>

#include "shell/TestProgram.h"

namespace tintbench::testing {

namespace {

class LinkLoss : public ::testing::Test {
 protected:
  void Run(std::vector<std::function<void()>> hand) {
    test.Screen.Hand.assign(hand.begin(), hand.end());
    ASSERT_EQ(test.Run(), shell::Program::Result::Good);
    EXPECT_TRUE(test.Screen.Hand.empty());
  }
  shell::Form1& Window() { return test.MainWindow(); }
  std::string TakeWritten() { return std::exchange(test.Port->Written, {}); }
  void Pass(double seconds) { test.Screen.Pass(seconds); }
  void Tell(const char* words) { ASSERT_EQ(test.Machine().Tell(words), ""); }
  void LoseAndBringBack() {
    Pass(2);
    Tell("unplug");
    Pass(2);
    Tell("plug");
    Pass(2);
    TakeWritten();
  }

  TestProgram test;
};

// A valve that could not be closed is told when its window is gone, until it is closed.
TEST_F(LinkLoss, WhatIsLeftOnIsToldInTheMainWindow) {
  const auto maintain = [&](std::initializer_list<int> keys) {
    double after = 1;
    for (const int key : keys) {
      test.Screen.After(after, [&test = test, key] { test.Screen.Front()->PressKey(key, 0); });
      after += 20;
    }
    Window().MMnuMaint.Press();
  };
  Run({[&] {
    test.Screen.After(10, [&] { Tell("fault silent"); });
    maintain({ui::kKeyF1 + 2, ui::kKeyEsc});
    EXPECT_EQ(Window().LblOn.Caption.Get(),
              "Perhaps still switched on at the machine: electrovalve 01");
    EXPECT_TRUE(Window().LblOn.Visible);
    EXPECT_EQ(test.Program->LeftOn(), "electrovalve 01");
    Tell("fault none");
    maintain({ui::kKeyEsc});
    EXPECT_FALSE(Window().LblOn.Visible);
    Tell("check valves none");
  }});
}

// As when the display is taken away: no window closes, and nothing is asked.
TEST_F(LinkLoss, AProgramWithoutADisplayLeavesTheMachineAsItShould) {
  Run({[&] {
    test.Screen.After(1, [&] { test.Screen.Front()->PressKey(ui::kKeyF1 + 2, 0); });
    test.Screen.After(5, [&] {
      Tell("check valves 01");
      TakeWritten();
      test.Program->LetGoOfMachine();
      EXPECT_EQ(TakeWritten(), "#z*#pr*#ps*");
      test.Screen.Front()->PressKey(ui::kKeyEsc, 0);
    });
    Window().MMnuMaint.Press();
  }});
}

TEST_F(LinkLoss, LostLineIsToldOnceAndConnectedAgainOnlyByTheOperator) {
  Run({[&] {
         Pass(2);
         ASSERT_EQ(test.Machine().Tell("unplug"), "");
         Pass(3);
         EXPECT_EQ(Window().LblLink.Caption->substr(0, 33), "The line to the machine was lost.");
         EXPECT_FALSE(Window().Panels.ICheck1(0).Enabled);
         EXPECT_FALSE(Window().MnuMaint.Enabled);
         EXPECT_TRUE(Window().CmdReconnect.Visible);
         TakeWritten();
         Pass(600);
         ASSERT_EQ(test.Machine().Tell("plug"), "");
         Pass(30);
         EXPECT_EQ(TakeWritten(), "");
         EXPECT_EQ(Window().LblLink.Caption->substr(0, 22), "The line was lost, and");
         ASSERT_EQ(test.Machine().Tell("unplug"), "");
         Pass(2);
         EXPECT_EQ(Window().LblLink.Caption->substr(0, 33), "The line to the machine was lost.");
         ASSERT_EQ(test.Machine().Tell("plug"), "");
         Pass(2);
       },
       [&] {
         test.Screen.Alone([&] { Window().CmdReconnect.Press(); });
         EXPECT_EQ(Window().LblLink.Caption.Get(), "Machine linked, configuration known");
         EXPECT_FALSE(Window().CmdReconnect.Visible);
         Pass(3);
         EXPECT_EQ(Window().Panels.ILabel1.Caption.Get(), "Slave Address =1");
       }});
  EXPECT_TRUE(test.Screen.Boxes.empty());
}

// Link-up serves events; nothing else may get on its line.
TEST_F(LinkLoss, NothingStartsWhileItConnectsAgain) {
  Run({[&] { LoseAndBringBack(); },
       [&] {
         Window().CmdReconnect.Press();
         test.Screen.Hand.clear();
         EXPECT_EQ(TakeWritten().find("#ir*"), std::string::npos);
         EXPECT_EQ(test.Program->Status().LinkState, link::kConfigKnown);
         EXPECT_TRUE(Window().Poll().PollingOn());
       },
       [&] {
         EXPECT_FALSE(Window().Enabled);
         Window().PressKey(ui::kKeyEsc, 0);
         Window().Form_Click();
         EXPECT_FALSE(Window().Poll().PollingOn());
         // The hand rests as long as link-up serves events.
         test.Screen.Hand.assign(1000, [&] { Pass(0.1); });
       }});
  EXPECT_TRUE(test.Screen.Boxes.empty());
}

TEST_F(LinkLoss, CloseWaitsForTheEndOfLinkUp) {
  bool refused = false;
  Run({[&] { LoseAndBringBack(); }, [&] { Window().CmdReconnect.Press(); },
       [&] { refused = !test.Screen.CloseByOperator(Window()) && Window().Visible; }});
  EXPECT_TRUE(refused);
  EXPECT_FALSE(test.Port->PortOpen());
  EXPECT_EQ(test.Port->Written.find("#ir*"), std::string::npos);
}

TEST_F(LinkLoss, NothingStartsOnTheWayOut) {
  std::filesystem::create_directories(test.Folder.Path("CONFIGUR"));
  test.Folder.Put("CONFIGUR/KSSETTING.TXT", "serial , master\r\n");
  Run({[&] {
         Tell("fault silent #py*");
         Pass(2);
       },
       [&] {
         test.Screen.CloseByOperator(Window());
         test.Screen.Hand.clear();
         EXPECT_FALSE(test.Port->PortOpen());
       },
       [&] {
         Window().Form_Click();
         Window().PressKey(ui::kKeyEsc, 0);
         EXPECT_FALSE(Window().Poll().PollingOn());
         // The hand rests as long as the way out serves events.
         test.Screen.Hand.assign(1000, [&] { Pass(0.1); });
       }});
  const std::string written = TakeWritten();
  ASSERT_NE(written.find("#PY*"), std::string::npos);
  EXPECT_EQ(written.substr(written.find("#PY*")), "#PY*");
}

TEST_F(LinkLoss, LostBehindASubWindowOrWhilePausedIsToldInTheWindowAlone) {
  Run({[&] {
         Pass(2);
         Window().MnuAutotest.Press();
       },
       [&] {
         TakeWritten();
         Tell("unplug");
         test.Screen.CloseByOperator(*test.Screen.Front());
       },
       [&] {
         EXPECT_EQ(TakeWritten(), "");
         EXPECT_EQ(Window().LblLink.Caption->substr(0, 33), "The line to the machine was lost.");
         EXPECT_FALSE(Window().LblHint.Visible);
         EXPECT_TRUE(Window().CmdResize(0).Enabled);
       }});
  EXPECT_TRUE(test.Screen.Boxes.empty());
}

// A link-up that found nothing is tried again as it was asked for: on all ports.
TEST(LaptopFirst, MachineIsFoundOnWhicheverPortItIsThen) {
  TestProgram test({{1, std::nullopt}, {2, {{}}}});
  ASSERT_EQ(test.Machine(2).Tell("power off"), "");
  test.Screen.Hand = {[&] {
    ASSERT_TRUE(test.MainWindow().CmdReconnect.Visible);
    ASSERT_EQ(test.Machine(2).Tell("power on"), "");
    test.Screen.Pass(5);
    test.Screen.Alone([&] { test.MainWindow().CmdReconnect.Press(); });
    EXPECT_EQ(test.MainWindow().MMnuSerPort.Caption.Get(), "port2: 19200,N,8,1");
    EXPECT_EQ(test.Program->Status().LinkState, link::kConfigKnown);
  }};
  test.Run();
}

// The maintenance menu must not be the only one that works while a panel is large.
TEST_F(LinkLoss, LargePanelKeepsItsMenusAfterConnectingAgain) {
  Run({[&] {
         Pass(2);
         Window().PressKey('I', ui::kCtrl);
         LoseAndBringBack();
       },
       [&] {
         test.Screen.Alone([&] { Window().CmdReconnect.Press(); });
         EXPECT_FALSE(Window().MnuMaint.Enabled);
         EXPECT_FALSE(Window().MnuMachConf.Enabled);
         Window().PressKey('I', ui::kCtrl);
         EXPECT_TRUE(Window().MnuMaint.Enabled);
       }});
}

}  // namespace

}  // namespace tintbench::testing
