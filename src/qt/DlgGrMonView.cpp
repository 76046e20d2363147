#include "qt/DlgGrMonView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/Look.h"

namespace tintbench::desktop {

QWidget* MakeDlgGrMonView(groups::DlgGrMon& form, QWidget* parent) {
  auto* const view = new QWidget(parent);
  auto* const rows = new QVBoxLayout(view);
  auto* const title = MakeWidget<QLabel>(form.Label1, view);
  auto* const limit = MakeWidget<QLineEdit>(form.TxtKbMax, view);
  limit->setAccessibleName(title->text());
  limit->selectAll();
  title->setBuddy(limit);
  rows->addWidget(title);
  rows->addWidget(limit);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch();
  for (ui::Button* button : {&form.OKButton, &form.CancelButton}) {
    buttons->addWidget(MakeWidget<QPushButton>(*button, view));
  }
  rows->addLayout(buttons);
  view->setMinimumWidth(Em(*view) * 28);  // the window's title is a path
  return view;
}

}  // namespace tintbench::desktop
