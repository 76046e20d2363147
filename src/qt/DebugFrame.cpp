#include "qt/DebugFrame.h"

#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

#include "qt/Binder.h"
#include "qt/Look.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

void AddDebugFrame(state::DebugFrame& debug, QWidget& view, QBoxLayout& rows) {
  auto* const group = MakeWidget<QGroupBox>(debug.FrmDbg, &view);
  auto* const row = new QHBoxLayout(group);
  for (const int index : {0, 1}) {
    ui::TextBox& text = debug.TxtDbgIO(index);
    auto* const title = new QLabel(ToQt(text.ToolTipText.Get()), group);
    auto* const box = MakeWidget<QLineEdit>(text, group);
    title->setBuddy(box);
    box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    row->addWidget(title);
    row->addWidget(box, index + 1);
  }
  auto* const foot = new QHBoxLayout;
  foot->setContentsMargins(Em(view), 0, Em(view), Em(view) / 2);
  foot->addWidget(group);
  rows.addLayout(foot);
}

}  // namespace tintbench::desktop
