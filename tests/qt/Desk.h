// The desk that the windows' tests work at: the whole program on real widgets, with a simulated
// machine behind the line.
#pragma once

#include <gtest/gtest.h>

#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>
#include <functional>

#include "base/ScratchFolder.h"
#include "link/NotingPort.h"
#include "qt/DesktopScreen.h"
#include "qt/EveryKind.h"
#include "qt/StandardViews.h"
#include "shell/Program.h"
#include "simulator/SimulatedPort.h"

namespace tintbench::desktop {

class Desk : public ::testing::Test {
 protected:
  Desk() { AddStandardViews(screen); }

  // Runs the program; `act` is done in its open main window, which is closed afterwards.
  void Run(const std::function<void()>& act) {
    shell::Program program(
        {clock, files, port, screen, base::MakeIdentity("TintBench", "1.2.3"), folder.Path(), {}});
    QTimer start;
    QObject::connect(&start, &QTimer::timeout, [&] {
      main = dynamic_cast<shell::Form1*>(screen.FindForm("Form1"));
      if (main == nullptr || !main->Poll().PollingOn()) return;
      start.stop();
      act();
      Window(*main).close();
    });
    start.start(5);
    EXPECT_EQ(program.Main(), shell::Program::Result::Good);
  }

  // Chooses the item in the main window's menu of that title, or the title itself if it has none,
  // and does `act` in the window that opens. Then Esc closes that.
  template <typename Form>
  void RunIn(ui::Menu shell::Form1::*title, ui::Menu shell::Form1::*item,
             const std::function<void(Form&)>& act) {
    bool opened = false;
    // Works inside the press of the item.
    QTimer work;
    QObject::connect(&work, &QTimer::timeout, [&] {
      auto* const form = dynamic_cast<Form*>(screen.Front());
      if (form == nullptr) return;
      work.stop();
      opened = true;
      act(*form);
      QTest::keyClick(&Window(*form), Qt::Key_Escape);
    });
    Run([&] {
      work.start(5);
      Press(main->*title);
      if (item == nullptr) return;
      auto& items = *Window(*main).findChild<QMenu*>(ToQt((main->*title).FullName()));
      for (QAction* action : items.actions()) {
        if (action->objectName() != ToQt((main->*item).FullName())) continue;
        QTest::mouseClick(&items, Qt::LeftButton, {}, items.actionGeometry(action).center());
      }
    });
    EXPECT_TRUE(opened);
  }

  FormWindow& Window(const ui::Form& form) { return *screen.WindowFor(form); }
  template <typename Widget>
  Widget& Of(ui::Control& control) {
    return *WidgetOf<Widget>(Window(control.OwnerForm()), control);
  }

  void Pass(double seconds) {
    const double end = clock.Now() + seconds;
    while (clock.Now() < end) screen.Idle(end - clock.Now());
  }
  void Press(QWidget& widget, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&widget, button);
    Pass(1);
  }
  // Presses the title in its menu bar.
  void Press(ui::Menu& title) {
    QMenuBar& bar = *Window(title.OwnerForm()).menuBar();
    for (QAction* action : bar.actions()) {
      if (action->objectName() != ToQt(title.FullName())) continue;
      QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(action).center());
    }
  }
  // The key goes to the front window.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(&Window(*screen.Front()), key, modifiers);
    Pass(1);
  }

  base::VirtualClock clock;
  base::StandardFileSystem files;
  testing::ScratchFolder folder;
  simulator::Machine machine{clock};
  simulator::SimulatedPort simulated{clock, {{1, &machine}}};
  testing::NotingPort port{simulated};
  DesktopScreen screen{clock};
  shell::Form1* main = nullptr;
};

}  // namespace tintbench::desktop
