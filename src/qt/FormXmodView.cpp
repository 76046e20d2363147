#include "qt/FormXmodView.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <array>
#include <utility>

#include "qt/Binder.h"
#include "qt/CommButtons.h"
#include "qt/FirmwareGuideView.h"
#include "qt/Look.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

using transfer::XmodWindow;

// The window's inside.
class XmodArea final : public QWidget {
 public:
  explicit XmodArea(QWidget* parent) : QWidget(parent) {
    setMinimumSize(Em(*this) * 44, Em(*this) * 26);
  }
  QSize sizeHint() const override { return {Em(*this) * 64, Em(*this) * 38}; }
};

// Tells that its list is about to open.
class OpeningBox final : public QComboBox {
 public:
  OpeningBox(ui::ComboBox& control, QWidget* parent) : QComboBox(parent), control_(control) {
    Bind(control, *this);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  }
  void showPopup() override {
    if (control_.IsUsable()) control_.DropDown.Raise();
    QComboBox::showPopup();
  }

 private:
  ui::ComboBox& control_;
};

QLabel* MakeTitle(const char* words, QWidget* buddy, QWidget& holder) {
  auto* const title = new QLabel(words, &holder);
  title->setBuddy(buddy);
  return title;
}

QLabel* MakeStrong(ui::Label& control, double scale, QWidget& holder) {
  auto* const label = MakeWidget<QLabel>(control, &holder);
  label->setFont(ScaledFont(holder, scale, true));
  return label;
}

QLayout* MakePort(XmodWindow& form, QWidget& face) {
  auto* const grid = new QGridLayout;
  grid->setVerticalSpacing(Em(face) / 2);
  auto* const port = new OpeningBox(form.CmbCom, &face);
  grid->addWidget(MakeTitle("Port", port, face), 0, 0);
  grid->addWidget(port, 0, 1);
  auto* const device = MakeWidget<QLabel>(form.LblDevice, &face);
  device->setWordWrap(true);
  device->setMinimumHeight(2 * Em(face));
  grid->addWidget(device, 1, 1);
  const std::array<std::pair<const char*, ui::ComboBox*>, 4> settings{
      {{"Speed", &form.CmbBaud},
       {"Parity", &form.CmbPar},
       {"Data bits", &form.CmbDbit},
       {"Stop bits", &form.CmbSbit}}};
  int row = 2;
  for (const auto& [words, control] : settings) {
    auto* const box = MakeWidget<QComboBox>(*control, &face);
    grid->addWidget(MakeTitle(words, box, face), row, 0);
    grid->addWidget(box, row++, 1);
  }
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(row, 1);
  return grid;
}

// What acts on the port, and below it what acts on the machine's service.
QLayout* MakePortActions(XmodWindow& form, QWidget& face) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(Em(face) / 2);
  for (ui::Button* button : {&form.CommConn, &form.CommDisConn}) {
    column->addWidget(MakeWidget<SendButton>(*button, &face));
  }
  column->addSpacing(Em(face) * 2);
  for (ui::Button* button : {&form.CommMaster, &form.CommDisMaster}) {
    column->addWidget(MakeWidget<SendButton>(*button, &face));
  }
  column->addStretch();
  return column;
}

QWidget* MakePortFace(XmodWindow& form, QWidget& view) {
  auto* const face = MakeWidget<QFrame>(form.FrmSettings, &view);
  auto* const row = new QHBoxLayout(face);
  row->setContentsMargins(0, Em(view), 0, 0);
  row->setSpacing(Em(view) * 2);
  row->addLayout(MakePort(form, *face), 3);
  row->addLayout(MakePortActions(form, *face), 2);
  return face;
}

// While the machine restarts, in the place of the file.
QWidget* MakeReconnect(XmodWindow& form, QWidget& view) {
  auto* const frame = MakeWidget<QFrame>(form.FrmReconnect, &view);
  auto* const row = new QHBoxLayout(frame);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(MakeStrong(form.LblReconnect, 1.1, *frame));
  return frame;
}

QWidget* MakeCountdown(XmodWindow& form, QWidget& view) {
  auto* const frame = MakeWidget<QFrame>(form.FrmWaitGroups, &view);
  auto* const row = new QHBoxLayout(frame);
  row->setContentsMargins(0, 0, 0, 0);
  row->addStretch();
  row->addWidget(MakeWidget<QLabel>(form.LblWaitGroups, frame));
  row->addWidget(MakeStrong(form.Lblwait, 2, *frame));
  return frame;
}

// As high in each of its states, so that nothing below moves.
QLayout* MakeFileRow(XmodWindow& form, QWidget& view) {
  auto* const row = new QHBoxLayout;
  row->addStrut(Em(view) * 3);
  auto* const title = MakeWidget<QLabel>(form.LblFile, &view);
  auto* const file = MakeWidget<QLineEdit>(form.TxtFile, &view);
  title->setBuddy(file);
  file->setAccessibleName(title->text());
  row->addWidget(title);
  row->addWidget(file, 1);
  for (ui::Button* button : {&form.CommSel, &form.CommSel1}) {
    row->addWidget(MakeWidget<QPushButton>(*button, &view));
  }
  row->addWidget(MakeReconnect(form, view), 1);
  row->addWidget(MakeCountdown(form, view), 1);
  return row;
}

QLayout* MakeActions(XmodWindow& form, QWidget& view) {
  constexpr double kStopScale = 1.8;
  auto* const row = new QHBoxLayout;
  for (ui::Button* button : {&form.CommSend, &form.CommRec, &form.CommViewModify}) {
    row->addWidget(MakeWidget<SendButton>(*button, &view), 1);
  }
  auto* const stop = new StopButton(kStopScale, &view);
  Bind(form.CommStop, *stop);
  stop->setFixedWidth(Em(view) * 20);
  row->addWidget(stop);
  return row;
}

QLayout* MakeOptions(XmodWindow& form, QWidget& view) {
  auto* const row = new QHBoxLayout;
  auto* const size = MakeWidget<QGroupBox>(form.FrmSize, &view);
  auto* const sizes = new QHBoxLayout(size);
  for (const int index : {0, 1}) {
    sizes->addWidget(MakeWidget<QRadioButton>(form.OptBsize(index), size));
  }
  row->addWidget(size);
  row->addSpacing(Em(view));
  auto* const title = MakeWidget<QLabel>(form.LblTxtwait, &view);
  auto* const wait = MakeWidget<QLineEdit>(form.Txtwait, &view);
  title->setBuddy(wait);
  wait->setAccessibleName(title->text());
  wait->setPlaceholderText("0: by groups");
  wait->setMaximumWidth(Em(view) * 8);
  row->addWidget(title);
  row->addWidget(wait);
  row->addStretch();
  return row;
}

// The check and the block size in use, which the transfer tells.
QWidget* MakeTold(ui::Frame& frame, ui::ControlArray<ui::OptionButton>& options, QWidget& box) {
  auto* const holder = MakeWidget<QFrame>(frame, &box);
  auto* const row = new QHBoxLayout(holder);
  row->setContentsMargins(0, 0, 0, 0);
  for (const int index : {0, 1}) {
    auto* const option = MakeWidget<QRadioButton>(options(index), holder);
    option->setFocusPolicy(Qt::NoFocus);
    row->addWidget(option);
  }
  return holder;
}

QLayout* MakeBlocks(XmodWindow& form, QWidget& box) {
  auto* const row = new QHBoxLayout;
  const std::array<std::pair<const char*, ui::Label*>, 3> counts{
      {{"Blocks", &form.LblCurrb}, {"of", &form.LblTotb}, {"Bytes", &form.LblCurrs}}};
  for (const auto& [words, control] : counts) {
    row->addWidget(new QLabel(words, &box));
    auto* const number = MakeWidget<QLabel>(*control, &box);
    number->setMinimumWidth(Em(box) * 3);
    row->addWidget(number);
  }
  row->addStretch();
  return row;
}

QWidget* MakeParts(XmodWindow& form, QWidget& box) {
  auto* const frame = MakeWidget<QFrame>(form.FrmFw, &box);
  auto* const row = new QHBoxLayout(frame);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(new QLabel("Part", frame));
  for (int piece = 0; piece < transfer::kSendPieces; ++piece) {
    row->addWidget(MakeStrong(form.LblFwfile(piece), 1, *frame));
  }
  return frame;
}

QLayout* MakeProgress(XmodWindow& form, QWidget& box) {
  auto* const row = new QHBoxLayout;
  auto* const bar = MakeWidget<QProgressBar>(form.PrgbTransf, &box);
  bar->setTextVisible(false);
  bar->setAccessibleName("Progress");
  bar->setMinimumHeight(Em(box) * 2);
  row->addWidget(bar, 1);
  auto* const percent = MakeStrong(form.LblPercent, 1.5, box);
  percent->setMinimumWidth(percent->fontMetrics().horizontalAdvance("100 %"));
  percent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row->addWidget(percent);
  return row;
}

QWidget* MakeStatus(XmodWindow& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmStat, &view);
  auto* const rows = new QVBoxLayout(box);
  auto* const head = new QHBoxLayout;
  head->addWidget(MakeStrong(form.LblFileName, 1.1, *box));
  head->addStretch();
  head->addWidget(MakeWidget<QLabel>(form.LblEstat, box));
  head->addWidget(MakeParts(form, *box));
  rows->addLayout(head);
  rows->addLayout(MakeProgress(form, *box));
  auto* const numbers = new QGridLayout;
  int place = 0;
  for (ui::Label* label : {&form.LblBytes, &form.LblRate, &form.LblLeft, &form.LblRepeated}) {
    auto* const told = MakeWidget<QLabel>(*label, box);
    told->setMinimumHeight(Em(*box));
    numbers->addWidget(told, place / 2, place % 2);
    ++place;
  }
  for (const int column : {0, 1}) numbers->setColumnStretch(column, 1);
  rows->addLayout(numbers);
  rows->addLayout(MakeBlocks(form, *box));
  auto* const told = new QHBoxLayout;
  told->addWidget(MakeTold(form.FrmCheck, form.OptCheck, *box));
  told->addSpacing(Em(*box));
  told->addWidget(MakeTold(form.FrmBlock, form.OptSize, *box));
  told->addStretch();
  rows->addLayout(told);
  return box;
}

QWidget* MakeComparison(XmodWindow& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmCompare, &view);
  auto* const rows = new QVBoxLayout(box);
  auto* const verdict = MakeStrong(form.LblCompare, 1, *box);
  verdict->setWordWrap(true);
  rows->addWidget(verdict);
  auto* const list = MakeWidget<RowList>(form.LstCompare, box);
  list->setAccessibleName("Differences");
  list->setMinimumHeight(Em(*box) * 3);
  rows->addWidget(list, 1);
  return box;
}

QWidget* MakeBroken(XmodWindow& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmBroken, &view);
  auto* const row = new QHBoxLayout(box);
  auto* const words = MakeWidget<QLabel>(form.LblBroken, box);
  words->setWordWrap(true);
  row->addWidget(words, 1);
  row->addWidget(MakeWidget<QPushButton>(form.CmdDismiss, box), 0, Qt::AlignTop);
  return box;
}

QWidget* MakeGuide(XmodWindow& form, QWidget& view) {
  auto* const frame = MakeWidget<QFrame>(form.FrmGuide, &view);
  auto* const rows = new QVBoxLayout(frame);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(new FirmwareGuideView(form, frame));
  return frame;
}

QLayout* MakeTransfer(XmodWindow& form, QWidget& view) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(Em(view));
  auto* const column = new QVBoxLayout;
  column->addWidget(MakeStatus(form, view));
  column->addWidget(MakeBroken(form, view));
  column->addWidget(MakeComparison(form, view), 1);
  column->addStretch();
  row->addLayout(column, 1);
  row->addWidget(MakeGuide(form, view), 1);
  return row;
}

}  // namespace

QWidget* MakeFormXmodView(transfer::FormXmod& form, QWidget* parent) {
  auto* const view = new XmodArea(parent);
  auto* const rows = new QVBoxLayout(view);
  const int margin = Em(*view) * 2 / 3;
  rows->setContentsMargins(margin, margin, margin, margin);
  rows->setSpacing(margin);
  rows->addWidget(MakeStrong(form.LblPstat, 1.2, *view));
  rows->addWidget(MakePortFace(form, *view), 1);
  rows->addLayout(MakeFileRow(form, *view));
  rows->addLayout(MakeActions(form, *view));
  rows->addLayout(MakeOptions(form, *view));
  rows->addLayout(MakeTransfer(form, *view), 1);
  auto* const problem = MakeWidget<QLabel>(form.LblProblem, view);
  problem->setWordWrap(true);
  rows->addWidget(problem);
  for (const int line : {0, 1}) rows->addWidget(MakeWidget<QLabel>(form.Lbldeb(line), view));
  return view;
}

}  // namespace tintbench::desktop
