#include "qt/PlainView.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "qt/Binder.h"

namespace tintbench::desktop {

QWidget* MakePlainView(shell::PlainWindow& form, QWidget* parent) {
  auto* const view = new QWidget(parent);
  auto* const row = new QHBoxLayout(view);
  row->addWidget(MakeWidget<QLabel>(form.LblPlain, view));
  row->addWidget(MakeWidget<QPushButton>(form.CmdClose, view));
  return view;
}

}  // namespace tintbench::desktop
