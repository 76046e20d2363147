#include "qt/FormDbgView.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/Look.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

// The level, ready to be typed over.
void AddLevel(shell::FormDbg& form, QWidget& view, QBoxLayout& rows) {
  auto* const group = MakeWidget<QGroupBox>(form.FrmDbgEdit, &view);
  auto* const level = MakeWidget<QLineEdit>(form.TxtDbgLev, group);
  level->selectAll();
  (new QHBoxLayout(group))->addWidget(level);
  rows.addWidget(group);
}

// Nothing moves when the refusal comes.
void AddRefusal(shell::FormDbg& form, QWidget& view, QBoxLayout& rows) {
  auto* const refusal = MakeWidget<QLabel>(form.LblRefused, &view);
  QSizePolicy policy = refusal->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  refusal->setSizePolicy(policy);
  rows.addWidget(refusal);
}

void AddButtons(shell::FormDbg& form, QWidget& view, QBoxLayout& rows) {
  auto* const row = new QHBoxLayout;
  row->addStretch();
  for (ui::Button* button : {&form.CmdOk, &form.CmdCancel}) {
    row->addWidget(MakeWidget<QPushButton>(*button, &view));
  }
  rows.addLayout(row);
}

// Room for the title beside the buttons of the window's frame, whose font may be a larger one.
int WidthOfTitle(const ui::Form& form, const QWidget& view) {
  const QFontMetrics title(ScaledFont(view, 1.2, true));
  return title.horizontalAdvance(ToQt(form.Caption.Get())) + 8 * Em(view);
}

}  // namespace

QWidget* MakeFormDbgView(shell::FormDbg& form, QWidget* parent) {
  auto* const view = new QWidget(parent);
  auto* const rows = new QVBoxLayout(view);
  AddLevel(form, *view, *rows);
  AddRefusal(form, *view, *rows);
  AddButtons(form, *view, *rows);
  view->setMinimumWidth(WidthOfTitle(form, *view));
  return view;
}

}  // namespace tintbench::desktop
