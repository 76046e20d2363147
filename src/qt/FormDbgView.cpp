#include "qt/FormDbgView.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/Look.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

// The level, ready to be typed over.
void AddLevel(ui::Form& form, QWidget& view, QBoxLayout& rows) {
  auto* const frame = form.Find<ui::Frame>("FrmDbgEdit");
  auto* const text = form.Find<ui::TextBox>("TxtDbgLev");
  if (frame == nullptr || text == nullptr) return;
  auto* const group = new QGroupBox(&view);
  Bind(*frame, *group);
  auto* const level = new QLineEdit(group);
  Bind(*text, *level);
  level->selectAll();
  (new QHBoxLayout(group))->addWidget(level);
  rows.addWidget(group);
}

// Nothing moves when the refusal comes.
void AddRefusal(ui::Form& form, QWidget& view, QBoxLayout& rows) {
  QWidget* const refusal = MakeWidget<ui::Label>(form, "LblRefused", -1, &view);
  if (refusal == nullptr) return;
  QSizePolicy policy = refusal->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  refusal->setSizePolicy(policy);
  rows.addWidget(refusal);
}

void AddButtons(ui::Form& form, QWidget& view, QBoxLayout& rows) {
  auto* const row = new QHBoxLayout;
  row->addStretch();
  for (const char* name : {"CmdOk", "CmdCancel"}) {
    QWidget* const button = MakeWidget<ui::Button>(form, name, -1, &view);
    if (button != nullptr) row->addWidget(button);
  }
  rows.addLayout(row);
}

// Room for the title beside the buttons of the window's frame, whose font may be a larger one.
int WidthOfTitle(const ui::Form& form, const QWidget& view) {
  const QFontMetrics title(ScaledFont(view, 1.2, true));
  return title.horizontalAdvance(ToQt(form.Caption.Get())) + 8 * Em(view);
}

}  // namespace

QWidget* MakeFormDbgView(ui::Form& form, QWidget* parent) {
  auto* const view = new QWidget(parent);
  auto* const rows = new QVBoxLayout(view);
  AddLevel(form, *view, *rows);
  AddRefusal(form, *view, *rows);
  AddButtons(form, *view, *rows);
  view->setMinimumWidth(WidthOfTitle(form, *view));
  return view;
}

}  // namespace tintbench::desktop
