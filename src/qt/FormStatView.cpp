#include "qt/FormStatView.h"

#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/Card.h"
#include "qt/CommButtons.h"
#include "qt/DebugFrame.h"
#include "qt/Look.h"
#include "qt/OverviewArea.h"
#include "qt/QtText.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

// The window's inside.
class StatArea final : public QWidget {
 public:
  explicit StatArea(QWidget* parent) : QWidget(parent) {
    setMinimumSize(Em(*this) * 44, Em(*this) * 26);
  }
  QSize sizeHint() const override { return {Em(*this) * 64, Em(*this) * 38}; }
};

// The rows of the three boxes, which stand in line.
enum BoxRow { kTimeRow, kEventsRow, kDateRow, kButtonRow };

// Nothing moves while it is hidden.
void KeepPlace(QWidget& widget) {
  QSizePolicy policy = widget.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget.setSizePolicy(policy);
}

QPushButton* MakeButton(ui::Button& control, QWidget* parent) {
  auto* const button = MakeWidget<QPushButton>(control, parent);
  KeepPlace(*button);
  return button;
}

// A box with rows as high as those of its neighbours.
QGridLayout* MakeBoxRows(QWidget& box) {
  auto* const grid = new QGridLayout(&box);
  const int em = Em(box);
  grid->setRowMinimumHeight(kTimeRow, em * 11 / 2);
  grid->setRowMinimumHeight(kEventsRow, em * 3);
  grid->setRowMinimumHeight(kDateRow, em * 3 / 2);
  grid->setRowMinimumHeight(kButtonRow, em * 2);
  grid->setRowStretch(kTimeRow, 1);
  grid->setRowStretch(kEventsRow, 1);
  return grid;
}

QLabel* MakeNumber(ui::Label& control, QWidget* parent) {
  auto* const number = MakeWidget<QLabel>(control, parent);
  number->setFont(ScaledFont(*parent, 2, true));
  return number;
}

// A number, what makes it 0 beside it, and perhaps the same in other words below.
void FillValue(Card& card, ui::Label& number, ui::Button* reset, ui::Label* words) {
  auto* const row = new QHBoxLayout;
  row->addWidget(MakeNumber(number, &card), 1);
  if (reset != nullptr) row->addWidget(MakeButton(*reset, &card));
  card.Body().addStretch();
  card.Body().addLayout(row);
  if (words != nullptr) {
    auto* const below = MakeWidget<QLabel>(*words, &card);
    below->setWordWrap(true);
    below->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    below->setMinimumHeight(2 * below->fontMetrics().lineSpacing());
    card.Body().addWidget(below);
  }
  card.Body().addStretch();
}

QLayout* MakeDate(ui::ControlArray<ui::Label>& times, QWidget& box) {
  auto* const row = new QHBoxLayout;
  for (const int part : {0, 1}) row->addWidget(MakeWidget<QLabel>(times(part), &box));
  row->addStretch();
  return row;
}

void AddButtons(std::initializer_list<ui::Button*> buttons, QBoxLayout& row, QWidget& holder) {
  for (ui::Button* button : buttons) row.addWidget(MakeButton(*button, &holder));
}

// The titles of both data stand at the left of this one.
QWidget* MakeReceived(stats::FormStat& form, QWidget& page) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmLastData, &page);
  QGridLayout* const grid = MakeBoxRows(*box);
  for (int datum = 0; datum < stats::kData; ++datum) {
    auto* const title = MakeWidget<QLabel>(form.LblLComm(datum), box);
    title->setWordWrap(true);
    title->setFixedWidth(Em(*box) * 7);
    grid->addWidget(title, datum, 0);
    auto* const card = MakeWidget<Card>(form.FrmLData(datum), box);
    FillValue(*card, form.LblLData(datum), &form.CmdRes(datum),
              datum == 0 ? &form.LblSpan(0) : nullptr);
    grid->addWidget(card, datum, 1);
  }
  grid->addWidget(MakeWidget<QLabel>(form.LblTimestub, box), kDateRow, 0);
  grid->addLayout(MakeDate(form.LblLTime, *box), kDateRow, 1);
  auto* const buttons = new QHBoxLayout;
  AddButtons({&form.CmdLRec, &form.CmdLSave, &form.CmdDel(0), &form.CmdSend(0)}, *buttons, *box);
  grid->addLayout(buttons, kButtonRow, 0, 1, 2);
  grid->setColumnStretch(1, 1);
  return box;
}

QWidget* MakeSaved(stats::FormStat& form, QWidget& page) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmSavedData, &page);
  QGridLayout* const grid = MakeBoxRows(*box);
  for (int datum = 0; datum < stats::kData; ++datum) {
    auto* const card = MakeWidget<Card>(form.FrmSData(datum), box);
    FillValue(*card, form.LblSData(datum), nullptr, datum == 0 ? &form.LblSpan(1) : nullptr);
    grid->addWidget(card, datum, 0);
  }
  grid->addLayout(MakeDate(form.LblSTime, *box), kDateRow, 0);
  auto* const buttons = new QHBoxLayout;
  AddButtons({&form.CmdDel(1), &form.CmdSend(1)}, *buttons, *box);
  grid->addLayout(buttons, kButtonRow, 0);
  return box;
}

QWidget* MakeDifference(stats::FormStat& form, QWidget& page) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmDifference, &page);
  QGridLayout* const grid = MakeBoxRows(*box);
  for (int datum = 0; datum < stats::kData; ++datum) {
    auto* const card = new Card(box);
    FillValue(*card, form.LblDiff(datum), nullptr, datum == 0 ? &form.LblDiffSpan : nullptr);
    grid->addWidget(card, datum, 0);
  }
  grid->addWidget(MakeWidget<QLabel>(form.LblDays, box), kDateRow, 0);
  grid->addWidget(new QWidget(box), kButtonRow, 0);  // a row without anything has no height
  return box;
}

QWidget* MakeTypes(stats::FormStat& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmTabStripStat, &view);
  auto* const tabs = MakeWidget<QTabBar>(form.TabStripSta, box);
  tabs->setAccessibleName("Types");
  (new QVBoxLayout(box))->addWidget(tabs);
  return box;
}

// The page goes with them: it would keep the place of its buttons.
QWidget* MakeElements(stats::FormStat& form, QWidget& page) {
  auto* const strip = new QFrame(&page);
  Bind(form.FrmTabStripData, *strip).Follow({&form.FrmTabStripData.Visible}, [&form, &page] {
    page.setVisible(form.FrmTabStripData.Visible);
  });
  auto* const row = new QHBoxLayout(strip);
  row->setContentsMargins(0, 0, 0, 0);
  auto* const title = new QLabel("Element", strip);
  auto* const tabs = MakeWidget<QTabBar>(form.TabStripData, strip);
  title->setBuddy(tabs);
  tabs->setAccessibleName(title->text());
  row->addWidget(title);
  row->addWidget(tabs, 1);
  return strip;
}

// What acts on all elements. While the machine is asked for one, the panel that says so stands in
// its place.
QLayout* MakeActions(stats::FormStat& form, QWidget& page) {
  auto* const place = new QGridLayout;
  auto* const buttons = new QHBoxLayout;
  for (int action = 0; action < stats::kBulkActions; ++action) {
    AddButtons({&form.CmdAll(action)}, *buttons, page);
  }
  AddButtons({&form.CmdOverview}, *buttons, page);
  place->addLayout(buttons, 0, 0);
  auto* const wait = MakeWidget<Card>(form.FrmWplease, &page);
  auto* const words = MakeWidget<QLabel>(form.LblWplease, wait);
  words->setFont(ScaledFont(page, 1.1, true));
  wait->Body().setContentsMargins(Em(page), 0, Em(page), 0);
  wait->Body().addWidget(words);
  place->addWidget(wait, 0, 0, Qt::AlignCenter);
  return place;
}

// One element at a time.
QWidget* MakeElementPage(stats::FormStat& form, QWidget& view) {
  auto* const page = new QWidget(&view);
  auto* const rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(MakeElements(form, *page));
  auto* const boxes = new QHBoxLayout;
  boxes->addWidget(MakeReceived(form, *page), 5);
  boxes->addWidget(MakeSaved(form, *page), 3);
  boxes->addWidget(MakeDifference(form, *page), 3);
  rows->addLayout(boxes, 1);
  rows->addLayout(MakeActions(form, *page));
  return page;
}

QLabel* MakeStrong(ui::Label& control, QWidget* parent) {
  auto* const label = MakeWidget<QLabel>(control, parent);
  label->setFont(ScaledFont(*parent, 1.2, true));
  return label;
}

// Which item of how many, and how long it still takes.
QLayout* MakeCounts(stats::FormStat& form, QWidget& panel) {
  auto* const row = new QHBoxLayout;
  row->addWidget(MakeStrong(form.LblCurr, &panel));
  row->addWidget(new QLabel("of", &panel));
  row->addWidget(MakeStrong(form.LblTot, &panel));
  row->addSpacing(Em(panel));
  row->addWidget(MakeWidget<QLabel>(form.LblDT1, &panel));
  row->addWidget(MakeWidget<QLabel>(form.LblDN1, &panel));
  row->addStretch();
  row->addWidget(MakeWidget<QLabel>(form.LblLeft, &panel));
  return row;
}

QLayout* MakeBulkButtons(stats::FormStat& form, QWidget& panel) {
  constexpr double kStopScale = 1.4;
  auto* const row = new QHBoxLayout;
  row->addWidget(MakeWidget<SendButton>(form.CmdRSAll(0), &panel), 1);
  auto* const stop = new StopButton(kStopScale, &panel);
  Bind(form.CmdRSAll(1), *stop);
  row->addWidget(stop, 2);
  row->addWidget(MakeWidget<SendButton>(form.CmdRSAll(2), &panel), 1);
  return row;
}

// How many items ended so, and which.
void AddOutcome(ui::Label& count, ui::ComboBox& items, QGridLayout& grid, int column,
                QWidget& panel) {
  auto* const title = new QLabel(ToQtSpoken(items.ToolTipText.Get()), &panel);
  auto* const list = MakeWidget<QComboBox>(items, &panel);
  title->setBuddy(list);
  grid.addWidget(title, 0, column);
  grid.addWidget(MakeStrong(count, &panel), 0, column + 1);
  grid.addWidget(list, 0, column + 2);
  grid.setColumnStretch(column + 2, 1);
}

// All elements, one after the other. Its caption stands above the types.
QWidget* MakeBulkPanel(stats::FormStat& form, QWidget& view) {
  auto* const panel = MakeWidget<QFrame>(form.FrmRSAll, &view);
  auto* const rows = new QVBoxLayout(panel);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* const bar = MakeWidget<QProgressBar>(form.PrgRSAll, panel);
  bar->setAccessibleName("Progress");
  bar->setMinimumHeight(Em(*panel) * 2);
  rows->addWidget(bar);
  rows->addLayout(MakeCounts(form, *panel));
  rows->addLayout(MakeBulkButtons(form, *panel));
  auto* const outcomes = new QGridLayout;
  AddOutcome(form.LblSucc, form.CmbSucc, *outcomes, 0, *panel);
  outcomes->setColumnMinimumWidth(3, Em(*panel));
  AddOutcome(form.LblFail, form.CmbFail, *outcomes, 4, *panel);
  rows->addLayout(outcomes);
  auto* const title = new QLabel("What failed or was strange, and why", panel);
  auto* const remarks = MakeWidget<RowList>(form.LstRemarks, panel);
  remarks->setMinimumHeight(Em(*panel) * 4);
  remarks->setAccessibleName(title->text());
  title->setBuddy(remarks);
  rows->addWidget(title);
  rows->addWidget(remarks, 1);
  return panel;
}

QWidget* MakeOverviewPanel(stats::FormStat& form, QWidget& view) {
  auto* const panel = MakeWidget<QFrame>(form.FrmOverview, &view);
  auto* const rows = new QVBoxLayout(panel);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* const dates = MakeWidget<QLabel>(form.LblOverview, panel);
  dates->setWordWrap(true);
  rows->addWidget(dates);
  rows->addWidget(MakeOverviewTable(form, panel), 1);
  auto* const buttons = new QHBoxLayout;
  for (ui::Button* button : {&form.CmdCopy, &form.CmdCsv}) {
    buttons->addWidget(MakeWidget<QPushButton>(*button, panel));
  }
  buttons->addStretch();
  buttons->addWidget(MakeWidget<QPushButton>(form.CmdBack, panel));
  rows->addLayout(buttons);
  return panel;
}

}  // namespace

QWidget* MakeFormStatView(stats::FormStat& form, QWidget* parent) {
  auto* const view = new StatArea(parent);
  auto* const rows = new QVBoxLayout(view);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* const body = new QVBoxLayout;
  const int margin = Em(*view) * 2 / 3;
  body->setContentsMargins(margin, margin, margin, margin);
  body->setSpacing(margin);
  body->addWidget(MakeTypes(form, *view));
  body->addWidget(MakeElementPage(form, *view), 1);
  body->addWidget(MakeBulkPanel(form, *view), 1);
  body->addWidget(MakeOverviewPanel(form, *view), 1);
  rows->addLayout(body, 1);
  AddDebugFrame(form.Debug, *view, *rows);
  form.CopyWanted = [](const std::string& text) {
    QGuiApplication::clipboard()->setText(ToQt(text));
  };
  return view;
}

}  // namespace tintbench::desktop
