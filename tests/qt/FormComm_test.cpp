// The window of commands as the operator has it before him: opened from the real menu, worked with
// real keys and buttons, and read from the real widgets. What operator scripts play as well is left
// to them.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QFontDatabase>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>

#include "commands/FormComm.h"
#include "qt/Desk.h"
#include "qt/Inspect.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

class CommandsWindow : public Desk {
 protected:
  void Run(ui::Menu shell::Form1::*item, const std::function<void()>& act) {
    RunIn<commands::FormComm>(&shell::Form1::MnuMaint, item, [&](commands::FormComm& opened) {
      form = &opened;
      act();
    });
  }
  FormWindow& Window() { return Desk::Window(*form); }
  QString Line(int index) { return Of<QLineEdit>(form->TxtIO(index)).text(); }
  QString Page(ui::TextBox& box) { return Of<QPlainTextEdit>(box).toPlainText(); }
  QString Report() { return Page(form->TextOutput); }
  // Types `text` into every box that asks, from now on.
  void AnswerBoxes(const QString& text) {
    boxes.disconnect();
    QObject::connect(&boxes, &QTimer::timeout, [text] {
      QWidget* const box = QApplication::activeModalWidget();
      if (dynamic_cast<QDialog*>(box) == nullptr) return;
      auto* const field = box->findChild<QLineEdit*>();
      if (field != nullptr) field->setText(text);
      QTest::keyClick(box, Qt::Key_Return);
    });
    boxes.start(5);
  }
  void ExpectInside(ui::Control& control) {
    auto& widget = Of<QWidget>(control);
    const QSize size = Window().centralWidget()->size();
    const QRect place(widget.mapTo(Window().centralWidget(), QPoint()), widget.size());
    EXPECT_TRUE(QRect(QPoint(), size).contains(place)) << control.FullName();
    EXPECT_GE(widget.height(), widget.fontMetrics().height()) << control.FullName();
  }

  QTimer boxes;
  commands::FormComm* form = nullptr;
};

TEST_F(CommandsWindow, CommandIsFoundByLettersAndSentByTheButton) {
  Run(&shell::Form1::MMnuCommand, [this] {
    EXPECT_FALSE(Of<QWidget>(form->FrmMulti).isVisible());
    form->TxtFind.SetFocus();
    QTest::keyClicks(&Of<QLineEdit>(form->TxtFind), "bridges");
    EXPECT_EQ(Of<RowList>(form->LstCsingle(0)).currentIndex().data().toString(),
              "H-bridges status");
    Key(Qt::Key_Return);
    EXPECT_EQ(Line(0), "");
    EXPECT_EQ(Of<QLabel>(form->LblFound).text(), "1 of 1");
    QTest::mouseClick(&Of<QPushButton>(form->CmdExec), Qt::LeftButton);
    EXPECT_EQ(Line(0), "#UP*");
    EXPECT_EQ(Page(form->TxtIO(2)), "[ command accepted ]");
    EXPECT_TRUE(Report().startsWith("H-BRIDGES STATUS\n\n[ 0 ]"));
    EXPECT_EQ(Of<QWidget>(form->TextOutput).font().family(),
              QFontDatabase::systemFont(QFontDatabase::FixedFont).family());
  });
}

TEST_F(CommandsWindow, IsHeardAsItIsSeenAndShowsItsFocus) {
  Run(&shell::Form1::MMnuCommand, [this] {
    form->LstCsingle(0).PressRow(4);
    form->CmdExec.Press();
    for (const char* name :
         {"Command type", "Find", "Single command", "Last commands", "Sent", "Received", "Status",
          "Command report", "STOP", "Firmware version", "H-bridges status\nEXECUTE"}) {
      ExpectHeard(Heard(Window(), *form), name);
    }
  });
  Run(&shell::Form1::MMnuCommand, [this] { ExpectFocusSeen(Window()); });
  Run(&shell::Form1::MMnuMaint, [this] {
    Key(Qt::Key_O);
    const std::string output = form->Panels.OLabel3(0).Caption;
    for (const std::string& name :
         {std::string("[I] Read input sensors"), std::string("HALT process"),
          std::string("Output sensors"), output + ": OFF"}) {
      ExpectHeard(Heard(Window(), *form), name);
    }
    ExpectFocusSeen(Window());
  });
}

// What a command shows takes the place at the right for itself, at every size.
TEST_F(CommandsWindow, PanelsAndReportNeverCoverOneAnother) {
  Run(&shell::Form1::MMnuCommand, [this] {
    form->CmbCtype.PressRow(0);
    for (const QSize size : {QSize(900, 600), QSize(1014, 735), QSize(1900, 1040)}) {
      Window().resize(size);
      for (const int row : {0, 1, 2, 3, 4}) {
        form->LstCsingle(0).PressRow(row);
        form->CmdExec.Press();
        Pass(1);
        for (int panel = 0; panel < state::kPanels; ++panel) {
          auto& frame = Of<QWidget>(form->Panels.Frame(panel));
          EXPECT_EQ(frame.isVisible(), form->Panels.Frame(panel).Visible) << row;
          if (!frame.isVisible()) continue;
          ExpectInside(form->Panels.Frame(panel));
          EXPECT_TRUE(Of<QLabel>(form->LblTitle(panel)).isVisible());
          for (int other = 0; other < panel; ++other) {
            auto& neighbour = Of<QWidget>(form->Panels.Frame(other));
            EXPECT_FALSE(neighbour.isVisible() && frame.geometry().intersects(neighbour.geometry()))
                << row << panel << other;
          }
        }
        ExpectNamesWhole(Window(), form->Panels);
        EXPECT_EQ(Of<QWidget>(form->FrameOutput).isVisible(), row == 4);
      }
      // As while valves are tested and the sensors are read.
      form->ShowPanel(state::kInputPanel);
      Pass(1);
      ExpectInside(form->Panels.Frame(state::kInputPanel));
      auto& panel = Of<QWidget>(form->Panels.Frame(state::kInputPanel));
      auto& report = Of<QWidget>(form->FrameOutput);
      ExpectNamesWhole(Window(), form->Panels);
      EXPECT_LT(panel.mapTo(panel.window(), panel.rect().topRight()).x(),
                report.mapTo(report.window(), QPoint()).x());
    }
  });
}

TEST_F(CommandsWindow, AClickSelectsAKeyActsAndHaltIsAlwaysThere) {
  Run(&shell::Form1::MMnuMaint, [this] {
    auto& halt = Of<QPushButton>(form->CmdMultStop);
    const QRect place = halt.geometry();
    QTest::mouseClick(&Of<QRadioButton>(form->Option1(commands::kEachValve)), Qt::LeftButton);
    EXPECT_EQ(machine.Tell("check valves none"), "") << "a click only selects";
    Key(Qt::Key_F3);
    EXPECT_EQ(machine.Tell("check valves 01"), "");
    QTest::mouseClick(&halt, Qt::LeftButton);
    EXPECT_EQ(machine.Tell("check valves none"), "");
    Key(Qt::Key_I);
    EXPECT_TRUE(Of<QWidget>(form->Panels.Frame(0)).isVisible());
    EXPECT_EQ(halt.geometry(), place);
    for (int option = 0; option < commands::kMaintenanceOptions; ++option) {
      auto& button = Of<QRadioButton>(form->Option1(option));
      EXPECT_GT(halt.width() * halt.height(), 2 * button.width() * button.height());
      ExpectInside(form->Option1(option));
    }
  });
}

// The key that starts the purge ends it, and so does the button. All others are locked meanwhile.
TEST_F(CommandsWindow, PurgeIsEndedByItsKeyAndByHalt) {
  Run(&shell::Form1::MMnuMaint, [this] {
    machine.Tell("can on");
    machine.Tell("shelf high");
    for (const bool byHalt : {false, true}) {
      AnswerBoxes("01");
      bool ended = false;
      QTimer watch;
      QObject::connect(&watch, &QTimer::timeout, [&] {
        if (ended || !form->Running || machine.Tell("check motors none").empty()) return;
        ended = true;
        auto& purge = Of<QRadioButton>(form->Option1(commands::kPurge));
        EXPECT_TRUE(purge.isEnabled() && purge.isChecked());
        EXPECT_EQ(form->Option1(commands::kPurge).Tag.Get(), commands::kRunningTag);
        EXPECT_FALSE(Of<QRadioButton>(form->Option1(commands::kEachValve)).isEnabled());
        auto& halt = Of<QPushButton>(form->CmdMultStop);
        EXPECT_TRUE(halt.isEnabled());
        if (byHalt) {
          QTest::mouseClick(&halt, Qt::LeftButton);
        } else {
          QTest::keyClick(&Window(), Qt::Key_F9);
        }
      });
      watch.start(1);
      Key(Qt::Key_F9);
      EXPECT_TRUE(ended);
      EXPECT_TRUE(Report().contains("PURGE process ended !")) << Report().toStdString();
      EXPECT_EQ(machine.Tell("check motors none"), "");
      EXPECT_EQ(machine.Tell("check valves none"), "");
      EXPECT_TRUE(Of<QRadioButton>(form->Option1(commands::kEachValve)).isEnabled());
      const QScrollBar& bar = *Of<QPlainTextEdit>(form->TextOutput).verticalScrollBar();
      EXPECT_EQ(bar.value(), bar.maximum());
    }
  });
}

// Presses that wait in the queue while the line is busy, as those of a hand that presses twice.
TEST_F(CommandsWindow, PressesThatWaitBehindACommandStartAndAnswerNothing) {
  Run(&shell::Form1::MMnuMaint, [this] {
    machine.Tell("can on");
    machine.Tell("shelf high");
    QWidget& window = Window();
    const auto key = [&window](Qt::Key code) {
      for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QCoreApplication::postEvent(&window, new QKeyEvent(type, code, Qt::NoModifier));
      }
    };
    const auto click = [this](ui::Control& control) {
      auto& widget = Of<QWidget>(control);
      const QPointF at = widget.rect().center();
      for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        QCoreApplication::postEvent(
            &widget, new QMouseEvent(type, at, widget.mapToGlobal(at), Qt::LeftButton,
                                     Qt::LeftButton, Qt::NoModifier));
      }
    };
    const auto upon = [this](const std::string& command, const std::function<void()>& press) {
      port.Written.clear();
      port.OnWriting = [this, command, press, done = false]() mutable {
        if (done || !port.Written.ends_with(command)) return;
        done = true;
        press();
      };
    };
    AnswerBoxes("01");
    for (const bool byKey : {true, false}) {
      upon("#ns*#s*", [&] {  // both presses of a hand that presses twice to stop
        for (int press = 0; press < 2; ++press) byKey ? key(Qt::Key_F9) : click(form->CmdMultExec);
      });
      const auto again = port.OnWriting;
      port.OnWriting = [&, again] {
        if (again) again();
        if (!port.Written.ends_with("#l01*")) return;
        byKey ? key(Qt::Key_F9) : click(form->CmdMultExec);
      };
      Key(Qt::Key_F9);
      Pass(60);
      EXPECT_TRUE(port.Written.ends_with("#l01*#g01*#dc01*")) << port.Written;
    }
    upon("#l01*", [&] { click(form->CmdMultStop); });
    bool opened = false;
    const auto again = port.OnWriting;
    port.OnWriting = [&, again] {
      if (port.Written.ends_with("#o01*") && !opened) {
        opened = true;
        key(Qt::Key_F7);
        AnswerBoxes("02");
      }
      again();
    };
    Key(Qt::Key_F7);
    Pass(10);
    EXPECT_TRUE(port.Written.ends_with("#l01*#z*")) << port.Written;
    port.OnWriting = nullptr;
  });
}

}  // namespace

}  // namespace tintbench::desktop
