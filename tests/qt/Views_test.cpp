// The views of the splash panel and of the main window, on forms with the controls that they know.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

#include "qt/DesktopScreen.h"
#include "qt/EveryKind.h"
#include "qt/StandardViews.h"

namespace tintbench::desktop {

namespace {

struct Splash : ui::Form {
  Splash() : ui::Form("frmSplsh") {
    lblProductName.Caption = "Product";
    lblVersion.Caption = "Ver. 1.0";
  }
  ui::Label lblProductName{*this, "lblProductName"};
  ui::Label lblVersion{*this, "lblVersion"};
  int Presses = 0;
  bool IsSplash() const override { return true; }
  void Form_Click() override { ++Presses; }
  void Form_KeyDown(ui::KeyEvent&) override { ++Presses; }
};

struct Main : ui::Form {
  Main() : ui::Form("Form1") {
    ILabel1.Caption = "[ STARTING POLLING ]";
    FrmDbg.Caption = "I/O Debug ";
    FrmDbg.Visible = false;
  }
  ui::Menu MnuAutotest{*this, "MnuAutotest", "Autotes&t Info"};
  ui::ControlArray<ui::Frame> Frame{*this, "Frame", 4};
  ui::Label ILabel1{Frame(0), "ILabel1"};
  ui::Label OLabel1{Frame(1), "OLabel1"};
  ui::Label ErLabel1{Frame(2), "ErLabel1"};
  ui::Frame FrmDbg{*this, "FrmDbg"};
  ui::ControlArray<ui::TextBox> TxtDbgIO{FrmDbg, "TxtDbgIO", 2};
};

class Views : public testing::Test {
 protected:
  Views() { AddStandardViews(screen); }
  base::RealClock clock;
  DesktopScreen screen{clock};
};

TEST_F(Views, SplashIsSeenAtOnceAndFeelsTheHand) {
  Splash form;
  screen.Show(form);
  FormWindow& window = *screen.WindowFor(form);
  EXPECT_TRUE(window.windowHandle()->isExposed());
  EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
  auto* const name = WidgetOf<QLabel>(window, form.lblProductName);
  ASSERT_NE(name, nullptr);
  EXPECT_EQ(name->text(), "Product");
  EXPECT_EQ(WidgetOf<QLabel>(window, form.lblVersion)->text(), "Ver. 1.0");
  QTest::mouseClick(name, Qt::LeftButton);
  QTest::mouseClick(window.centralWidget(), Qt::LeftButton);
  QTest::keyClick(&window, Qt::Key_Period);
  EXPECT_EQ(form.Presses, 3);
  screen.Unload(form);
}

TEST_F(Views, MainWindowShowsStatesAndDebugFrame) {
  Main form;
  screen.Show(form);
  FormWindow& window = *screen.WindowFor(form);
  auto* const state = WidgetOf<QLabel>(window, form.ILabel1);
  ASSERT_NE(state, nullptr);
  EXPECT_TRUE(state->isVisible());
  form.Frame(0).Visible = false;
  EXPECT_FALSE(state->isVisible());
  form.Frame(0).Visible = true;
  form.ILabel1.Caption = std::string(200, 'w') + " " + std::string(200, 'w');
  QCoreApplication::processEvents();
  EXPECT_EQ(window.minimumSizeHint().width() < 1000, true) << "a long text must not widen it";

  auto* const debug = WidgetOf<QGroupBox>(window, form.FrmDbg);
  ASSERT_NE(debug, nullptr);
  EXPECT_FALSE(debug->isVisible());
  form.FrmDbg.Visible = true;
  EXPECT_TRUE(debug->isVisible());
  EXPECT_EQ(debug->title(), "I/O Debug ");
  form.TxtDbgIO(1).Text = "A00";
  EXPECT_EQ(WidgetOf<QLineEdit>(window, form.TxtDbgIO(1))->text(), "A00");
  screen.Unload(form);
}

// A window of that name with nothing that the view knows must not be the end of it.
TEST_F(Views, MissingControlsAreLeftOut) {
  for (const char* name : {"Form1", "frmSplsh"}) {
    ui::Form form(name);
    screen.Show(form);
    EXPECT_TRUE(screen.WindowFor(form)->isVisible());
    screen.Unload(form);
  }
}

}  // namespace

}  // namespace tintbench::desktop
