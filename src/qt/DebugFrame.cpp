#include "qt/DebugFrame.h"

#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>

#include "qt/Binder.h"
#include "qt/Look.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

void AddDebugFrame(ui::Form& form, QWidget& view, QBoxLayout& rows) {
  auto* const frame = form.Find<ui::Frame>("FrmDbg");
  if (frame == nullptr) return;
  auto* const group = new QGroupBox(&view);
  Bind(*frame, *group);
  auto* const row = new QHBoxLayout(group);
  for (const int index : {0, 1}) {
    auto* const text = form.Find<ui::TextBox>("TxtDbgIO", index);
    if (text == nullptr) continue;
    auto* const title = new QLabel(ToQt(text->ToolTipText.Get()), group);
    QWidget* const box = MakeWidget(*text, group);
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
