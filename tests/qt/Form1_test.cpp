// The main window as the operator has it before him: the whole program with a simulated machine,
// real menus, buttons and keys, and what the real widgets say.
#include <gtest/gtest.h>

#include <QGraphicsEffect>
#include <QLabel>
#include <QMenuBar>
#include <QPaintEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>

#include "base/ScratchFolder.h"
#include "qt/DesktopScreen.h"
#include "qt/EveryKind.h"
#include "qt/Inspect.h"
#include "qt/Look.h"
#include "qt/PictureWidget.h"
#include "qt/SensorIndicator.h"
#include "qt/StandardViews.h"
#include "shell/Program.h"
#include "simulator/SimulatedPort.h"
#include "state/CardLayout.h"

namespace tintbench::desktop {

namespace {

class MainWindow : public ::testing::Test {
 protected:
  MainWindow() { AddStandardViews(screen); }

  // Runs the program; `act` is done in its open main window, which is closed afterwards.
  void Run(const std::function<void()>& act) {
    shell::Program program(
        {clock, files, port, screen, base::MakeIdentity("TintBench", "1.2.3"), folder.Path(), {}});
    QTimer start;
    QObject::connect(&start, &QTimer::timeout, [&] {
      form = dynamic_cast<shell::Form1*>(screen.FindForm("Form1"));
      if (form == nullptr || !form->Poll().PollingOn()) return;
      start.stop();
      act();
      Window().close();
    });
    start.start(5);
    EXPECT_EQ(program.Main(), shell::Program::Result::Good);
  }

  void Pass(double seconds) {
    const double end = clock.Now() + seconds;
    while (clock.Now() < end) screen.Idle(end - clock.Now());
  }
  FormWindow& Window() { return *screen.WindowFor(*form); }
  template <typename Widget>
  Widget& Of(const ui::Control& control) {
    return *WidgetOf<Widget>(Window(), control);
  }
  QString Words(const ui::Label& label) { return Of<QLabel>(label).text(); }
  SensorIndicator& Pill(int bit) { return Of<SensorIndicator>(form->Panels.ICheck1(bit)); }
  void Press(QWidget& widget, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&widget, button);
    Pass(1);
  }
  void Press(const ui::Menu& title) {
    QMenuBar& bar = *Window().menuBar();
    for (QAction* action : bar.actions()) {
      if (action->objectName() != ToQt(title.FullName())) continue;
      QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(action).center());
    }
  }
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&Window(), key, modifiers);
    Pass(1);
  }
  QPushButton& Head(int panel) { return Of<QPushButton>(form->CmdResize(panel)); }
  QWidget& Panel(int panel) { return Of<QWidget>(form->Panels.Frame(panel)); }

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
      const auto& name = Of<QLabel>(form->Panels.ILabel3(bit));
      if (!name.isVisible()) continue;
      EXPECT_GE(name.y(), foot) << bit;
      EXPECT_LT(Pill(bit).geometry().right(), name.x()) << bit;
      foot = name.y() + name.height();
    }
  }

  base::VirtualClock clock;
  base::StandardFileSystem files;
  testing::ScratchFolder folder;
  simulator::Machine machine{clock};
  simulator::SimulatedPort port{clock, {{1, &machine}}};
  DesktopScreen screen{clock};
  shell::Form1* form = nullptr;
};

TEST_F(MainWindow, ShowsTheMachineAsItIs) {
  Run([this] {
    Pass(2);
    EXPECT_EQ(Words(form->Panels.ILabel1), "Slave Address =1");
    EXPECT_FALSE(Pill(2).isChecked());
    machine.Tell("input 3 on");
    machine.Tell("error 1103");
    Pass(6);
    EXPECT_TRUE(Pill(2).isChecked());
    EXPECT_EQ(Words(form->Panels.ErLabel1), "Slave NO busy: errors = 1");
    auto& errors = Of<QPlainTextEdit>(form->Panels.ErText1);
    EXPECT_TRUE(errors.toPlainText().startsWith("1103")) << errors.toPlainText().toStdString();
    EXPECT_TRUE(errors.isReadOnly());
    machine.Tell("fault short 1 #ir*");
    Pass(12);
    EXPECT_EQ(Words(form->Panels.ILabel1), "[ INVALID DATA ]");
    EXPECT_FALSE(Pill(2).isEnabled());
    machine.Tell("fault none");
    Pass(4);
    EXPECT_TRUE(Pill(2).isEnabled());
    EXPECT_TRUE(Pill(2).isChecked());
    Press(Pill(2));
    EXPECT_TRUE(Pill(2).isChecked()) << "a sensor isn't there to be pressed";
  });
}

TEST_F(MainWindow, ButtonsAndKeysLayPanelsOutAnew) {
  Run([this] {
    const QRect small = Panel(0).geometry();
    Press(Head(0));
    EXPECT_FALSE(Panel(1).isVisible());
    EXPECT_FALSE(Head(3).isVisible());
    EXPECT_GT(Panel(0).width(), 2 * small.width());
    Press(Head(0));
    EXPECT_TRUE(Panel(1).isVisible());
    EXPECT_EQ(Panel(0).geometry(), small);
    Key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(Panel(0).isVisible());
    EXPECT_TRUE(Panel(2).isVisible());
    Key(Qt::Key_S, Qt::ControlModifier);

    EXPECT_TRUE(Pill(0).isVisible());
    Press(Head(1), Qt::RightButton);
    EXPECT_FALSE(Pill(0).isVisible());
    EXPECT_TRUE(Of<QWidget>(form->Panels.IShape3(0)).isVisible());
    Key(Qt::Key_I, Qt::ShiftModifier);
    EXPECT_TRUE(Of<QWidget>(form->Panels.ICheck2(0)).isVisible());
    Press(Head(3), Qt::RightButton);
    EXPECT_EQ(form->Panels.GRShape1(0).Form, ui::kCircle);
    Key(Qt::Key_G, Qt::ShiftModifier);
    EXPECT_EQ(form->Panels.GRShape1(0).Form, ui::kSquare);
  });
}

TEST_F(MainWindow, MenuTitlePausesAndSubWindowsHideThePanels) {
  Run([this] {
    Press(form->MnuMachConf);
    EXPECT_EQ(Words(form->Panels.OLabel1), "[ PAUSING POLLING ]");
    EXPECT_TRUE(Of<QLabel>(form->LblHint).isVisible());
    EXPECT_FALSE(Head(0).isEnabled());
    Window().LeaveMenus();
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Of<QLabel>(form->LblHint).isVisible());
    Pass(2);
    EXPECT_EQ(Words(form->Panels.ILabel1), "Slave Address =1");

    bool opened = false;
    QTimer::singleShot(50, &Window(), [this, &opened] {
      opened = screen.Front() != form && !Panel(0).isVisible();
      screen.WindowFor(*screen.Front())->close();
    });
    Press(form->MnuAutotest);
    EXPECT_TRUE(opened);
    EXPECT_TRUE(Panel(0).isVisible());
    EXPECT_TRUE(form->Poll().PollingOn());
  });
}

TEST_F(MainWindow, PointerOnTheCardNamesTheSensor) {
  Run([this] {
    auto& card = Of<PictureWidget>(form->Panels.GRPicIOcard);
    const state::CardPlace lamp = state::SocketLampPlace(3);
    const double scale =
        std::min(card.width() / state::kCardWidth, card.height() / state::kCardHeight);
    const QPointF corner((card.width() - state::kCardWidth * scale) / 2,
                         (card.height() - state::kCardHeight * scale) / 2);
    const QPointF middle(lamp.Left + lamp.Width / 2, lamp.Top + lamp.Height / 2);
    QTest::mouseMove(&card, (corner + middle * scale).toPoint());
    EXPECT_EQ(Words(form->Panels.GRLabel1), ToQt(form->Panels.ILabel3(2).Caption.Get()));
    QEvent leaves(QEvent::Leave);
    QCoreApplication::sendEvent(&card, &leaves);
    EXPECT_EQ(Words(form->Panels.GRLabel1), "Machine version [5.2]");
  });
}

// Where one reads, and where one has gone by Tab, one stays.
TEST_F(MainWindow, NothingIsTakenFromUnderTheOperator) {
  Run([this] {
    Key(Qt::Key_Tab);
    const QWidget* const reached = QApplication::focusWidget();
    Pass(3);
    EXPECT_EQ(QApplication::focusWidget(), reached);
    EXPECT_NE(reached, &Of<PictureWidget>(form->Panels.GRPicIOcard));
    Window().resize(900, 600);
    for (int code = 1101; code <= 1140; ++code) machine.Tell("error " + std::to_string(code));
    Pass(6);
    QScrollBar& bar = *Of<QPlainTextEdit>(form->Panels.ErText1).verticalScrollBar();
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
      return Of<QWidget>(form->Panels.GRPicIOcard).graphicsEffect()->isEnabled();
    };
    EXPECT_FALSE(pale());
    Press(form->MnuMachConf);
    EXPECT_TRUE(pale());
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
    const ui::Event<> tick = form->Timer1.Tick;
    form->Timer1.Tick = [&] {
      if (!std::exchange(asked, true)) {
        QTimer::singleShot(0, &Window(), [&] {
          before = Words(form->Panels.OLabel1);
          Press(form->MnuMachConf);
        });
      }
      tick.Raise();
    };
    Pass(30);
    EXPECT_EQ(before, "[ STARTING POLLING ]") << "the outputs have been asked for";
    EXPECT_FALSE(form->Poll().PollingOn());
    form->Timer1.Tick = tick;
  });
}

TEST_F(MainWindow, IsHeardAsItIsSeen) {
  Run([this] {
    const std::string sensor = form->Panels.ILabel3(2).Caption;
    const auto expectState = [&](const std::string& state) {
      const std::vector<std::string> heard = Heard(Window(), *form);
      for (const std::string& name :
           {form->Caption.Get(), sensor, sensor + ": " + state, form->Panels.ILabel1.Caption.Get(),
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
      ExpectNamesWhole(Window(), form->Panels);
    }
  });
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
    EXPECT_EQ(watch.Largest, Of<QWidget>(form->Panels.IpShape1).width());
  });
}

}  // namespace

}  // namespace tintbench::desktop
