#include "qt/FormGMonView.h"

#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <array>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/DebugFrame.h"
#include "qt/InstrumentCard.h"
#include "qt/Look.h"
#include "qt/QtText.h"
#include "qt/SwitchBox.h"

namespace tintbench::desktop {

namespace {

using groups::Element;
using groups::ElementState;
using groups::FormGMon;

// The window's inside.
class MonitorArea final : public QWidget {
 public:
  explicit MonitorArea(QWidget* parent) : QWidget(parent) {
    setMinimumSize(Em(*this) * 44, Em(*this) * 26);
  }
  QSize sizeHint() const override { return {Em(*this) * 64, Em(*this) * 42}; }
};

SwitchBox* MakeSwitch(ui::CheckBox& control, SwitchBox::Meaning meaning, QWidget& holder) {
  auto* const box = new SwitchBox(meaning, &holder);
  Bind(control, *box);
  return box;
}

// By state, in the order of ElementState.
constexpr std::array<const char*, 4> kStateWords{"\u25cf ON", "\u25cb OFF", "? UNKNOWN", "..."};

const char* WordsOf(ElementState state) {
  switch (state) {
    case ElementState::On:
      return kStateWords[0];
    case ElementState::Off:
      return kStateWords[1];
    case ElementState::Unknown:
      return kStateWords[2];
    default:
      return kStateWords[3];
  }
}

// Tells the state in words beside the two boxes that it is read from.
void AddElementState(FormGMon& form, Element element, QWidget& row, QGridLayout& grid) {
  auto* const words = new QLabel(&row);
  words->setFont(ScaledFont(row, 1, true));
  grid.addWidget(words, 1, 0, 1, 2);
  const groups::GroupWindow::Switch boxes = form.SwitchOf(element);
  int column = 2;
  for (ui::CheckBox* control : {&boxes.On, &boxes.Off}) {
    auto* const box = new SwitchBox(
        control == &boxes.On ? SwitchBox::Meaning::Runs : SwitchBox::Meaning::Rests, &row);
    box->setAccessibleName(
        ToQt(form.LblElement(element).Caption.Get() + " " + control->Caption.Get()));
    Bind(*control, *box).Follow({&control->Value, &control->Enabled}, [&form, element, words] {
      words->setText(QString::fromUtf8(WordsOf(form.StateOf(element))));
    });
    box->setMinimumWidth(Em(row) * 5);  // in line with those of the other elements
    grid.addWidget(box, 0, column, 2, 1);
    grid.setColumnStretch(column++, 1);
  }
}

// What the group doesn't have takes no room.
QWidget* MakeGroupElement(FormGMon& form, Element element, QWidget& holder) {
  auto* const row = new QWidget(&holder);
  auto* const grid = new QGridLayout(row);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setVerticalSpacing(0);
  auto* const title = MakeWidget<QLabel>(form.LblElement(element), row);
  title->setFont(ScaledFont(holder, 1.1, true));
  ui::Label& id = form.SwitchOf(element).Id;
  auto* const number = new QLabel(row);
  Bind(id, *number).Follow({&id.Caption}, [&form, element, row] {
    row->setVisible(form.Has(element));
  });
  number->setAlignment(Qt::AlignCenter);
  number->setMinimumWidth(Em(holder) * 2);
  grid->addWidget(title, 0, 0);
  grid->addWidget(number, 0, 1);
  grid->setColumnMinimumWidth(0, Em(holder) * 5);
  AddElementState(form, element, *row, *grid);
  if (element == groups::kMotor) {
    auto* const words = MakeWidget<QLabel>(form.LblMotorSpeed, row);
    auto* const speed = MakeWidget<QLineEdit>(form.TxtMotorSpeed, row);
    speed->setAccessibleName("Motor speed");
    words->setBuddy(speed);
    grid->setRowMinimumHeight(2, Em(holder) * 2);
    grid->addWidget(words, 2, 0, 1, 2, Qt::AlignRight);
    grid->addWidget(speed, 2, 2, 1, 2);
  }
  return row;
}

QWidget* MakeGroupElements(FormGMon& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmCmd, &view);
  auto* const around = new QVBoxLayout(box);
  around->setContentsMargins(0, 0, 0, 0);
  auto* const frame = MakeWidget<QFrame>(form.FrmFunc, box);
  around->addWidget(frame);
  auto* const rows = new QVBoxLayout(frame);
  const int em = Em(view);
  rows->setContentsMargins(em / 2, em / 2, em / 2, em / 2);
  rows->setSpacing(em / 2);
  for (const Element element : {groups::kCap, groups::kValve, groups::kStirring, groups::kMotor}) {
    rows->addWidget(MakeGroupElement(form, element, *frame));
  }
  return box;
}

QCheckBox* MakeTick(ui::CheckBox& control, ui::Label& row, const QString& words, QWidget& box) {
  auto* const tick = new QCheckBox(&box);
  Bind(control, *tick).Follow({&control.Tag, &control.Visible}, [tick, &row, words] {
    tick->setAccessibleName(ToQt(row.Caption.Get()) + ": " + words);
  });
  return tick;
}

void AddDigitalRow(FormGMon& form, int input, QGridLayout& grid, QWidget& box) {
  ui::Label& described = form.LblIdiDescr(input);
  auto* const words = new QLabel(&box);
  words->setWordWrap(true);
  auto* const connector = MakeWidget<QLabel>(form.LblCnIdi(input), &box);
  connector->setAlignment(Qt::AlignCenter);
  auto* const status = MakeWidget<QLabel>(form.LblIdiStatus(input), &box);
  status->setFont(ScaledFont(box, 1.2, true));
  status->setAlignment(Qt::AlignCenter);
  status->setFixedSize(Em(box) * 5 / 2, Em(box) * 3 / 2);
  Bind(described, *words).Follow({&described.Caption}, [&described, words, connector, status] {
    for (QLabel* cell : {words, connector, status}) cell->setVisible(!described.Caption->empty());
  });
  const int row = input + 1;
  grid.addWidget(words, row, 0);
  grid.addWidget(connector, row, 1);
  grid.addWidget(status, row, 2);
  grid.addWidget(MakeTick(form.ChkIdiOff(input), described, "not enquired", box), row, 3,
                 Qt::AlignCenter);
  grid.addWidget(MakeTick(form.ChkIdiXOff(input), described, "X function off", box), row, 4,
                 Qt::AlignCenter);
}

QWidget* MakeDigitalInputs(FormGMon& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmInputs(0), &view);
  auto* const grid = new QGridLayout(box);
  const int em = Em(view);
  grid->setContentsMargins(em / 2, em / 4, em / 2, em / 2);
  grid->setSpacing(em / 3);
  constexpr std::array<const char*, 5> kHeads{"Input", "Conn.", "State", "Off", "X off"};
  int column = 0;
  for (const char* head : kHeads) grid->addWidget(new QLabel(head, box), 0, column++);
  for (int input = 0; input < groups::kDigitalRows; ++input) {
    AddDigitalRow(form, input, *grid, *box);
  }
  grid->setColumnStretch(0, 1);
  grid->setRowStretch(groups::kDigitalRows + 1, 1);
  return box;
}

QLayout* MakePace(FormGMon& form, QWidget& box) {
  auto* const row = new QHBoxLayout;
  auto* const title = MakeWidget<QLabel>(form.LblEnqTime, &box);
  auto* const time = MakeWidget<QLineEdit>(form.TxtEnqTime, &box);
  time->setAccessibleName(title->text());
  time->setMaximumWidth(Em(box) * 5);
  title->setBuddy(time);
  row->addWidget(title);
  row->addWidget(time);
  return row;
}

QWidget* MakeEnquiry(FormGMon& form, QWidget& view) {
  auto* const box = MakeWidget<QFrame>(form.FrmEnquire, &view);
  auto* const rows = new QVBoxLayout(box);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* const row = new QHBoxLayout;
  row->addWidget(MakeSwitch(form.ChkEnquire, SwitchBox::Meaning::Runs, *box), 3);
  row->addWidget(MakeSwitch(form.ChkStopEnquire, SwitchBox::Meaning::Rests, *box), 2);
  row->addLayout(MakePace(form, *box));
  row->addSpacing(Em(view));
  row->addWidget(MakeSwitch(form.ChkMemo, SwitchBox::Meaning::Runs, *box), 2);
  auto* const size = MakeWidget<QLabel>(form.LblKb, box);
  size->setCursor(Qt::PointingHandCursor);
  size->setFixedSize(Em(view) * 5, Em(view) * 2);
  size->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row->addWidget(size);
  row->addWidget(new QLabel("kb", box));
  rows->addLayout(row);
  auto* const ended = new QLabel(box);
  Bind(form.LblRecord, *ended).Follow({&form.LblRecord.Caption}, [&form, ended] {
    ended->setVisible(!form.LblRecord.Caption->empty());
  });
  ended->setWordWrap(true);
  ended->setFont(ScaledFont(view, 1, true));
  rows->addWidget(ended);
  return box;
}

QLayout* MakeInstruments(FormGMon& form, QWidget& view) {
  auto* const grid = new QGridLayout;
  grid->setSpacing(Em(view) / 2);
  for (int index = 0; index < groups::kAnalogueRows; ++index) {
    grid->addWidget(new InstrumentCard(form, index, &view), index / 2, index % 2);
    grid->setColumnStretch(index % 2, 1);
    grid->setRowStretch(index / 2, 1);
  }
  return grid;
}

}  // namespace

QWidget* MakeFormGMonView(FormGMon& form, QWidget* parent) {
  auto* const view = new MonitorArea(parent);
  auto* const rows = new QVBoxLayout(view);
  const int gap = Em(*view) / 2;
  rows->setContentsMargins(0, 0, 0, 0);
  auto* const body = new QHBoxLayout;
  body->setContentsMargins(gap, gap, gap, 0);
  body->setSpacing(gap);
  auto* const left = new QVBoxLayout;
  left->setSpacing(gap);
  left->addWidget(MakeGroupElements(form, *view));
  left->addWidget(MakeDigitalInputs(form, *view), 1);
  body->addLayout(left, 2);
  auto* const right = new QVBoxLayout;
  right->setSpacing(gap);
  right->addWidget(MakeEnquiry(form, *view));
  right->addLayout(MakeInstruments(form, *view), 1);
  body->addLayout(right, 5);
  rows->addLayout(body, 1);
  AddDebugFrame(form.Debug, *view, *rows);
  return view;
}

}  // namespace tintbench::desktop
