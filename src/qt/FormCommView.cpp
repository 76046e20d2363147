#include "qt/FormCommView.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "commands/CommWindow.h"
#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/CommButtons.h"
#include "qt/DebugFrame.h"
#include "qt/Look.h"
#include "qt/OutputArea.h"
#include "qt/QtText.h"
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

// A text of the machine, as tall as `lines` of it.
QWidget* MakeStatusText(const ui::Form& form, const char* name, int index, int lines,
                        QWidget* parent) {
  QWidget* const box = MakeWidget<ui::TextBox>(form, name, index, parent);
  if (box == nullptr) return new QWidget(parent);
  box->setFont(FixedFont());
  if (auto* const text = qobject_cast<QPlainTextEdit*>(box)) {
    const int margins = 2 * (text->frameWidth() + qRound(text->document()->documentMargin()));
    text->setFixedHeight(text->fontMetrics().lineSpacing() * lines + margins);
  }
  return box;
}

// Makes the frame of a face, with `share` of its width for its own controls at the left. A window
// that opens shows one face for good, and that one gets the output at its right.
QFrame* MakeFace(ui::Form& form, const char* name, double share, QWidget& view) {
  auto* const control = form.Find<ui::Frame>(name);
  auto* const face = new QFrame(&view);
  auto* const grid = new QGridLayout(face);
  if (control == nullptr) return face;
  Bind(*control, *face);
  grid->setContentsMargins(0, 0, 0, 0);
  constexpr int kWhole = 100;
  const int left = qRound(share * kWhole);
  grid->setColumnStretch(0, left);
  grid->setColumnStretch(1, kWhole - left);
  grid->setRowStretch(0, 1);
  return face;
}

// Only after the face's own controls, as the Tab key goes.
void AddOutput(ui::Form& form, QFrame& face, QGridLayout& grid) {
  if (!face.isHidden()) grid.addWidget(new OutputArea(form, &face), 0, 1);
}

QWidget* AddTitled(QBoxLayout& column, QWidget* title, QWidget* field) {
  if (auto* const label = qobject_cast<QLabel*>(title)) label->setBuddy(field);
  if (title != nullptr) column.addWidget(title);
  if (field != nullptr) column.addWidget(field);
  return field;
}

template <typename Kind>
QWidget* AddTitled(const ui::Form& form, QBoxLayout& column, const char* title, const char* field,
                   QWidget& face) {
  QWidget* const label = MakeWidget<ui::Label>(form, title, -1, &face);
  return AddTitled(column, label, MakeWidget<Kind>(form, field, -1, &face));
}

// Narrower than its longest row if it must be.
void LetShrink(QWidget* combo) {
  auto* const box = qobject_cast<QComboBox*>(combo);
  if (box == nullptr) return;
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(12);
}

template <typename Widget>
void AddButton(const ui::Form& form, const char* name, Widget* button, QBoxLayout& row,
               int stretch) {
  auto* const control = form.Find<ui::Button>(name);
  if (control == nullptr) return;
  Bind(*control, *button);
  row.addWidget(button, stretch);
}

void AddFind(const ui::Form& form, QBoxLayout& column, QWidget& face) {
  auto* const row = new QHBoxLayout;
  QWidget* const field = AddTitled<ui::TextBox>(form, *row, "LblFind", "TxtFind", face);
  if (auto* const edit = qobject_cast<QLineEdit*>(field)) {
    edit->setPlaceholderText("a few letters of a command");
    edit->setClearButtonEnabled(true);
  }
  if (QWidget* const found = MakeWidget<ui::Label>(form, "LblFound", -1, &face)) {
    row->addWidget(found);
  }
  column.addLayout(row);
}

// What can be sent, and what sends it.
QLayout* MakeChoice(const ui::Form& form, QWidget& face) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(Em(face) / 3);
  LetShrink(AddTitled<ui::ComboBox>(form, *column, "LblCmdT", "CmbCtype", face));
  AddFind(form, *column, face);
  auto* const title = qobject_cast<QLabel*>(MakeWidget<ui::Label>(form, "LblCmdS", -1, &face));
  if (title != nullptr) column->addWidget(title);
  for (int group = 0; group < commands::kCommandGroups; ++group) {
    QWidget* const list = MakeWidget<ui::ListBox>(form, "LstCsingle", group, &face);
    if (list == nullptr) continue;
    list->setMinimumHeight(Em(face) * 4);
    if (title != nullptr) list->setAccessibleName(title->text());
    column->addWidget(list, 1);
  }
  QWidget* const recent = AddTitled<ui::ComboBox>(form, *column, "LblRecent", "CmbRecent", face);
  LetShrink(recent);
  if (auto* const box = qobject_cast<QComboBox*>(recent)) {
    box->setPlaceholderText("choose one to take it up again");
  }
  auto* const buttons = new QHBoxLayout;
  AddButton(form, "CmdExec", new SendButton(&face), *buttons, 3);
  AddButton(form, "CmdStop", new StopButton(1.1, &face), *buttons, 1);
  column->addLayout(buttons);
  return column;
}

// What went over the line and how it ended.
QLayout* MakeExchange(const ui::Form& form, QWidget& face) {
  struct Field {
    const char* Title;
    int Index;
    int Row;
    int RowSpan;
    int Column;
  };
  constexpr Field kFields[] = {
      {"Sent", 0, 0, 1, 0}, {"Received", 1, 1, 1, 0}, {"Status", 2, 0, 2, 2}};
  auto* const grid = new QGridLayout;
  for (const Field& field : kFields) {
    auto* const title = new QLabel(QString::fromLatin1(field.Title), &face);
    QWidget* const text = MakeStatusText(form, "TxtIO", field.Index, 3, &face);
    title->setBuddy(text);
    grid->addWidget(title, field.Row, field.Column);
    grid->addWidget(text, field.Row, field.Column + 1, field.RowSpan, 1);
  }
  grid->setColumnStretch(1, 3);
  grid->setColumnStretch(3, 2);
  return grid;
}

QWidget* MakeCommandFace(ui::Form& form, QWidget& view) {
  QFrame* const face = MakeFace(form, "FrmSingle", 0.36, view);
  auto& grid = static_cast<QGridLayout&>(*face->layout());
  grid.addLayout(MakeChoice(form, *face), 0, 0);
  grid.addLayout(MakeExchange(form, *face), 1, 0, 1, 2);
  AddOutput(form, *face, grid);
  return face;
}

// The options, one column after the other.
QLayout* MakeOptions(const ui::Form& form, QWidget& face) {
  constexpr int kRows = (commands::kMaintenanceOptions + 1) / 2;
  auto* const grid = new QGridLayout;
  grid->setSpacing(Em(face) / 3);
  for (int option = 0; option < commands::kMaintenanceOptions; ++option) {
    auto* const control = form.Find<ui::OptionButton>("Option1", option);
    if (control == nullptr) continue;
    auto* const card = new OptionCard(&face);
    Binding& binding = Bind(*control, *card);
    binding.Follow({&control->Tag}, [control, card] {
      card->ShowRunning(control->Tag.Get() == commands::kRunningTag);
    });
    grid->addWidget(card, option % kRows, option / kRows);
  }
  return grid;
}

QWidget* MakeMaintenanceFace(ui::Form& form, QWidget& view) {
  constexpr double kHaltScale = 2.4;
  QFrame* const face = MakeFace(form, "FrmMulti", 0.44, view);
  auto& grid = static_cast<QGridLayout&>(*face->layout());
  auto* const column = new QVBoxLayout;
  column->addLayout(MakeOptions(form, *face), 1);
  AddButton(form, "CmdMultExec", new SendButton(face), *column, 0);
  grid.addLayout(column, 0, 0);
  auto* const halt = new QVBoxLayout;
  AddButton(form, "CmdMultStop", new StopButton(kHaltScale, face), *halt, 0);
  grid.addLayout(halt, 1, 0);
  auto* const status = new QVBoxLayout;
  AddTitled(*status, new QLabel("Status", face), MakeStatusText(form, "TxtIOm", -1, 3, face));
  grid.addLayout(status, 1, 1);
  AddOutput(form, *face, grid);
  return face;
}

}  // namespace

QWidget* MakeFormCommView(ui::Form& form, QWidget* parent) {
  auto* const view = new CommArea(parent);
  auto* const rows = new QVBoxLayout(view);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  auto* const faces = new QVBoxLayout;
  const int margin = Em(*view) * 2 / 3;
  faces->setContentsMargins(margin, margin, margin, margin);
  faces->addWidget(MakeCommandFace(form, *view));
  faces->addWidget(MakeMaintenanceFace(form, *view));
  if (QWidget* const on = MakeWidget<ui::Label>(form, "LblOn", -1, view)) faces->addWidget(on);
  rows->addLayout(faces, 1);
  AddDebugFrame(form, *view, *rows);
  return view;
}

}  // namespace tintbench::desktop
