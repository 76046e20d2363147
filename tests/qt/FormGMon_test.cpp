// The monitor of a group on real widgets. What it asks and drives is played by scripts.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>

#include "groups/FormGMon.h"
#include "qt/Desk.h"

namespace tintbench::desktop {

namespace {

class MonitorWindow : public Desk {
 protected:
  // Chooses the first group of the menu, does `act` in its window and closes that.
  void RunWindow(const std::function<void(groups::FormGMon&)>& act) {
    bool opened = false;
    QTimer work;
    QObject::connect(&work, &QTimer::timeout, [&] {
      auto* const form = dynamic_cast<groups::FormGMon*>(screen.Front());
      // Its instruments are there when it has been activated.
      if (form == nullptr || !form->LnP.Has(1)) return;
      work.stop();
      opened = true;
      act(*form);
      Window(*form).close();
    });
    Run([&] {
      work.start(5);
      main->MnuGroupsMonitor.Press();
      for (int item = 0; !opened && item < main->MMnuGrMon.Count(); ++item) {
        ui::Menu& group = main->MMnuGrMon(item);
        if (group.Caption->starts_with("Group ")) group.Press();
      }
    });
    EXPECT_TRUE(opened);
  }
};

TEST_F(MonitorWindow, ItsBoxesStartAndStopTheEnquiryAndNothingMoves) {
  RunWindow([this](groups::FormGMon& form) {
    auto& stop = Of<QCheckBox>(form.ChkStopEnquire);
    auto& element = Of<QCheckBox>(form.ChkValveOn);
    EXPECT_TRUE(stop.isChecked());
    EXPECT_FALSE(stop.isEnabled());
    const QRect place = Of<QLabel>(form.LblCurr(3)).geometry();
    const QImage before = element.parentWidget()->grab().toImage();
    QTimer hand;
    QObject::connect(&hand, &QTimer::timeout, [&] {
      if (form.LblCurr(3).Caption->empty()) return;
      hand.stop();
      EXPECT_FALSE(Of<QCheckBox>(form.ChkEnquire).isEnabled());
      EXPECT_FALSE(Of<QLabel>(form.LblAlarm(3)).text().isEmpty());
      EXPECT_EQ(Of<QLabel>(form.LblCurr(3)).geometry(), place);
      EXPECT_EQ(element.parentWidget()->grab().toImage(), before);
      QTest::mouseClick(&stop, Qt::LeftButton);
    });
    hand.start(5);
    Press(Of<QCheckBox>(form.ChkEnquire));
    EXPECT_FALSE(hand.isActive());
    EXPECT_TRUE(stop.isChecked());
    EXPECT_TRUE(Of<QCheckBox>(form.ChkEnquire).isEnabled());
    EXPECT_FALSE(Of<QCheckBox>(form.ChkEnquire).isChecked());
  });
}

}  // namespace

}  // namespace tintbench::desktop
