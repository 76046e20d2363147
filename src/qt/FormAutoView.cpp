#include "qt/FormAutoView.h"

#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <array>

#include "qt/Binder.h"
#include "qt/DebugFrame.h"
#include "qt/Look.h"
#include "qt/PicturePainter.h"
#include "qt/QtText.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

// How a cycle ended, told by sign and colour. The rows' texts tell it, too.
struct CycleSign {
  const char* Sign;
  QRgb Ground;
};

// In the order of autotest::CycleKind.
constexpr std::array<CycleSign, 3> kCycleSigns{
    {{"\u2713", 0xFF2F7D4F}, {"!", 0xFFB3261E}, {"?", 0xFF8A5A00}}};

class CycleRows final : public QStyledItemDelegate {
 public:
  CycleRows(const ui::ListBox& cycles, QObject* parent)
      : QStyledItemDelegate(parent), cycles_(cycles) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& given,
             const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, given, index);
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QRectF area = option.widget->style()->subElementRect(QStyle::SE_ItemViewItemDecoration,
                                                               &option, option.widget);
    const auto kind = static_cast<std::size_t>(cycles_.ItemData(index.row()));
    const CycleSign& sign = kCycleSigns.at(kind);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing, true);
    painter->setPen(Qt::NoPen);
    painter->setBrush(QColor(sign.Ground));
    painter->drawEllipse(area);
    PaintSign(*painter, area, QString::fromUtf8(sign.Sign), QColor(sign.Ground));
    painter->restore();
  }

 protected:
  // Leaves the room for the sign.
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    const int edge = option->fontMetrics.height();
    option->features |= QStyleOptionViewItem::HasDecoration;
    option->decorationSize = QSize(edge, edge);
  }

 private:
  const ui::ListBox& cycles_;
};

// The window's inside. It opens with room for some lines of errors, and can be made smaller.
class AutoArea final : public QWidget {
 public:
  explicit AutoArea(QWidget* parent) : QWidget(parent) { setMinimumHeight(Em(*this) * 22); }
  QSize sizeHint() const override { return {Em(*this) * 64, Em(*this) * 38}; }
};

// A title with what it is the title of behind it.
void AddTold(ui::Label& title, ui::Label& value, QBoxLayout& row, QWidget& view) {
  row.addWidget(MakeWidget<QLabel>(title, &view));
  auto* const told = MakeWidget<QLabel>(value, &view);
  told->setFont(ScaledFont(view, 1.2, true));
  told->setMinimumWidth(Em(view) * 2);
  row.addWidget(told);
  row.addSpacing(Em(view));
}

// What asks for the record, and what it says of the whole test.
QLayout* MakeHead(autotest::FormAuto& form, QWidget& view) {
  auto* const row = new QHBoxLayout;
  row->addWidget(MakeWidget<QPushButton>(form.CmdAutotest, &view));
  row->addSpacing(Em(view));
  AddTold(form.LblCdoneTitle, form.LblCdone, *row, view);
  AddTold(form.LblCtotalTitle, form.LblCtotal, *row, view);
  row->addStretch();
  auto* const verdict = MakeWidget<QLabel>(form.LblErrInfo, &view);
  verdict->setFont(ScaledFont(view, 1.4, true));
  verdict->setMinimumWidth(verdict->fontMetrics().horizontalAdvance("NO ERRORS"));
  verdict->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  row->addWidget(verdict);
  return row;
}

void AddField(ui::Label& title, QWidget* field, QBoxLayout& column, QWidget& view) {
  auto* const label = MakeWidget<QLabel>(title, &view);
  label->setBuddy(field);
  field->setAccessibleName(label->text());
  column.addWidget(label);
  column.addWidget(field, 1);
}

QLayout* MakeCycles(autotest::FormAuto& form, QWidget& view) {
  auto* const column = new QVBoxLayout;
  auto* const list = MakeWidget<RowList>(form.LstCycles, &view);
  list->setItemDelegate(new CycleRows(form.LstCycles, list));
  AddField(form.LblListTitle, list, *column, view);
  return column;
}

// The cycle that is chosen.
QLayout* MakeCycle(autotest::FormAuto& form, QWidget& view) {
  auto* const column = new QVBoxLayout;
  auto* const row = new QHBoxLayout;
  AddTold(form.LblCyclesTitle, form.LblCycles, *row, view);
  AddTold(form.LblErrorsTitle, form.LblErrors, *row, view);
  row->addStretch();
  column->addLayout(row);
  AddField(form.LblTextTitle, MakeWidget<QPlainTextEdit>(form.ErText1, &view), *column, view);
  return column;
}

}  // namespace

QWidget* MakeFormAutoView(autotest::FormAuto& form, QWidget* parent) {
  auto* const view = new AutoArea(parent);
  auto* const rows = new QVBoxLayout(view);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* const body = new QVBoxLayout;
  const int margin = Em(*view) * 2 / 3;
  body->setContentsMargins(margin, margin, margin, margin);
  body->setSpacing(margin);
  body->addLayout(MakeHead(form, *view));
  auto* const columns = new QHBoxLayout;
  columns->setSpacing(margin);
  columns->addLayout(MakeCycles(form, *view), 2);
  columns->addLayout(MakeCycle(form, *view), 3);
  body->addLayout(columns, 1);
  rows->addLayout(body, 1);
  AddDebugFrame(form.Debug, *view, *rows);
  return view;
}

}  // namespace tintbench::desktop
