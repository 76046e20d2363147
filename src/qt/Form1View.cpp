#include "qt/Form1View.h"

#include <QLabel>
#include <QPainter>
#include <QPushButton>
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

QLabel& AddLabel(ui::Label& control, QBoxLayout& column, QWidget& view) {
  auto* const label = MakeWidget<QLabel>(control, &view);
  column.addWidget(label);
  return *label;
}

// How the link does and what the operator can do.
QLayout* MakeLinkColumn(shell::Form1& form, QWidget& view) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(0);
  QLabel& state = AddLabel(form.LblLink, *column, view);
  state.setFont(ScaledFont(view, 1.2, true));
  state.setWordWrap(true);
  for (ui::Label* label : {&form.LblProblem, &form.LblOn}) {
    AddLabel(*label, *column, view).setWordWrap(true);
  }
  QLabel& hint = AddLabel(form.LblHint, *column, view);
  // The panels don't move when it comes and goes.
  QSizePolicy policy = hint.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  hint.setSizePolicy(policy);
  auto* const step = new QHBoxLayout;
  for (ui::Label* label : {&form.LblLinkStep, &form.LblLinkWait}) AddLabel(*label, *step, view);
  step->addStretch();
  column->addLayout(step);
  return column;
}

// Which port it is and how well its line does, out of the way.
QLayout* MakeLineColumn(shell::Form1& form, QWidget& view) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(0);
  for (ui::Label* control : {&form.LblLinkPort, &form.LblQuality}) {
    QLabel& label = AddLabel(*control, *column, view);
    label.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label.setFont(ScaledFont(view, 0.9, false));
  }
  return column;
}

void AddLinkRow(shell::Form1& form, QWidget& view, QBoxLayout& rows) {
  auto* const row = new QHBoxLayout;
  const int margin = Em(view) / 2;
  row->setContentsMargins(2 * margin, margin, 2 * margin, 0);
  row->setSpacing(margin);
  row->addWidget(new DropMark(&view), 0, Qt::AlignTop);
  row->addLayout(MakeLinkColumn(form, view), 1);
  row->addWidget(MakeWidget<QPushButton>(form.CmdReconnect, &view));
  row->addLayout(MakeLineColumn(form, view));
  rows.addLayout(row);
}

}  // namespace

QWidget* MakeForm1View(shell::Form1& form, QWidget* parent) {
  auto* const view = new MainArea(parent);
  auto* const rows = new QVBoxLayout(view);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  AddLinkRow(form, *view, *rows);
  auto* const area = new PanelArea(view);
  AddSensorPanels(form.Panels, form.CmdResize, *area);
  rows->addWidget(area, 1);
  AddDebugFrame(form.Debug, *view, *rows);
  return view;
}

}  // namespace tintbench::desktop
