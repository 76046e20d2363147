// The window of statistics on real widgets. What it asks, sends and says is played by scripts.
#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "qt/Desk.h"
#include "qt/Inspect.h"
#include "qt/RowList.h"
#include "stats/FormStat.h"

namespace tintbench::desktop {

namespace {

class StatisticsWindow : public Desk {
 protected:
  void RunWindow(const std::function<void(stats::FormStat&)>& act) {
    RunIn<stats::FormStat>(&shell::Form1::MnuMachConf, &shell::Form1::MMnuGetstat, act);
  }
  // Presses Enter or Esc in every box that comes, from now on: Yes and OK, or no file.
  void AnswerBoxes() {
    QObject::connect(&boxes, &QTimer::timeout, [] {
      auto* const box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      auto* const message = qobject_cast<QMessageBox*>(box);
      if (message == nullptr) return QTest::keyClick(box, Qt::Key_Escape);
      auto* yes = message->button(QMessageBox::Yes);
      QTest::mouseClick(yes != nullptr ? yes : message->button(QMessageBox::Ok), Qt::LeftButton);
    });
    boxes.start(5);
  }
  QString Words(ui::Label& label) { return Of<QLabel>(label).text(); }

  QTimer boxes;
};

TEST_F(StatisticsWindow, StopsInTheMiddleAndSortsWhatCame) {
  machine.Tell("counter M 3 90061 7");
  AnswerBoxes();
  RunWindow([this](stats::FormStat& form) {
    ExpectHeard(Heard(Window(form), form), "motor working time( seconds )");
    ExpectFocusSeen(Window(form));
    Press(Of<QPushButton>(form.CmdAll(1)));
    EXPECT_FALSE(Of<QWidget>(form.TabStripData).isVisible());
    auto& stop = Of<QPushButton>(form.CmdRSAll(1));
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
      if (Words(form.LblCurr).toInt() < 20) return;
      hand.stop();
      QTest::mouseClick(&stop, Qt::LeftButton);
    });
    hand.start(0);
    Press(Of<QPushButton>(form.CmdRSAll(0)));
    EXPECT_LT(Words(form.LblCurr).toInt(), 30);
    EXPECT_EQ(Of<QComboBox>(form.CmbSucc).count(), Words(form.LblSucc).toInt());
    ExpectHeard(Heard(Window(form), form), "What failed or was strange, and why");
    Press(Of<QPushButton>(form.CmdRSAll(2)));

    Press(Of<QPushButton>(form.CmdOverview));
    auto& list = Of<RowList>(form.LstOverview);
    auto& head = Of<QPushButton>(form.CmdSort(1));
    const auto cell = [&] {
      const QRect row = list.visualRect(list.model()->index(0, 0));
      const QPoint left = head.mapTo(&Window(form), QPoint());
      const QPoint top = list.viewport()->mapTo(&Window(form), row.topLeft());
      return Window(form).grab(QRect(left.x(), top.y(), head.width(), row.height())).toImage();
    };
    const QImage first = cell();
    Press(head);
    EXPECT_TRUE(list.model()->index(0, 0).data().toString().startsWith("3\t90061"));
    EXPECT_NE(cell(), first);  // the longest bar
    EXPECT_EQ(head.accessibleDescription(), "sorted down");
    Press(Of<QPushButton>(form.CmdCopy));
    EXPECT_TRUE(QApplication::clipboard()->text().contains("\n3\t90061\t"));
    Key(Qt::Key_Escape);
    EXPECT_TRUE(Of<QWidget>(form.TabStripData).isVisible());
  });
}

}  // namespace

}  // namespace tintbench::desktop
