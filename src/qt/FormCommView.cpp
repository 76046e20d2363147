#include "qt/FormCommView.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/CommButtons.h"
#include "qt/DebugFrame.h"
#include "qt/Look.h"
#include "qt/OutputArea.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

QFont FixedFont() { return QFontDatabase::systemFont(QFontDatabase::FixedFont); }

// The window's inside. It opens as large as the main window, and can be made smaller.
class CommArea final : public QWidget {
 public:
  explicit CommArea(QWidget* parent) : QWidget(parent) {
    setMinimumSize(Em(*this) * 44, Em(*this) * 26);
  }
  QSize sizeHint() const override { return {Em(*this) * 84, Em(*this) * 48}; }
};

// What is said about the last command, in at most three lines.
QPlainTextEdit* MakeStatus(ui::TextBox& control, QWidget* parent) {
  constexpr int kLines = 3;
  auto* const text = MakeWidget<QPlainTextEdit>(control, parent);
  text->setFont(FixedFont());
  const int margins = 2 * (text->frameWidth() + qRound(text->document()->documentMargin()));
  text->setFixedHeight(text->fontMetrics().lineSpacing() * kLines + margins);
  return text;
}

// One of the two faces, with `share` of its width for its own controls at the left. A window that
// opens shows one face for good, and that one gets the output at its right.
class Face final : public QFrame {
 public:
  Face(ui::Frame& frame, double share, QWidget* parent)
      : QFrame(parent), grid_(new QGridLayout(this)) {
    constexpr int kWhole = 100;
    Bind(frame, *this);
    grid_->setContentsMargins(0, 0, 0, 0);
    const int left = qRound(share * kWhole);
    grid_->setColumnStretch(0, left);
    grid_->setColumnStretch(1, kWhole - left);
    grid_->setRowStretch(0, 1);
  }

  QGridLayout& Grid() { return *grid_; }
  // Only after the face's own controls, as the Tab key goes.
  void AddOutput(commands::CommWindow& form) {
    if (!isHidden()) grid_->addWidget(new OutputArea(form, this), 0, 1);
  }

 private:
  QGridLayout* grid_;
};

void AddTitled(QBoxLayout& column, QLabel* title, QWidget* field) {
  title->setBuddy(field);
  column.addWidget(title);
  column.addWidget(field);
}

template <typename Widget, typename Kind>
Widget& AddTitled(ui::Label& title, Kind& control, QBoxLayout& column, QWidget& face) {
  auto* const label = MakeWidget<QLabel>(title, &face);
  auto* const field = MakeWidget<Widget>(control, &face);
  AddTitled(column, label, field);
  return *field;
}

// Narrower than its longest row if it must be.
void LetShrink(QComboBox& box) {
  box.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box.setMinimumContentsLength(12);
}

void AddStop(ui::Button& control, double scale, QBoxLayout& row, int stretch, QWidget& face) {
  auto* const button = new StopButton(scale, &face);
  Bind(control, *button);
  row.addWidget(button, stretch);
}

void AddFind(commands::CommWindow& form, QBoxLayout& column, QWidget& face) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(Em(face) / 2);
  auto& field = AddTitled<QLineEdit>(form.LblFind, form.TxtFind, *row, face);
  field.setPlaceholderText("a few letters of a command");
  field.setClearButtonEnabled(true);
  row->addWidget(MakeWidget<QLabel>(form.LblFound, &face));
  column.addLayout(row);
}

void AddCommands(commands::CommWindow& form, QBoxLayout& column, QWidget& face) {
  auto* const title = MakeWidget<QLabel>(form.LblCmdS, &face);
  column.addWidget(title);
  for (int group = 0; group < commands::kCommandGroups; ++group) {
    auto* const list = MakeWidget<RowList>(form.LstCsingle(group), &face);
    list->setMinimumHeight(Em(face) * 4);
    list->setAccessibleName(title->text());
    column.addWidget(list, 1);
  }
}

// What can be sent, and what sends it.
QLayout* MakeChoice(commands::CommWindow& form, QWidget& face) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(Em(face) / 3);
  LetShrink(AddTitled<QComboBox>(form.LblCmdT, form.CmbCtype, *column, face));
  AddFind(form, *column, face);
  AddCommands(form, *column, face);
  auto& recent = AddTitled<QComboBox>(form.LblRecent, form.CmbRecent, *column, face);
  LetShrink(recent);
  recent.setPlaceholderText("choose one to take it up again");
  auto* const buttons = new QHBoxLayout;
  buttons->addWidget(MakeWidget<SendButton>(form.CmdExec, &face), 3);
  AddStop(form.CmdStop, 1.1, *buttons, 1, face);
  column->addLayout(buttons);
  return column;
}

// What went over the line and how it ended.
QLayout* MakeExchange(commands::CommWindow& form, QWidget& face) {
  auto* const grid = new QGridLayout;
  const auto add = [&](const char* words, QWidget* text, int row, int rows, int column) {
    auto* const title = new QLabel(words, &face);
    title->setBuddy(text);
    grid->addWidget(title, row, column);
    grid->addWidget(text, row, column + 1, rows, 1);
  };
  const auto makeLine = [&](int index) {
    auto* const line = MakeWidget<QLineEdit>(form.TxtIO(index), &face);
    line->setFont(FixedFont());
    return line;
  };
  add("Sent", makeLine(0), 0, 1, 0);
  add("Received", makeLine(1), 1, 1, 0);
  add("Status", MakeStatus(form.TxtIO(2), &face), 0, 2, 2);
  grid->setColumnStretch(1, 3);
  grid->setColumnStretch(3, 2);
  return grid;
}

QWidget* MakeCommandFace(commands::CommWindow& form, QWidget& view) {
  auto* const face = new Face(form.FrmSingle, 0.36, &view);
  face->Grid().addLayout(MakeChoice(form, *face), 0, 0);
  face->Grid().addLayout(MakeExchange(form, *face), 1, 0, 1, 2);
  face->AddOutput(form);
  return face;
}

OptionCard* MakeOption(ui::OptionButton& control, QWidget& face) {
  auto* const card = new OptionCard(&face);
  Bind(control, *card).Follow({&control.Tag}, [&control, card] {
    card->ShowRunning(control.Tag.Get() == commands::kRunningTag);
  });
  return card;
}

// The options, one column after the other.
QLayout* MakeOptions(commands::CommWindow& form, QWidget& face) {
  constexpr int kRows = (commands::kMaintenanceOptions + 1) / 2;
  auto* const grid = new QGridLayout;
  grid->setSpacing(Em(face) / 3);
  for (int option = 0; option < commands::kMaintenanceOptions; ++option) {
    grid->addWidget(MakeOption(form.Option1(option), face), option % kRows, option / kRows);
  }
  return grid;
}

QWidget* MakeMaintenanceFace(commands::CommWindow& form, QWidget& view) {
  constexpr double kHaltScale = 2.4;
  auto* const face = new Face(form.FrmMulti, 0.44, &view);
  auto* const column = new QVBoxLayout;
  column->addLayout(MakeOptions(form, *face), 1);
  column->addWidget(MakeWidget<SendButton>(form.CmdMultExec, face));
  face->Grid().addLayout(column, 0, 0);
  auto* const halt = new QVBoxLayout;
  AddStop(form.CmdMultStop, kHaltScale, *halt, 0, *face);
  face->Grid().addLayout(halt, 1, 0);
  auto* const status = new QVBoxLayout;
  AddTitled(*status, new QLabel("Status", face), MakeStatus(form.TxtIOm, face));
  face->Grid().addLayout(status, 1, 1);
  face->AddOutput(form);
  return face;
}

}  // namespace

QWidget* MakeFormCommView(commands::FormComm& form, QWidget* parent) {
  auto* const view = new CommArea(parent);
  auto* const rows = new QVBoxLayout(view);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  auto* const faces = new QVBoxLayout;
  const int margin = Em(*view) * 2 / 3;
  faces->setContentsMargins(margin, margin, margin, margin);
  faces->addWidget(MakeCommandFace(form, *view));
  faces->addWidget(MakeMaintenanceFace(form, *view));
  auto* const on = MakeWidget<QLabel>(form.LblOn, view);
  on->setContentsMargins(0, margin / 2, 0, 0);
  faces->addWidget(on);
  rows->addLayout(faces, 1);
  AddDebugFrame(form.Debug, *view, *rows);
  return view;
}

}  // namespace tintbench::desktop
