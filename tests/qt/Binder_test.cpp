// Every kind of control bound to its widget: what the program sets is shown, what the hand does
// reaches the control, and each raises its event once.
#include "qt/Binder.h"

#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <functional>
#include <memory>
#include <stdexcept>

#include "qt/EveryKind.h"
#include "qt/FallbackView.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

class Bound : public testing::Test {
 protected:
  Bound() : form(std::make_unique<EveryKind>()), window(std::make_unique<QWidget>()) {
    view = MakeFallbackView(*form, window.get());
    window->resize(900, 1400);
    view->resize(900, 1400);
    window->show();
    QCoreApplication::processEvents();
  }

  template <typename Widget>
  Widget& Of(const ui::Control& control) {
    auto* const widget = WidgetOf<Widget>(*window, control);
    if (widget == nullptr) throw std::runtime_error("no widget for " + control.FullName());
    return *widget;
  }

  // Clicks on a row of a list at a distance from its left edge.
  void ClickRow(RowList& list, int row, int x = 60, Qt::MouseButton button = Qt::LeftButton) {
    const QRect place = list.visualRect(list.model()->index(row, 0));
    QTest::mouseClick(list.viewport(), button, {}, {x, place.center().y()});
  }

  void ClickTab(QTabBar& bar, int tab, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&bar, button, {}, bar.tabRect(tab).center());
  }

  std::unique_ptr<EveryKind> form;
  std::unique_ptr<QWidget> window;
  QWidget* view = nullptr;
};

TEST_F(Bound, ShowsWhatTheProgramSets) {
  form->Words.Caption = "two\r\nlines <b>&";
  form->Field.Text = "\xB0";
  form->Page.Text = "a\r\nb";
  form->Rich.Text = "rich";
  form->Push.Caption = "&HALT\r\nprocess";
  form->Tick.Value = ui::kGrayed;
  form->Choice(1).Value = true;
  form->Rows.ListIndex = 2;
  form->Marks.Select(1, true);
  form->Combo.ListIndex = 1;
  form->Tabs.SetCaption(1, "A & B");
  form->Tabs.TabIndex = 1;
  form->Bar.Value = 30;
  form->Bar.Max = 60;

  EXPECT_EQ(Of<QLabel>(form->Words).text(), "two\nlines <b>&");
  EXPECT_EQ(Of<QLabel>(form->Words).textFormat(), Qt::PlainText);
  EXPECT_EQ(Of<QLineEdit>(form->Field).text(), QString::fromUtf8("\u00B0"));
  EXPECT_EQ(Of<QPlainTextEdit>(form->Page).toPlainText(), "a\nb");
  EXPECT_EQ(Of<QPlainTextEdit>(form->Rich).toPlainText(), "rich");
  EXPECT_EQ(Of<QPushButton>(form->Push).text(), "&HALT\nprocess");
  EXPECT_EQ(Of<QCheckBox>(form->Tick).checkState(), Qt::PartiallyChecked);
  EXPECT_FALSE(Of<QRadioButton>(form->Choice(0)).isChecked());
  EXPECT_TRUE(Of<QRadioButton>(form->Choice(1)).isChecked());
  EXPECT_EQ(Of<RowList>(form->Rows).currentIndex().row(), 2);
  EXPECT_EQ(Of<RowList>(form->Marks).model()->index(1, 0).data(Qt::CheckStateRole).toInt(),
            Qt::Checked);
  EXPECT_EQ(Of<QComboBox>(form->Combo).currentIndex(), 1);
  EXPECT_EQ(Of<QTabBar>(form->Tabs).tabText(1), "A && B");
  EXPECT_EQ(Of<QTabBar>(form->Tabs).currentIndex(), 1);
  EXPECT_EQ(Of<QProgressBar>(form->Bar).value(), 30);
  EXPECT_EQ(Of<QProgressBar>(form->Bar).maximum(), 60);

  form->Choice(1).Value = false;
  EXPECT_FALSE(Of<QRadioButton>(form->Choice(1)).isChecked());
}

TEST_F(Bound, FollowsTheCommonProperties) {
  auto& label = Of<QLabel>(form->Words);
  form->Words.Visible = false;
  EXPECT_FALSE(label.isVisible());
  form->Words.Visible = true;
  EXPECT_TRUE(label.isVisible());
  form->Group.Enabled = false;
  EXPECT_FALSE(Of<QRadioButton>(form->Choice(0)).isEnabled());
  form->Words.ToolTipText = "<b>x</b>";
  EXPECT_TRUE(label.toolTip().contains("&lt;b&gt;"));
  EXPECT_EQ(Of<QRadioButton>(form->Choice(1)).objectName(), "Choice(1)");
}

TEST_F(Bound, ColoursStayReadableInEveryPalette) {
  auto& label = Of<QLabel>(form->Words);
  form->Words.BackColor = ui::Colour{0xC0FFFF};  // light yellow
  form->Words.ForeColor = ui::Colour{0x00FFFF};  // yellow words on it
  const QColor ground = label.palette().color(QPalette::Window);
  EXPECT_EQ(ground, QColor(0xFF, 0xFF, 0xC0));
  EXPECT_LT(label.palette().color(QPalette::WindowText).lightness(), ground.lightness() / 2);
  const QPalette light = QApplication::palette();
  QPalette dark = light;
  for (const auto role : {QPalette::Window, QPalette::Base}) dark.setColor(role, Qt::black);
  for (const auto role : {QPalette::WindowText, QPalette::Text}) dark.setColor(role, Qt::white);
  QApplication::setPalette(dark);
  QCoreApplication::processEvents();
  form->Words.BackColor = ui::Colour{0xE0E0E0};
  form->Words.ForeColor = ui::kWindowTextColour;
  EXPECT_LT(label.palette().color(QPalette::Window).lightness(), 80);
  EXPECT_GT(label.palette().color(QPalette::WindowText).lightness(), 200);
  QApplication::setPalette(light);
  QCoreApplication::processEvents();
  EXPECT_EQ(label.palette().color(QPalette::Window), QColor(0xE0, 0xE0, 0xE0));
  form->Words.BackColor = ui::kButtonFaceColour;
  EXPECT_EQ(label.palette().color(QPalette::Window), light.color(QPalette::Window));
}

TEST_F(Bound, PassesTheHandOnOnce) {
  int events = 0;
  const auto count = [&events] { ++events; };
  form->Field.Change = count;
  form->Page.Change = count;
  form->Push.Click = count;
  form->Tick.Click = count;
  form->Words.Click = count;
  form->Picture.Click = count;
  form->Choice.Prepare([&](ui::OptionButton& choice, int) { choice.Click = count; });
  form->Rows.Click = count;
  form->Combo.Click = count;
  form->Tabs.Click = count;
  form->Marks.ItemCheck = [&events](int) { ++events; };
  const auto selected = [this] { return form->Rows.ListIndex.Text(); };
  const auto tab = [this] { return form->Tabs.TabIndex.Text(); };
  const auto tick = [this] { return form->Tick.Value.Text(); };
  const auto nothing = [] { return std::string(); };
  struct Step {
    const char* Name;
    std::function<void()> Do;
    int Events;
    std::function<std::string()> Read;
    std::string Value;
  };
  const std::vector<Step> steps{
      {"type", [&] { QTest::keyClick(&Of<QLineEdit>(form->Field), 'x'); }, 1,
       [&] { return form->Field.Text.Get(); }, "x"},
      {"type in a page", [&] { QTest::keyClick(&Of<QPlainTextEdit>(form->Page), 'y'); }, 1,
       [&] { return form->Page.Text.Get(); }, "y"},
      {"new line", [&] { QTest::keyClick(&Of<QPlainTextEdit>(form->Page), Qt::Key_Return); }, 1,
       [&] { return form->Page.Text.Get(); }, "y\r\n"},
      {"push", [&] { QTest::mouseClick(&Of<QPushButton>(form->Push), Qt::LeftButton); }, 1, nothing,
       ""},
      {"label", [&] { QTest::mouseClick(&Of<QLabel>(form->Words), Qt::LeftButton); }, 1, nothing,
       ""},
      {"picture", [&] { QTest::mouseClick(&Of<QWidget>(form->Picture), Qt::LeftButton); }, 1,
       nothing, ""},
      {"tick", [&] { Of<QCheckBox>(form->Tick).click(); }, 1, tick, "1"},
      {"untick", [&] { Of<QCheckBox>(form->Tick).click(); }, 1, tick, "0"},
      {"program makes it grey", [&] { form->Tick.Value = ui::kGrayed; }, 1, tick, "2"},
      {"hand on grey", [&] { Of<QCheckBox>(form->Tick).click(); }, 1, tick, "0"},
      {"choose", [&] { Of<QRadioButton>(form->Choice(0)).click(); }, 1,
       [&] { return form->Choice(0).Value.Text(); }, "-1"},
      {"choose again", [&] { Of<QRadioButton>(form->Choice(0)).click(); }, 0,
       [&] { return form->Choice(0).Value.Text(); }, "-1"},
      {"choose the other", [&] { Of<QRadioButton>(form->Choice(1)).click(); }, 1,
       [&] { return form->Choice(0).Value.Text(); }, "0"},
      {"row", [&] { ClickRow(Of<RowList>(form->Rows), 1); }, 1, selected, "1"},
      {"same row", [&] { ClickRow(Of<RowList>(form->Rows), 1); }, 1, selected, "1"},
      {"row by key", [&] { QTest::keyClick(&Of<RowList>(form->Rows), Qt::Key_Down); }, 1, selected,
       "2"},
      {"program's row", [&] { form->Rows.ListIndex = 0; }, 1, selected, "0"},
      {"right button on a row", [&] { ClickRow(Of<RowList>(form->Rows), 2, 60, Qt::RightButton); },
       0, selected, "0"},
      {"check mark", [&] { ClickRow(Of<RowList>(form->Marks), 2, 10); }, 1,
       [&] { return std::to_string(form->Marks.Selected(2)); }, "1"},
      {"check mark by key", [&] { QTest::keyClick(&Of<RowList>(form->Marks), Qt::Key_Space); }, 1,
       [&] { return std::to_string(form->Marks.Selected(2)); }, "0"},
      {"combo", [&] { QTest::keyClick(&Of<QComboBox>(form->Combo), Qt::Key_Down); }, 1,
       [&] { return form->Combo.SelectedText(); }, "one"},
      {"first tab, shown in front but not chosen", [&] { ClickTab(Of<QTabBar>(form->Tabs), 0); }, 1,
       tab, "0"},
      {"other tab", [&] { ClickTab(Of<QTabBar>(form->Tabs), 2); }, 1, tab, "2"},
      {"same tab", [&] { ClickTab(Of<QTabBar>(form->Tabs), 2); }, 1, tab, "2"},
      {"right button on a tab", [&] { ClickTab(Of<QTabBar>(form->Tabs), 1, Qt::RightButton); }, 0,
       tab, "2"},
      {"program's tab", [&] { form->Tabs.TabIndex = 1; }, 1, tab, "1"},
      {"tab taken away", [&] { form->Tabs.RemoveTab(0); }, 0, tab, "0"},
  };
  for (const Step& step : steps) {
    events = 0;
    step.Do();
    QCoreApplication::processEvents();
    EXPECT_EQ(events, step.Events) << step.Name;
    EXPECT_EQ(step.Read(), step.Value) << step.Name;
  }
  EXPECT_EQ(Of<QTabBar>(form->Tabs).currentIndex(), 0);
}

TEST_F(Bound, OtherButtonsAndDoublePresses) {
  std::vector<std::string> told;
  form->Words.Click = [&] { told.push_back("click"); };
  form->Words.DblClick = [&] { told.push_back("dblclick"); };
  form->Words.MouseDown = [&](ui::MouseEvent event) {
    told.push_back("down " + std::to_string(event.Button) + "+" + std::to_string(event.Shift));
  };
  form->Rows.Click = [&] { told.push_back("row"); };
  form->Rows.DblClick = [&] { told.push_back("dblrow"); };
  auto& label = Of<QLabel>(form->Words);
  QTest::mouseClick(&label, Qt::RightButton, Qt::ControlModifier);
  QTest::mouseClick(&label, Qt::LeftButton);
  QTest::mouseDClick(&label, Qt::LeftButton);
  auto& rows = Of<RowList>(form->Rows);
  ClickRow(rows, 1);
  QTest::mouseDClick(rows.viewport(), Qt::LeftButton, {},
                     rows.visualRect(rows.model()->index(1, 0)).center());
  form->Words.Enabled = false;
  QTest::mouseClick(&label, Qt::LeftButton);
  EXPECT_EQ(told, (std::vector<std::string>{"down 2+2", "click", "dblclick", "row", "dblrow"}));
}

TEST_F(Bound, PictureTellsThePlaceInItsOwnUnits) {
  auto& picture = Of<QWidget>(form->Picture);
  picture.setFixedSize(200, 100);
  QCoreApplication::processEvents();
  double x = 0;
  double y = 0;
  form->Picture.MouseMove = [&](ui::MouseEvent event) {
    x = event.X;
    y = event.Y;
  };
  QTest::mouseMove(&picture, {100, 25});
  QCoreApplication::processEvents();
  EXPECT_NEAR(x, 500, 1);
  EXPECT_NEAR(y, 250, 1);
}

TEST_F(Bound, TypingKeepsToLengthLockAndEncoding) {
  form->Field.MaxLength = 3;
  auto& field = Of<QLineEdit>(form->Field);
  QTest::keyClicks(&field, "12345");
  EXPECT_EQ(form->Field.Text.Get(), "123");
  form->Field.Text = "set by the program";
  EXPECT_EQ(field.text(), "set by the program");
  form->Field.MaxLength = 0;
  for (const auto& [before, after] : {std::pair{"\xB0", "\xB0x"}, {"\xC2\xB0", "\xC2\xB0x"}}) {
    form->Field.Text = before;
    field.end(false);
    QTest::keyClick(&field, 'x');
    EXPECT_EQ(form->Field.Text.Get(), after);
  }
  form->Field.Locked = true;
  QTest::keyClick(&field, 'z');
  EXPECT_EQ(form->Field.Text.Get(), "\xC2\xB0x");
  form->Page.MaxLength = 4;
  QTest::keyClicks(&Of<QPlainTextEdit>(form->Page), "abcdef");
  EXPECT_EQ(form->Page.Text.Get(), "abcd");
}

TEST_F(Bound, FocusMovesOnceWhoeverMovesIt) {
  window->activateWindow();
  std::vector<std::string> told;
  form->Field.GotFocus = [&] { told.push_back("field"); };
  form->Field.LostFocus = [&] { told.push_back("field lost"); };
  form->Push.GotFocus = [&] { told.push_back("push"); };
  form->Push.SetFocus();
  EXPECT_EQ(window->focusWidget(), &Of<QPushButton>(form->Push));
  form->Field.SetFocus();
  QTest::mouseClick(&Of<QLineEdit>(form->Field), Qt::LeftButton);
  Of<QPushButton>(form->Push).setFocus(Qt::TabFocusReason);
  EXPECT_EQ(told, (std::vector<std::string>{"push", "field", "field lost", "push"}));
  EXPECT_EQ(form->ActiveControl(), &form->Push);
}

TEST_F(Bound, ListGotByTheKeyboardStaysWithoutARow) {
  Of<RowList>(form->Rows).setFocus(Qt::TabFocusReason);
  EXPECT_EQ(form->Rows.ListIndex, -1);
  QTest::keyClick(&Of<RowList>(form->Rows), Qt::Key_Down);
  EXPECT_EQ(form->Rows.ListIndex, 0);
}

TEST_F(Bound, AReportThatGrowsIsFollowedToItsEnd) {
  auto& page = Of<QPlainTextEdit>(form->Page);
  page.setFixedHeight(80);
  std::string text;
  for (int line = 0; line < 100; ++line) form->Page.Text = text += "line\r\n";
  EXPECT_EQ(page.verticalScrollBar()->value(), page.verticalScrollBar()->maximum());
  EXPECT_EQ(page.blockCount(), 101);
  form->Page.Text = "other";
  EXPECT_EQ(page.toPlainText(), "other");
}

// The views must take long lists row by row without reading them again for each.
TEST_F(Bound, TenThousandRowsComeOneByOne) {
  auto& rows = Of<RowList>(form->Rows);
  form->Rows.Clear();
  for (int row = 0; row < 10000; ++row) form->Rows.AddItem("row " + std::to_string(row));
  form->Rows.ListIndex = 9999;
  QCoreApplication::processEvents();
  EXPECT_EQ(rows.model()->rowCount(), 10000);
  EXPECT_TRUE(rows.viewport()->rect().intersects(rows.visualRect(rows.model()->index(9999, 0))));
  form->Rows.RemoveItem(0);
  EXPECT_EQ(rows.currentIndex().row(), 9998);
  EXPECT_EQ(rows.currentIndex().data().toString(), "row 9999");
}

TEST_F(Bound, HandlersMayEndControlsAndWidgets) {
  form->Push.Click = [&] { window.reset(); };
  Of<QPushButton>(form->Push).click();
  EXPECT_EQ(window, nullptr);
  form->Push.Caption = "nobody shows this";
}

TEST_F(Bound, ControlsThatDieTakeTheirWidgetsAway) {
  QPointer<QWidget> choice = &Of<QWidget>(form->Choice(1));
  form->Choice.Unload(1);
  EXPECT_FALSE(choice->isVisible());
  QPointer<QWidget> rows = &Of<QWidget>(form->Rows);
  form.reset();
  window->repaint();
  QCoreApplication::processEvents();
  EXPECT_TRUE(rows.isNull() || !rows->isVisible());
}

}  // namespace

}  // namespace tintbench::desktop
