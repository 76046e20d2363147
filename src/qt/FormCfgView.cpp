#include "qt/FormCfgView.h"

#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/Card.h"
#include "qt/Look.h"
#include "qt/ParameterList.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

using editor::CfgWindow;

// The window's inside.
class CfgArea final : public QWidget {
 public:
  explicit CfgArea(QWidget* parent) : QWidget(parent) {
    setMinimumSize(Em(*this) * 44, Em(*this) * 26);
  }
  QSize sizeHint() const override { return {Em(*this) * 64, Em(*this) * 38}; }
};

void AddCfgButtons(std::initializer_list<ui::Button*> buttons, QBoxLayout& row, QWidget& holder) {
  for (ui::Button* button : buttons) row.addWidget(MakeWidget<QPushButton>(*button, &holder));
}

QWidget* MakeFileDate(CfgWindow& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmDT, &view);
  auto* const row = new QHBoxLayout(box);
  for (const int part : {0, 1}) row->addWidget(MakeWidget<QLabel>(form.LblDateTime(part), box));
  return box;
}

QWidget* MakeSlave(CfgWindow& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmSlv, &view);
  auto* const row = new QHBoxLayout(box);
  row->addWidget(MakeWidget<QPushButton>(form.CmdSlv(0), box));
  auto* const slave = MakeWidget<QLabel>(form.LblSlv, box);
  slave->setFont(ScaledFont(view, 1.2, true));
  slave->setMinimumWidth(Em(view) * 2);
  slave->setAlignment(Qt::AlignCenter);
  row->addWidget(slave);
  row->addWidget(MakeWidget<QPushButton>(form.CmdSlv(1), box));
  for (const int step : {0, 1}) {
    box->findChildren<QPushButton*>().at(step)->setMaximumWidth(Em(view) * 2);
  }
  return box;
}

QWidget* MakeGroups(CfgWindow& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmTabStripCfg, &view);
  auto* const rows = new QVBoxLayout(box);
  auto* const groups = new QHBoxLayout;
  for (int group = 0; group < form.OptCfg.Count(); ++group) {
    groups->addWidget(MakeWidget<QRadioButton>(form.OptCfg(group), box));
  }
  groups->addStretch();
  rows->addLayout(groups);
  for (int group = 0; group < form.TabStripCfg.Count(); ++group) {
    auto* const tables = MakeWidget<QTabBar>(form.TabStripCfg(group), box);
    tables->setAccessibleName("Tables");
    rows->addWidget(tables);
  }
  return box;
}

QLayout* MakeHead(CfgWindow& form, QWidget& view) {
  auto* const row = new QHBoxLayout;
  row->addWidget(MakeGroups(form, view), 1);
  auto* const column = new QVBoxLayout;
  column->addWidget(MakeSlave(form, view));
  column->addWidget(MakeFileDate(form, view));
  row->addLayout(column);
  return row;
}

RowList* MakeRows(ui::ListBox& control, const QString& name, QWidget& holder) {
  auto* const list = MakeWidget<RowList>(control, &holder);
  list->setAccessibleName(name);
  list->setMinimumHeight(Em(holder) * 3);
  return list;
}

// The tabs of the elements, and the field that leads to one by its number.
QLayout* MakeElements(CfgWindow& form, QWidget& box) {
  auto* const row = new QHBoxLayout;
  auto* const strip = MakeWidget<QFrame>(form.FrmTabStripElem, &box);
  auto* const inside = new QHBoxLayout(strip);
  inside->setContentsMargins(0, 0, 0, 0);
  auto* const title = MakeWidget<QLabel>(form.LblElem, strip);
  auto* const number = MakeWidget<QLineEdit>(form.TxtElem, strip);
  title->setBuddy(number);
  number->setAccessibleName(title->text());
  number->setFixedWidth(Em(box) * 3);
  auto* const tabs = MakeWidget<QTabBar>(form.TabStripElem, strip);
  tabs->setAccessibleName("Elements");
  for (QWidget* widget : std::initializer_list<QWidget*>{title, number}) inside->addWidget(widget);
  inside->addWidget(tabs, 1);
  row->addWidget(strip, 1);
  AddCfgButtons({&form.CmdAdd, &form.CmdRemoveResume}, *row, box);
  return row;
}

QWidget* MakeParameters(CfgWindow& form, QWidget& box) {
  auto* const frame = MakeWidget<QFrame>(form.Frame2, &box);
  auto* const rows = new QVBoxLayout(frame);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* const list = MakeRows(form.LstCfg, "Parameter List", *frame);
  list->setItemDelegate(new ParameterRowsPainter(form, list));
  rows->addWidget(list);
  return frame;
}

// The row that is chosen: what it is, in which units and range, and its value.
QLayout* MakeCurrent(CfgWindow& form, QWidget& box) {
  auto* const row = new QHBoxLayout;
  auto* const words = MakeWidget<QGroupBox>(form.Frame3, &box);
  auto* const lines = new QVBoxLayout(words);
  for (ui::Label* label :
       {&form.LblCurr(editor::kCurrTitle), &form.LblCurr(editor::kCurrRange), &form.LblUnit}) {
    auto* const line = MakeWidget<QLabel>(*label, words);
    line->setWordWrap(true);
    line->setMinimumHeight(Em(box));
    lines->addWidget(line);
  }
  row->addWidget(words, 3);
  auto* const value = MakeWidget<QGroupBox>(form.Frame4, &box);
  auto* const values = new QVBoxLayout(value);
  auto* const shown = MakeWidget<QLabel>(form.LblCurr(editor::kCurrValue), value);
  shown->setFont(ScaledFont(box, 1.2, true));
  shown->setWordWrap(true);
  values->addWidget(shown);
  values->addWidget(MakeWidget<QPushButton>(form.CmdEdit, value));
  row->addWidget(value, 2);
  auto* const order = MakeWidget<QGroupBox>(form.FrmNum, &box);
  auto* const numbers = new QHBoxLayout(order);
  numbers->addWidget(MakeWidget<QLabel>(form.LblCurr(editor::kCurrNumber), order));
  numbers->addWidget(new QLabel("of", order));
  numbers->addWidget(MakeWidget<QLabel>(form.LblTot, order));
  row->addWidget(order);
  return row;
}

QWidget* MakeTable(CfgWindow& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmTable, &view);
  auto* const rows = new QVBoxLayout(box);
  rows->addLayout(MakeElements(form, *box));
  rows->addWidget(MakeParameters(form, *box), 1);
  rows->addLayout(MakeCurrent(form, *box));
  return box;
}

// A panel's list, whose rows have cells.
void AddCells(ui::ListBox& control, const char* name, QBoxLayout& rows, QWidget& panel) {
  auto* const list = MakeRows(control, name, panel);
  list->setItemDelegate(new TabbedRowsPainter(list));
  rows.addWidget(list, 1);
}

QWidget* MakeFind(CfgWindow& form, QWidget& view) {
  auto* const panel = MakeWidget<QGroupBox>(form.FrmFind, &view);
  auto* const rows = new QVBoxLayout(panel);
  auto* const row = new QHBoxLayout;
  auto* const text = MakeWidget<QLineEdit>(form.TxtFind, panel);
  text->setAccessibleName(panel->title());
  text->setPlaceholderText("a few letters of a description, a tag or a value");
  text->setClearButtonEnabled(true);
  row->addWidget(text, 1);
  row->addWidget(MakeWidget<QLabel>(form.LblFind, panel));
  rows->addLayout(row);
  AddCells(form.LstFind, "Places found", *rows, *panel);
  return panel;
}

QWidget* MakeChanges(CfgWindow& form, QWidget& view) {
  auto* const panel = MakeWidget<QGroupBox>(form.FrmChanges, &view);
  auto* const row = new QHBoxLayout(panel);
  AddCells(form.LstChanges, "Changes", *row, *panel);
  row->addWidget(MakeWidget<QPushButton>(form.CmdTakeBack, panel), 0, Qt::AlignTop);
  return panel;
}

QWidget* MakeCompare(CfgWindow& form, QWidget& view) {
  auto* const panel = MakeWidget<QGroupBox>(form.FrmCompare, &view);
  auto* const rows = new QVBoxLayout(panel);
  auto* const row = new QHBoxLayout;
  AddCfgButtons({&form.CmdCompareFile}, *row, *panel);
  row->addWidget(MakeWidget<QLabel>(form.LblCompare, panel), 1);
  AddCfgButtons({&form.CmdTakeOver}, *row, *panel);
  rows->addLayout(row);
  AddCells(form.LstCompare, "Differences", *rows, *panel);
  return panel;
}

QLayout* MakeFoot(CfgWindow& form, QWidget& view) {
  auto* const row = new QHBoxLayout;
  AddCfgButtons({&form.CmdFind, &form.CmdChanges, &form.CmdCompare}, *row, view);
  row->addSpacing(Em(view));
  AddCfgButtons({&form.CmdUndo, &form.CmdRedo}, *row, view);
  row->addSpacing(Em(view));
  row->addWidget(MakeWidget<QLabel>(form.LblNotice, &view), 1);
  row->addWidget(MakeWidget<QLabel>(form.LblUnsaved, &view));
  auto* const wait = MakeWidget<Card>(form.FrmWplease, &view);
  wait->Body().addWidget(MakeWidget<QLabel>(form.LblWplease, wait));
  row->addWidget(wait);
  AddCfgButtons({&form.CmdSave}, *row, view);
  return row;
}

}  // namespace

QWidget* MakeFormCfgView(editor::FormCfg& form, QWidget* parent) {
  auto* const view = new CfgArea(parent);
  auto* const rows = new QVBoxLayout(view);
  const int margin = Em(*view) / 2;
  rows->setContentsMargins(margin, margin, margin, margin);
  rows->setSpacing(margin);
  rows->addLayout(MakeHead(form, *view));
  auto* const middle = new QHBoxLayout;
  auto* const tables = MakeRows(form.LstTables, "All tables", *view);
  tables->setFixedWidth(Em(*view) * 13);
  middle->addWidget(tables);
  middle->addWidget(MakeTable(form, *view), 1);
  rows->addLayout(middle, 3);
  for (QWidget* panel :
       {MakeFind(form, *view), MakeChanges(form, *view), MakeCompare(form, *view)}) {
    rows->addWidget(panel, 2);
  }
  rows->addLayout(MakeFoot(form, *view));
  return view;
}

}  // namespace tintbench::desktop
