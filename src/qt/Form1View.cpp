#include "qt/Form1View.h"

#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/DebugFrame.h"
#include "qt/Look.h"
#include "qt/NamedPictures.h"
#include "qt/PanelArea.h"
#include "qt/SensorPanelView.h"

namespace tintbench::desktop {

namespace {

class DropMark final : public QWidget {
 public:
  explicit DropMark(QWidget* parent) : QWidget(parent) {
    setFixedSize(Em(*this), Em(*this) * 3 / 2);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, true);
    PaintDrop(painter, rect(), palette().color(QPalette::Highlight));
  }
};

// The window's inside. It opens with room for the whole menu bar, and can be made smaller.
class MainArea final : public QWidget {
 public:
  explicit MainArea(QWidget* parent) : QWidget(parent) {
    setMinimumSize(Em(*this) * 44, Em(*this) * 26);
  }
  QSize sizeHint() const override { return {Em(*this) * 84, Em(*this) * 48}; }
};

QLabel* AddLabel(ui::Form& form, const char* name, QBoxLayout& column, QWidget& view) {
  auto* const label = qobject_cast<QLabel*>(MakeWidget<ui::Label>(form, name, -1, &view));
  if (label != nullptr) column.addWidget(label);
  return label;
}

// How the link does and what the operator can do.
QLayout* MakeLinkColumn(ui::Form& form, QWidget& view) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(0);
  if (QLabel* const state = AddLabel(form, "LblLink", *column, view)) {
    state->setFont(ScaledFont(view, 1.2, true));
    state->setWordWrap(true);
  }
  if (QLabel* const problem = AddLabel(form, "LblProblem", *column, view)) {
    problem->setWordWrap(true);
  }
  if (QLabel* const hint = AddLabel(form, "LblHint", *column, view)) {
    // The panels don't move when it comes and goes.
    QSizePolicy policy = hint->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    hint->setSizePolicy(policy);
  }
  auto* const step = new QHBoxLayout;
  for (const char* name : {"LblLinkStep", "LblLinkWait"}) AddLabel(form, name, *step, view);
  step->addStretch();
  column->addLayout(step);
  return column;
}

// Which port it is and how well its line does, out of the way.
QLayout* MakeLineColumn(ui::Form& form, QWidget& view) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(0);
  for (const char* name : {"LblLinkPort", "LblQuality"}) {
    if (QLabel* const label = AddLabel(form, name, *column, view)) {
      label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
      label->setFont(ScaledFont(view, 0.9, false));
    }
  }
  return column;
}

void AddLinkRow(ui::Form& form, QWidget& view, QBoxLayout& rows) {
  if (form.Find<ui::Label>("LblLink") == nullptr) return;
  auto* const row = new QHBoxLayout;
  const int margin = Em(view) / 2;
  row->setContentsMargins(2 * margin, margin, 2 * margin, 0);
  row->setSpacing(margin);
  row->addWidget(new DropMark(&view), 0, Qt::AlignTop);
  row->addLayout(MakeLinkColumn(form, view), 1);
  QWidget* const again = MakeWidget<ui::Button>(form, "CmdReconnect", -1, &view);
  if (again != nullptr) row->addWidget(again);
  row->addLayout(MakeLineColumn(form, view));
  rows.addLayout(row);
}

}  // namespace

QWidget* MakeForm1View(ui::Form& form, QWidget* parent) {
  auto* const view = new MainArea(parent);
  auto* const rows = new QVBoxLayout(view);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  AddLinkRow(form, *view, *rows);
  auto* const area = new PanelArea(view);
  AddSensorPanels(form, *area);
  rows->addWidget(area, 1);
  AddDebugFrame(form, *view, *rows);
  return view;
}

}  // namespace tintbench::desktop
