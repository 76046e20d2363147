// The dialog for one parameter on real widgets: a value of each kind, entered by real keys or by
// the mouse. Which values are right is told by the tests of the rules.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "base/Clock.h"
#include "editor/FormEdit.h"
#include "qt/DesktopScreen.h"
#include "qt/Inspect.h"
#include "qt/RowList.h"
#include "qt/StandardViews.h"

namespace tintbench::desktop {

namespace {

// What the operator's hands do: keys one after the other as they are typed, with names for those
// that are no letters, and places to be clicked.
struct Entry {
  const char* Value;
  const char* Limits;
  const char* Selector;
  const char* Result;
  std::function<void(editor::FormEdit& form, FormWindow& window)> Hands;
};

void PrintTo(const Entry& entry, std::ostream* out) { *out << entry.Selector; }

template <typename Widget>
Widget& Shown(FormWindow& window, ui::Control& control) {
  auto* const widget = WidgetOf<Widget>(window, control);
  EXPECT_TRUE(widget->isVisible()) << control.FullName();
  return *widget;
}

void TypeAnew(QWidget& field, const char* text) {
  QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClicks(&field, text);
}

void Type(editor::FormEdit& form, FormWindow& window) {
  TypeAnew(Shown<QLineEdit>(window, form.TxtEdit), "12");
}

class Editing : public testing::TestWithParam<Entry> {};

TEST_P(Editing, TakesWhatTheHandsEnter) {
  const Entry& entry = GetParam();
  base::VirtualClock clock;
  DesktopScreen screen(clock);
  AddStandardViews(screen);
  const config::SelectorCatalogue selectors;
  editor::FormEdit form(screen, selectors);
  editor::EditParms parms;
  parms.Value = entry.Value;
  parms.Limits = entry.Limits;
  parms.Selector = entry.Selector;
  parms.Description = "a parameter";
  parms.RangeText = "its range";
  form.SetEditParms(parms);
  bool opened = false;
  QTimer::singleShot(0, [&] {
    opened = true;
    FormWindow& window = *screen.WindowFor(form);
    EXPECT_EQ(window.focusWidget()->objectName(), ToQt(form.ActiveControl()->FullName()));
    ExpectHeard(Heard(window, form), "Save and Exit");
    entry.Hands(form, window);
    QTest::mouseClick(&Shown<QPushButton>(window, form.CmdEdit(editor::kSaveAndExit)),
                      Qt::LeftButton);
    if (form.Visible) screen.Unload(form);
  });
  screen.ShowModal(form);
  EXPECT_TRUE(opened);
  EXPECT_TRUE(form.OkStore());
  EXPECT_EQ(form.GetEditedParm(), entry.Result);
}

INSTANTIATE_TEST_SUITE_P(
    EachKind, Editing,
    testing::Values(Entry{"5", ".,.,.", ".", "12", Type},
                    Entry{"5", "HELP_13,.,.", "HELP_13", "12", Type},
                    Entry{"5", "UM_1,0,99", "UM_1", "12", Type},
                    Entry{"02", "HEX_1,.,.", "HEX_1", "0102",
                          [](editor::FormEdit& form, FormWindow& window) {
                            auto& list = Shown<RowList>(window, form.LstChkEdit);
                            list.setCurrentIndex(list.model()->index(0, 0));
                            QTest::keyClick(&list, Qt::Key_Space);
                          }},
                    Entry{"", "X_FUN,.,.", "X_FUN", "10000000000000000000",
                          [](editor::FormEdit& form, FormWindow& window) {
                            auto& list = Shown<RowList>(window, form.LstChkEdit);
                            list.setCurrentIndex(list.model()->index(0, 0));
                            QTest::keyClick(&list, Qt::Key_Space);
                          }},
                    Entry{"8000", "0_1,.,.", "0_1", "4000",
                          [](editor::FormEdit& form, FormWindow& window) {
                            auto& box = Shown<QCheckBox>(window, form.ChkCnm(1));
                            QTest::mouseClick(&box, Qt::LeftButton, {},
                                              QPoint(8, box.height() / 2));
                          }},
                    Entry{"0", "1,.,.", "1", "1", [](editor::FormEdit& form, FormWindow& window) {
                            auto& list = Shown<RowList>(window, form.LstEdit);
                            for (int row = 0; row < form.LstEdit.ListCount(); ++row) {
                              if (form.LstEdit.ItemData(row) != 1) continue;
                              const QRect place = list.visualRect(list.model()->index(row, 0));
                              QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                                                place.center());
                            }
                          }}));

}  // namespace

}  // namespace tintbench::desktop
