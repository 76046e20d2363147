// The main window on the virtual clock: polling, menus, the order around sub-windows, large panels
// and styles, debug levels, and the care for the link.
#include <gtest/gtest.h>

#include "shell/TestProgram.h"

namespace tintbench::testing {

namespace {

constexpr double kTick = 0.9;

class MainWindow : public ::testing::Test {
 protected:
  // Runs the program; `hand` acts, one thing at a time, once polling has begun.
  void Run(std::vector<std::function<void()>> hand, const std::string& commandLine = {}) {
    test.Screen.Hand.assign(hand.begin(), hand.end());
    test.Screen.Hand.push_front([this] { test.Port->Written.clear(); });
    ASSERT_EQ(test.Run(commandLine), shell::Program::Result::Good);
    EXPECT_TRUE(test.Screen.Hand.empty());
  }
  shell::Form1& Window() { return test.MainWindow(); }
  std::string TakeWritten() { return std::exchange(test.Port->Written, {}); }
  void Pass(double seconds) { test.Screen.Pass(seconds); }
  // True if the four panels and their menus stand as ever.
  bool AllShown() {
    bool shown = Window().MnuMachConf.Enabled && Window().MnuMaint.Enabled;
    for (int panel = 0; panel < state::kPanels; ++panel) {
      shown = shown && Window().CmdResize(panel).Visible && Window().Panels.Frame(panel).Visible;
    }
    return shown;
  }

  TestProgram test;
};

TEST_F(MainWindow, FirstFiveTicksOnTheWire) {
  Run({[&] {
    EXPECT_EQ(Window().Panels.ILabel1.Caption.Get(), "[ STARTING POLLING ]");
    Pass(0.79);
    EXPECT_EQ(TakeWritten(), "");
    Pass(5 * kTick);
    EXPECT_EQ(TakeWritten().substr(0, 38), "#s*#ir*#ur*#ir*#ur*#ir*#ur*#ir*#ur*#s*");
    EXPECT_EQ(Window().Panels.ILabel1.Caption.Get(), "Slave Address =1");
    EXPECT_EQ(Window().Panels.ErLabel1.Caption.Get(), "Slave NO busy: errors = 0");
  }});
}

TEST_F(MainWindow, GoodBadAndAgainGoodAnswer) {
  Run({[&] {
    Pass(2);
    const ui::Colour before = Window().Panels.ICheck1(0).BackColor;
    ASSERT_EQ(test.Machine().Tell("fault short 3"), "");
    Pass(20);
    EXPECT_EQ(Window().Panels.ILabel1.Caption.Get(), "[ INVALID DATA ]");
    EXPECT_FALSE(Window().Panels.ICheck1(0).Enabled);
    ASSERT_EQ(test.Machine().Tell("fault none"), "");
    Pass(20);
    EXPECT_EQ(Window().Panels.ILabel1.Caption.Get(), "Slave Address =1");
    EXPECT_TRUE(Window().Panels.ICheck1(0).Enabled);
    EXPECT_EQ(Window().Panels.ICheck1(0).BackColor.Get(), before);
    EXPECT_NE(Window().LblQuality.Caption->find("bad"), std::string::npos);
  }});
}

TEST_F(MainWindow, MinimisedIsSilentAndTheMachinesChangesComeAfterwards) {
  Run({[&] {
    Pass(2);
    Window().WindowState = ui::kMinimisedWindow;
    TakeWritten();
    Pass(60);
    EXPECT_EQ(TakeWritten(), "");
    ASSERT_EQ(test.Machine().Tell("error 1103"), "");
    Window().WindowState = ui::kNormalWindow;
    EXPECT_EQ(Window().WindowState.Get(), ui::kMaximisedWindow);
    Pass(5);
    EXPECT_EQ(Window().Panels.ErText1.Text.Get(),
              "1103 Encoder damaged on motor-pump unit [ 3 ] \r\n");
  }});
}

// Every item: polling stops at the title, the machine is held, the panels hide, the window shows
// with its title, and all is undone in reverse.
TEST_F(MainWindow, EachItemHoldsTheMachineAroundItsWindow) {
  struct Item {
    ui::Menu shell::Form1::*Title;
    ui::Menu shell::Form1::*Entry;  // nullptr: the title itself
    const char* Form;
    const char* Caption;
    const char* Leaving = "";  // what the window sends as it closes
  };
  using F = shell::Form1;
  const Item items[] = {
      {&F::MnuMachConf, &F::MMnuGetconf, "FormXmod", "Configuration"},
      {&F::MnuMachConf, &F::MMnuLoadfirmw, "FormXmod", "Firmware"},
      {&F::MnuMachConf, &F::MMnuGetstat, "FormStat", "Statistical Data"},
      {&F::MnuPar, &F::MMnuSerPort, "FormXmod", "Machine Link"},
      {&F::MnuMaint, &F::MMnuMaint, "FormComm",
       "TintBench  v. 1.2.  Maintenance Menu  [ PUSH < ESC > FOR EXIT ]", "#z*"},
      {&F::MnuMaint, &F::MMnuCommand, "FormComm",
       "TintBench  v. 1.2.  Command Menu  [ PUSH < ESC > FOR EXIT ]", "#z*"},
      {&F::MnuAutotest, nullptr, "FormAuto", "AUTOTEST  INFORMATIONS"},
  };
  std::vector<std::function<void()>> hand;
  for (const Item& item : items) {
    hand.push_back([this] {
      Pass(2);
      TakeWritten();
    });
    if (item.Entry != nullptr) {
      hand.push_back([this, &item] {
        (Window().*item.Title).Press();
        EXPECT_EQ(Window().Panels.OLabel1.Caption.Get(), "[ PAUSING POLLING ]");
        EXPECT_TRUE(Window().LblHint.Visible);
        EXPECT_FALSE(Window().CmdResize(0).Enabled);
        Pass(3);
        EXPECT_EQ(TakeWritten(), "");
      });
    }
    hand.push_back([this, &item] { (Window().*(item.Entry ? item.Entry : item.Title)).Press(); });
    hand.push_back([this, &item] {
      SCOPED_TRACE(item.Caption);
      ASSERT_EQ(test.Screen.Front()->Name(), item.Form);
      EXPECT_EQ(test.Screen.Front()->Caption.Get(), item.Caption);
      EXPECT_EQ(TakeWritten(), "#pb*#pm*");
      EXPECT_FALSE(Window().Panels.Frame(2).Visible);
      EXPECT_FALSE(Window().MnuMachConf.Enabled);
      EXPECT_FALSE(Window().MnuMaint.Enabled);
      Pass(5);
      EXPECT_EQ(TakeWritten(), "");
      test.Screen.CloseByOperator(*test.Screen.Front());
    });
    hand.push_back([this, &item] {
      EXPECT_EQ(TakeWritten(), item.Leaving + std::string("#pr*#ps*"));
      EXPECT_TRUE(AllShown());
      EXPECT_TRUE(Window().Poll().PollingOn());
    });
  }
  Run(hand);
  EXPECT_TRUE(test.Screen.Boxes.empty());
}

TEST_F(MainWindow, RefusedHoldSendsNoSecondCommandAndOpensAllTheSame) {
  Run({[&] { ASSERT_EQ(test.Machine().Tell("fault refuse #pb*"), ""); },
       [&] { Window().MMnuCommand.Press(); },
       [&] {
         EXPECT_EQ(test.Screen.Front()->Name(), "FormComm");
         EXPECT_EQ(TakeWritten(), "#pb*");
         test.Screen.CloseByOperator(*test.Screen.Front());
       }});
}

TEST_F(MainWindow, TitlesStopPollingAndEscapeOrAClickGoesOn) {
  using F = shell::Form1;
  std::vector<std::function<void()>> hand;
  for (const auto title : {&F::MnuMachConf, &F::MnuMaint, &F::MnuPar, &F::MnuGroupsMonitor}) {
    for (const bool byKey : {true, false}) {
      hand.push_back([this, title, byKey] {
        (Window().*title).Press();
        EXPECT_FALSE(Window().Poll().PollingOn());
        if (byKey) {
          Window().PressKey(ui::kKeyEsc, 0);
        } else {
          Window().Form_Click();
        }
        EXPECT_TRUE(Window().Poll().PollingOn());
        EXPECT_FALSE(Window().LblHint.Visible);
      });
    }
  }
  hand.push_back([this] {
    Window().MnuIOmonitor.Press();
    EXPECT_TRUE(Window().Poll().PollingOn());
  });
  Run(hand);
}

TEST_F(MainWindow, LargePanelAndBackWithAStyleChangeInBetween) {
  Run({[&] { Pass(2); },
       [&] {
         Window().CmdResize(0).Press();
         EXPECT_EQ(Window().CmdResize(0).Tag.Get(), "1");
         EXPECT_EQ(Window().ActiveControl(), &Window().CmdResize(0));
         EXPECT_TRUE(Window().Panels.Frame(0).Visible);
         EXPECT_DOUBLE_EQ(Window().Panels.Frame(0).Width, state::kClientWidth - 600);
         EXPECT_FALSE(Window().CmdResize(1).Visible);
         EXPECT_FALSE(Window().Panels.Frame(3).Visible);
         EXPECT_FALSE(Window().MnuPar.Enabled);
         EXPECT_TRUE(Window().Poll().PollingOn());
       },
       [&] {
         Window().CmdResize(0).PressButton({.Button = ui::kRightButton});
         EXPECT_TRUE(Window().Panels.IShape3(0).Visible);
         EXPECT_FALSE(Window().Panels.ICheck1(0).Visible);
         Window().PressKey('O', ui::kCtrl);
         EXPECT_EQ(Window().CmdResize(1).Tag.Get(), "0");
       },
       [&] {
         Window().PressKey('I', ui::kCtrl);
         EXPECT_EQ(Window().CmdResize(0).Tag.Get(), "0");
         EXPECT_TRUE(AllShown());
         EXPECT_TRUE(Window().Panels.IShape3(0).Visible);
         EXPECT_TRUE(Window().Panels.OShape3(0).Visible);
         EXPECT_NEAR(Window().Panels.Frame(0).Left, state::kClientWidth / 48, 0.01);
         EXPECT_NEAR(Window().CmdResize(0).Top, state::kClientHeight * 5 / 96 - 260, 0.01);
         EXPECT_EQ(Window().ActiveControl(), &Window().Panels.GRPicIOcard);
         EXPECT_TRUE(Window().WCircleBox.Checked);
       }});
}

TEST_F(MainWindow, KeysStepStylesAndToggleThePanels) {
  struct Case {
    int Code;
    int Shift;
    int Sensor;
    int Graphic;
    int Large;  // panel, -1 for none
  };
  const Case cases[] = {
      {'I', ui::kShift, 2, 1, -1}, {'O', ui::kShift, 3, 1, -1}, {'I', ui::kShift, 1, 1, -1},
      {'G', ui::kShift, 1, 2, -1}, {'G', ui::kShift, 1, 1, -1}, {'S', ui::kCtrl, 1, 1, 2},
      {'S', ui::kCtrl, 1, 1, -1},  {'G', ui::kCtrl, 1, 1, 3},   {'G', ui::kCtrl, 1, 1, -1},
      {'G', 0, 1, 1, -1},          {'S', ui::kShift, 1, 1, -1}, {'X', ui::kCtrl, 1, 1, -1},
  };
  std::vector<std::function<void()>> hand;
  for (const Case& wanted : cases) {
    hand.push_back([this, &wanted] {
      SCOPED_TRACE(std::to_string(wanted.Code) + " " + std::to_string(wanted.Shift));
      Window().PressKey(wanted.Code, wanted.Shift);
      const state::SensorPanels& panels = Window().Panels;
      EXPECT_EQ(panels.ICheck1(0).Visible.Get(), wanted.Sensor == 1);
      EXPECT_EQ(panels.IShape3(0).Visible.Get(), wanted.Sensor == 2);
      EXPECT_EQ(panels.ICheck2(0).Visible.Get(), wanted.Sensor == 3);
      EXPECT_EQ(panels.GRShape1(0).Form == ui::kCircle, wanted.Graphic == 2);
      for (int panel = 0; panel < state::kPanels; ++panel) {
        EXPECT_EQ(Window().CmdResize(panel).Tag.Get(), panel == wanted.Large ? "1" : "0");
      }
      EXPECT_TRUE(Window().Poll().PollingOn());
    });
  }
  hand.push_back([this] {
    Window().PressKey('E', ui::kCtrl);
    EXPECT_EQ(Window().ActiveControl(), &Window().Panels.ErText1);
  });
  Run(hand);
}

TEST_F(MainWindow, OldFirmwareIsToldBeforeTheMaintenanceMenu) {
  struct Case {
    const char* Firmware;
    const char* Words;
  };
  for (const Case& wanted :
       {Case{"3.1", "MUST BE UPGRADED"}, Case{"abc", "NO FIRMWARE IS LOADED"}}) {
    TestProgram old({{1, simulator::MachineOptions{.Firmware = wanted.Firmware}}});
    std::size_t boxes = 0;
    bool hidden = false;
    old.Screen.Hand = {[&] { boxes = old.Screen.Boxes.size(); },
                       [&] { old.MainWindow().MMnuMaint.Press(); },
                       [&] { hidden = !old.MainWindow().Panels.Frame(0).Visible; }};
    old.Run();
    EXPECT_TRUE(hidden);
    ASSERT_EQ(old.Screen.Boxes.size(), boxes + 1);
    EXPECT_NE(old.Screen.Boxes.back().Text.find(wanted.Words), std::string::npos);
  }
}

TEST(MainWindowWithoutMachine, SendsNothingAndOpensAllTheSame) {
  TestProgram test({{1, std::nullopt}});
  test.Screen.Hand = {[&] {
                        test.Port->Written.clear();
                        EXPECT_FALSE(test.MainWindow().Poll().PollingOn());
                        EXPECT_EQ(test.MainWindow().Panels.ILabel1.Caption.Get(), "");
                        EXPECT_TRUE(test.MainWindow().MnuMaint.Enabled);
                        EXPECT_EQ(test.MainWindow().Panels.GRLabel1.Caption.Get(),
                                  "Machine version [-1]");
                        test.MainWindow().MMnuGetstat.Press();
                      },
                      [&] {
                        EXPECT_EQ(test.Screen.Front()->Name(), "FormStat");
                        test.Screen.CloseByOperator(*test.Screen.Front());
                      }};
  test.Run();
  EXPECT_TRUE(test.Screen.Hand.empty());
  EXPECT_EQ(test.Port->Written, "");
}

TEST_F(MainWindow, DebugLevelsByTheMenu) {
  using F = shell::Form1;
  struct Case {
    ui::Menu shell::Form1::*Item;
    const char* Title;
    bool Frame;
  };
  const Case cases[] = {{&F::MMnuksvdbg03, "&Debug Level [ 3 ] ", false},
                        {&F::MMnuksvdbg15, "&Debug Level [ 15 ] ", true},
                        {&F::MMnuksvdbg07, "&Debug Level [ 7 ] ", false}};
  std::vector<std::function<void()>> hand;
  for (const Case& wanted : cases) {
    hand.push_back([this, &wanted, &cases] {
      Window().MnuKsvdbg.Press();
      EXPECT_FALSE(Window().Poll().PollingOn());
      (Window().*wanted.Item).Press();
      EXPECT_EQ(Window().MnuKsvdbg.Caption.Get(), wanted.Title);
      EXPECT_EQ(Window().Debug.FrmDbg.Visible.Get(), wanted.Frame);
      for (const Case& other : cases) {
        EXPECT_EQ((Window().*other.Item).Checked.Get(), other.Item == wanted.Item);
      }
      EXPECT_FALSE(Window().MMnuksvdbgEdit.Checked);
      EXPECT_TRUE(Window().Poll().PollingOn());
    });
  }
  Run(hand, "KSVDEBUG(3)");
}

// Each switch to level 15 begins a new log; the lines between belong to no log.
TEST_F(MainWindow, LogBeginsAnewAtEachSwitchToItsLevel) {
  Run({[&] { Pass(3); }, [&] { Window().MMnuksvdbg03.Press(); },
       [&] {
         EXPECT_EQ(test.Folder.Get("ksvdebug.txt").substr(0, 6), "#jf*: ");
         Pass(3);
         Window().MMnuksvdbg15.Press();
       },
       [&] {
         EXPECT_EQ(test.Folder.Get("ksvdebug.txt"), "");
         EXPECT_EQ(Window().Debug.TxtDbgIO(0).Text->empty(), false);
         Pass(3);
         Window().MMnuksvdbgEdit.Press();
       },
       [&] { test.Screen.Front()->PressKey(ui::kKeyEsc, 0); },
       [&] { EXPECT_NE(test.Folder.Get("ksvdebug.txt"), ""); }},
      "KSVDEBUG(15)");
}

TEST_F(MainWindow, LevelIsEditedInItsDialog) {
  struct Case {
    const char* Typed;
    int Key;
    const char* Caption;
  };
  const Case cases[] = {
      {"5", ui::kKeyEnter, "Edit Level[ 5 ] "},    {"9", ui::kKeyEsc, "Edit Level[ 5 ] "},
      {"-7", ui::kKeyEnter, "Edit Level[ -7 ] "},  {"5x", ui::kKeyEnter, "Edit Level[ 5 ] "},
      {"many", ui::kKeyEnter, "Edit Level[ 0 ] "}, {"15", ui::kKeyEnter, "Edit Level[ - ]"}};
  std::vector<std::function<void()>> hand;
  for (const Case& wanted : cases) {
    hand.push_back([this] { Window().MMnuksvdbgEdit.Press(); });
    hand.push_back([this, &wanted] {
      ui::Form& dialog = *test.Screen.Front();
      ASSERT_EQ(dialog.Name(), "FormDbg");
      EXPECT_EQ(dialog.Caption.Get(), "EDIT DEBUG LEVEL (0=null)");
      auto* const box = dialog.Find<ui::TextBox>("TxtDbgLev");
      EXPECT_EQ(dialog.ActiveControl(), box);
      box->Text = wanted.Typed;
      dialog.PressKey(wanted.Key, 0);
    });
    hand.push_back([this, &wanted] {
      EXPECT_EQ(Window().MMnuksvdbgEdit.Caption.Get(), wanted.Caption);
      EXPECT_EQ(Window().Debug.FrmDbg.Visible.Get(), std::string(wanted.Typed) == "15");
    });
  }
  Run(hand, "KSVDEBUG(5)");
}

}  // namespace

}  // namespace tintbench::testing
