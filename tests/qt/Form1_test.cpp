// The main window as the operator has it before him: real menus, buttons and keys, and what the
// real widgets show. What operator scripts play as well is left to them.
#include <gtest/gtest.h>

#include <QGraphicsEffect>
#include <QImage>
#include <QLabel>
#include <QPaintEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>
#include <cstdlib>

#include "qt/Desk.h"
#include "qt/Inspect.h"
#include "qt/Look.h"
#include "qt/PictureWidget.h"
#include "qt/SensorIndicator.h"
#include "state/CardLayout.h"

namespace tintbench::desktop {

namespace {

class MainWindow : public Desk {
 protected:
  FormWindow& Window() { return Desk::Window(*main); }
  QString Words(ui::Label& label) { return Of<QLabel>(label).text(); }
  // How many pixels of a text, written over another, differ on the screen from a fresh drawing.
  int GhostsIn(ui::TextBox& texts) {
    for (const char* text : {"WWWWWWWW", "iiii"}) {
      texts.Text = text;
      Pass(1);
    }
    const auto& widget = Of<QWidget>(texts);
    const QRect place(widget.mapTo(&Window(), QPoint(0, 0)), widget.size());
    const QImage shown = Window().screen()->grabWindow(Window().winId()).toImage().copy(place);
    const QImage fresh = Window().grab(place).toImage();
    EXPECT_EQ(shown.size(), fresh.size());
    constexpr int kRounding = 4;
    int ghosts = 0;
    for (int y = 0; y < fresh.height(); ++y) {
      for (int x = 0; x < fresh.width(); ++x) {
        const int difference = qGray(shown.pixel(x, y)) - qGray(fresh.pixel(x, y));
        if (std::abs(difference) > kRounding) ++ghosts;
      }
    }
    return ghosts;
  }
  SensorIndicator& Pill(int bit) { return Of<SensorIndicator>(main->Panels.ICheck1(bit)); }
  QPushButton& Head(int panel) { return Of<QPushButton>(main->CmdResize(panel)); }
  QWidget& Panel(int panel) { return Of<QWidget>(main->Panels.Frame(panel)); }

  void ExpectPanelsApart() {
    std::vector<QRect> taken;
    for (int panel = 0; panel < state::kPanels; ++panel) {
      EXPECT_GE(Head(panel).height(), Head(panel).fontMetrics().height());
      for (const QRect& place : {Head(panel).geometry(), Panel(panel).geometry()}) {
        for (const QRect& other : taken) EXPECT_FALSE(place.intersects(other)) << panel;
        taken.push_back(place);
      }
    }
  }
  // One below the other, each behind its indicator.
  void ExpectRowsApart() {
    int foot = 0;
    for (int bit = 0; bit < state::kInputBits; ++bit) {
      const auto& name = Of<QLabel>(main->Panels.ILabel3(bit));
      if (!name.isVisible()) continue;
      EXPECT_GE(name.y(), foot) << bit;
      EXPECT_LT(Pill(bit).geometry().right(), name.x()) << bit;
      foot = name.y() + name.height();
    }
  }
};

TEST_F(MainWindow, SensorsAreThereToBeReadNotToBePressed) {
  Run([this] {
    machine.Tell("input 3 on");
    Pass(6);
    EXPECT_TRUE(Pill(2).isChecked());
    Press(Pill(2));
    EXPECT_TRUE(Pill(2).isChecked());
    EXPECT_TRUE(Of<QPlainTextEdit>(main->Panels.ErText1).isReadOnly());
    machine.Tell("fault short 1 #ir*");
    Pass(12);
    EXPECT_FALSE(Pill(2).isEnabled());
  });
}

TEST_F(MainWindow, PanelsGrowOverAllAndComeBackToTheirPlace) {
  Run([this] {
    const QRect small = Panel(0).geometry();
    Press(Head(0));
    EXPECT_FALSE(Panel(1).isVisible());
    EXPECT_FALSE(Head(3).isVisible());
    EXPECT_GT(Panel(0).width(), 2 * small.width());
    Key(Qt::Key_I, Qt::ControlModifier);
    EXPECT_TRUE(Panel(1).isVisible());
    EXPECT_EQ(Panel(0).geometry(), small);
    Press(Head(1), Qt::RightButton);
    EXPECT_FALSE(Pill(0).isVisible());
    EXPECT_TRUE(Of<QWidget>(main->Panels.IShape3(0)).isVisible());
  });
}

TEST_F(MainWindow, AMenuTitlePausesAndEscGoesOn) {
  Run([this] {
    Press(main->MnuMachConf);
    EXPECT_TRUE(Of<QLabel>(main->LblHint).isVisible());
    EXPECT_FALSE(Head(0).isEnabled());
    Window().LeaveMenus();
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Of<QLabel>(main->LblHint).isVisible());
    EXPECT_TRUE(main->Poll().PollingOn());
  });
}

TEST_F(MainWindow, PointerOnTheCardNamesTheSensor) {
  Run([this] {
    auto& card = Of<PictureWidget>(main->Panels.GRPicIOcard);
    const state::CardPlace lamp = state::SocketLampPlace(3);
    const double scale =
        std::min(card.width() / state::kCardWidth, card.height() / state::kCardHeight);
    const QPointF corner((card.width() - state::kCardWidth * scale) / 2,
                         (card.height() - state::kCardHeight * scale) / 2);
    const QPointF middle(lamp.Left + lamp.Width / 2, lamp.Top + lamp.Height / 2);
    QTest::mouseMove(&card, (corner + middle * scale).toPoint());
    EXPECT_EQ(Words(main->Panels.GRLabel1), ToQt(main->Panels.ILabel3(2).Caption.Get()));
    QEvent leaves(QEvent::Leave);
    QCoreApplication::sendEvent(&card, &leaves);
    EXPECT_EQ(Words(main->Panels.GRLabel1), "Machine version [5.2]");
  });
}

// Where one reads, and where one has gone by Tab, one stays.
TEST_F(MainWindow, NothingIsTakenFromUnderTheOperator) {
  Run([this] {
    Key(Qt::Key_Tab);
    const QWidget* const reached = QApplication::focusWidget();
    Pass(3);
    EXPECT_EQ(QApplication::focusWidget(), reached);
    EXPECT_NE(reached, &Of<PictureWidget>(main->Panels.GRPicIOcard));
    Window().resize(900, 600);
    for (int code = 1101; code <= 1140; ++code) machine.Tell("error " + std::to_string(code));
    Pass(6);
    QScrollBar& bar = *Of<QPlainTextEdit>(main->Panels.ErText1).verticalScrollBar();
    ASSERT_GT(bar.maximum(), 7);
    bar.setValue(3);
    machine.Tell("error 2101");
    Pass(6);
    EXPECT_EQ(bar.value(), 3);
    machine.Tell("error none");
    machine.Tell("error 1103");
    Pass(6);
    EXPECT_EQ(bar.value(), 0);
  });
}

TEST_F(MainWindow, WhatIsOldIsPale) {
  Run([this] {
    Pass(6);
    const auto pale = [this] {
      return Of<QWidget>(main->Panels.GRPicIOcard).graphicsEffect()->isEnabled();
    };
    EXPECT_FALSE(pale());
    Press(main->MnuMachConf);
    EXPECT_TRUE(pale());
    EXPECT_EQ(GhostsIn(main->Panels.ErText1), 0);
    Window().LeaveMenus();
    Pass(3);
    Key(Qt::Key_Escape);
    Pass(3);
    EXPECT_FALSE(pale());
  });
}

// What comes while a question waits in vain is served before the next one of the same tick.
TEST_F(MainWindow, APressWaitsForOneUnansweredQuestionOnly) {
  Run([this] {
    machine.Tell("power off");
    bool asked = false;
    QString before;
    const ui::Event<> tick = main->Timer1.Tick;
    main->Timer1.Tick = [&] {
      if (!std::exchange(asked, true)) {
        QTimer::singleShot(0, &Window(), [&] {
          before = Words(main->Panels.OLabel1);
          Press(main->MnuMachConf);
        });
      }
      tick.Raise();
    };
    Pass(30);
    EXPECT_EQ(before, "[ STARTING POLLING ]") << "the outputs have been asked for";
    EXPECT_FALSE(main->Poll().PollingOn());
    main->Timer1.Tick = tick;
  });
}

TEST_F(MainWindow, IsHeardAsItIsSeen) {
  Run([this] {
    const std::string sensor = main->Panels.ILabel3(2).Caption;
    const auto expectState = [&](const std::string& state) {
      const std::vector<std::string> heard = Heard(Window(), *main);
      for (const std::string& name :
           {main->Caption.Get(), sensor, sensor + ": " + state, main->Panels.ILabel1.Caption.Get(),
            std::string("Machine Setting"), std::string("Machine linked, configuration known"),
            std::string("Graphic I/O sensors"), std::string("Errors of the machine")}) {
        ExpectHeard(heard, name);
      }
    };
    Pass(2);
    expectState("OFF");
    machine.Tell("input 3 on");
    Pass(6);
    expectState("ON");
    Key(Qt::Key_I, Qt::ShiftModifier);
    Pass(2);
    expectState("ON");
    machine.Tell("fault short 1 #ir*");
    Pass(6);
    expectState("no data");
  });
}

TEST_F(MainWindow, FocusIsSeenInLightAndDark) {
  for (const Brightness brightness : {Brightness::Dark, Brightness::Light}) {
    ApplyLook(*qApp, brightness);
    Run([this] { ExpectFocusSeen(Window()); });
  }
}

// At every size nothing covers anything else and the names can be read.
TEST_F(MainWindow, EverythingHasItsRoom) {
  Run([this] {
    for (const QSize size : {QSize(900, 600), QSize(1280, 800), QSize(1900, 1040)}) {
      Window().centralWidget()->resize(size - QSize(0, Window().menuBar()->height()));
      ExpectPanelsApart();
      ExpectRowsApart();
      ExpectNamesWhole(Window(), main->Panels);
    }
  });
}

TEST_F(MainWindow, SplashIsSeenAtOnceAndGoesWithAPressOnIt) {
  shell::frmSplsh splash(screen, base::MakeIdentity("TintBench", "1.2.3"));
  screen.Show(splash);
  const FormWindow& window = Desk::Window(splash);
  EXPECT_TRUE(window.windowHandle()->isExposed());
  EXPECT_TRUE(window.windowFlags().testFlag(Qt::FramelessWindowHint));
  QTest::mouseClick(&Of<QLabel>(splash.lblProductName), Qt::LeftButton);
  EXPECT_TRUE(splash.SplashClosed);
}

// Notes the largest of the rectangles that are painted.
struct PaintWatch : QObject {
  PaintWatch() { qApp->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    ++Paints;
    for (const QRect& area : static_cast<QPaintEvent*>(event)->region()) {
      Largest = std::max({Largest, area.width(), area.height()});
    }
    return false;
  }
  int Paints = 0;
  int Largest = 0;
};

TEST_F(MainWindow, NothingNewMovesTheLifeSignOnly) {
  Run([this] {
    Pass(10);
    const PaintWatch watch;
    Pass(15);
    EXPECT_GT(watch.Paints, 0);
    EXPECT_EQ(watch.Largest, Of<QWidget>(main->Panels.IpShape1).width());
  });
}

}  // namespace

}  // namespace tintbench::desktop
