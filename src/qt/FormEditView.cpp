#include "qt/FormEditView.h"

#include <QCheckBox>
#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/Card.h"
#include "qt/Look.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

RowList* MakeChoice(ui::ListBox& control, const QString& name, QWidget& box) {
  auto* const list = MakeWidget<RowList>(control, &box);
  list->setAccessibleName(name);
  list->setMinimumSize(Em(box) * 24, Em(box) * 12);
  return list;
}

// The boxes of the mask, four in a frame, each with its connector's number.
QLayout* MakeMask(editor::EditWindow& form, QWidget& box) {
  auto* const row = new QHBoxLayout;
  for (int frame = 0; frame < editor::kMaskFrames; ++frame) {
    auto* const card = MakeWidget<Card>(form.FrmCnm(frame), &box);
    auto* const boxes = new QHBoxLayout;
    for (int place = 0; place < editor::kBoxesInFrame; ++place) {
      ui::CheckBox& control = form.ChkCnm(frame * editor::kBoxesInFrame + place);
      boxes->addWidget(MakeWidget<QCheckBox>(control, card));
    }
    card->Body().addLayout(boxes);
    row->addWidget(card);
  }
  return row;
}

QWidget* MakeValue(editor::EditWindow& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmEdit, &view);
  auto* const rows = new QVBoxLayout(box);
  auto* const text = MakeWidget<QLineEdit>(form.TxtEdit, box);
  text->selectAll();  // ready to be typed over
  text->setAccessibleName(box->title());
  text->setMinimumWidth(Em(view) * 24);
  rows->addWidget(text);
  auto* const prompt = MakeWidget<QLabel>(form.LblSel, box);
  rows->addWidget(prompt);
  rows->addWidget(MakeChoice(form.LstEdit, prompt->text(), *box), 1);
  rows->addWidget(MakeChoice(form.LstChkEdit, prompt->text(), *box), 1);
  rows->addLayout(MakeMask(form, *box));
  return box;
}

// Drawn in characters, and seen whole across.
QPlainTextEdit* MakeHelp(editor::EditWindow& form, QWidget& view) {
  constexpr int kAcross = 84;
  constexpr int kLines = 14;
  auto* const help = new QPlainTextEdit(&view);
  Bind(form.TxtHelp, *help, Reading::KeepsItsPlace);
  help->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  help->setLineWrapMode(QPlainTextEdit::NoWrap);
  help->setAccessibleName("Explanation");
  const QFontMetrics metrics(help->font());
  help->setMinimumSize(metrics.averageCharWidth() * kAcross, metrics.height() * kLines);
  return help;
}

QWidget* MakeAuxiliary(editor::EditWindow& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmAux, &view);
  auto* const grid = new QGridLayout(box);
  for (int index = 0; index < form.LblAux.Count(); ++index) {
    auto* const label = MakeWidget<QLabel>(form.LblAux(index), box);
    if (index % 2 != 0) label->setFont(ScaledFont(view, 1, true));
    grid->addWidget(label, index / 2, index % 2);
  }
  grid->setColumnStretch(1, 1);
  return box;
}

}  // namespace

QWidget* MakeFormEditView(editor::FormEdit& form, QWidget* parent) {
  auto* const view = new QWidget(parent);
  auto* const rows = new QVBoxLayout(view);
  auto* const title = MakeWidget<QLabel>(form.Lbldescr, view);
  title->setFont(ScaledFont(*view, 1.1, true));
  rows->addWidget(title);
  rows->addWidget(MakeWidget<QLabel>(form.LblRange, view));
  rows->addWidget(MakeValue(form, *view), 1);
  rows->addWidget(MakeAuxiliary(form, *view));
  rows->addWidget(MakeHelp(form, *view), 1);
  auto* const buttons = new QHBoxLayout;
  for (int action = 0; action < editor::kEditActions; ++action) {
    buttons->addWidget(MakeWidget<QPushButton>(form.CmdEdit(action), view));
  }
  rows->addLayout(buttons);
  return view;
}

}  // namespace tintbench::desktop
