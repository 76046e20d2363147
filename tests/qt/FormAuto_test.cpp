// The window of the self-test on real widgets. What it asks and says is played by scripts.
#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QPushButton>

#include "autotest/FormAuto.h"
#include "qt/Desk.h"
#include "qt/Inspect.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

TEST_F(Desk, CyclesWithErrorsAreSeenAndHeardAsSuch) {
  RunIn<autotest::FormAuto>(&shell::Form1::MnuAutotest, nullptr, [this](autotest::FormAuto& form) {
    Press(Of<QPushButton>(form.CmdAutotest));
    auto& list = Of<RowList>(form.LstCycles);
    const auto sign = [&list](int row) {
      const QRect place = list.visualRect(list.model()->index(row, 0));
      return list.viewport()->grab(QRect(place.topLeft(), QSize(place.height(), place.height())));
    };
    EXPECT_EQ(list.model()->index(2, 0).data().toString(), "3 [errors]");
    EXPECT_NE(sign(2).toImage(), sign(1).toImage());
    EXPECT_EQ(sign(3).toImage(), sign(1).toImage());
    form.LstCycles.PressRow(2);
    EXPECT_TRUE(Of<QPlainTextEdit>(form.ErText1).toPlainText().startsWith("1103"));
    for (const char* name : {"Cycles done list", "3 [errors]", "Cycle errors", "TOTAL  CYCLES"}) {
      ExpectHeard(Heard(Window(form), form), name);
    }
    ExpectFocusSeen(Window(form));
  });
}

}  // namespace

}  // namespace tintbench::desktop
