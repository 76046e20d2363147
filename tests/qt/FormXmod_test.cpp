// The window of transfers on real widgets, with a scripted line. What it sends and says is told by
// the tests of the transfers.
#include <gtest/gtest.h>

#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "qt/Boxes.h"
#include "qt/DesktopScreen.h"
#include "qt/FirmwareGuideView.h"
#include "qt/Inspect.h"
#include "qt/StandardViews.h"
#include "transfer/TransferBench.h"

namespace tintbench::desktop {

namespace {

constexpr const char* kFile = "/app/new image.rom";

struct XmodDesk {
  explicit XmodDesk(transfer::XmodemModeValue mode) : Bench(mode), Screen(Bench.Clock) {
    AddStandardViews(Screen);
    Screen.ui::Screen::Show(Bench.Window);
    Shown().resize(1000, 700);
    Screen.DoEvents();
  }
  FormWindow& Shown() { return *Screen.WindowFor(Bench.Window); }
  template <typename Widget>
  Widget& Of(ui::Control& control) {
    return *WidgetOf<Widget>(Shown(), control);
  }
  void Click(ui::Button& button) { QTest::mouseClick(&Of<QPushButton>(button), Qt::LeftButton); }

  testing::TransferBench Bench;
  DesktopScreen Screen;
};

TEST(TransferWindow, StopIsFeltInTheMiddleAndStandsWhereItStood) {
  XmodDesk desk(transfer::kFirmwareFace);
  transfer::FormXmod& form = desk.Bench.Window;
  desk.Bench.Files.Put(kFile, std::string(40, 'S') + "\r\n" + std::string(900, 'x') + "\r\n");
  form.TxtFile.Text = kFile;
  ExpectFocusSeen(desk.Shown());
  const auto place = [&] { return desk.Of<QWidget>(form.CommStop).geometry(); };
  const QRect before = place();
  desk.Bench.Port.Wait(1.0).Reply("\x15");
  std::string part = "@IPS 1\r\n" + std::string(40, 'S') + "\r\n" + std::string(900, 'x');
  desk.Bench.Port.Expect(testing::WireBlock(1, part.substr(0, 128))).Reply("\x06");
  desk.Bench.Port.Expect(std::string(8, '\x18') + std::string(8, '\x08'));
  int stops = 0;
  desk.Bench.OnBlock = [&] {
    desk.Screen.DoEvents();
    if (form.LblCurrb.Caption.Get() != "1") return;
    EXPECT_FALSE(desk.Of<QWidget>(form.CommSend).isEnabled());
    EXPECT_GT(desk.Of<QProgressBar>(form.PrgbTransf).value(), 0);
    EXPECT_EQ(place(), before);
    desk.Click(form.CommStop);
    ++stops;
  };
  desk.Click(form.CommSend);
  EXPECT_GE(stops, 1);
  EXPECT_EQ(desk.Bench.Boxes().size(), 3U);
  EXPECT_EQ(place(), before);
  EXPECT_TRUE(desk.Of<QWidget>(form.CommSend).isEnabled());
  EXPECT_EQ(desk.Of<QLabel>(form.LblFileName).text(), ToQt(form.LblFileName.Caption.Get()));
}

TEST(TransferWindow, TheGuideMarksTheStepAndStaysBesideItsBoxes) {
  XmodDesk desk(transfer::kFirmwareFace);
  auto& guide = *desk.Shown().findChild<QFrame*>("FrmGuide");
  const QImage first = guide.grab().toImage();
  desk.Bench.Window.GuideStep = transfer::kGuideEnter;
  const QImage entering = guide.grab().toImage();
  EXPECT_NE(entering, first);
  desk.Bench.Window.GuideStep = transfer::kGuideLeave;
  EXPECT_NE(guide.grab().toImage(), entering);
  QRect box;
  QTimer::singleShot(50, [&box] {
    auto* const shown = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    ASSERT_NE(shown, nullptr);
    box = shown->frameGeometry();
    QTest::keyClick(shown, Qt::Key_Escape);
  });
  AskBox({.Text = "Otherwise, follow exactly the next action sequence"}, "t", &desk.Shown());
  EXPECT_FALSE(box.isEmpty());
  EXPECT_FALSE(box.intersects(QRect(guide.mapToGlobal(QPoint()), guide.size())));
}

TEST(TransferWindow, IsHeardOnEachFace) {
  for (const auto face : {transfer::kPortFace, transfer::kConfigFace, transfer::kFirmwareFace}) {
    XmodDesk desk(face);
    const char* const names[] = {"CONNECT", "RECEIVE", "CPU card"};
    ExpectHeard(Heard(desk.Shown(), desk.Bench.Window), names[face]);
  }
}

}  // namespace

}  // namespace tintbench::desktop
