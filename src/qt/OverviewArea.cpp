#include "qt/OverviewArea.h"

#include <QEvent>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyledItemDelegate>
#include <QTextOption>
#include <algorithm>
#include <numeric>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/Look.h"
#include "qt/QtText.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

// Between a column's edge and its text.
int CellGap(const QWidget& widget) { return Em(widget) / 3; }

// The head of a column, in as many lines as it has words, with the direction it is sorted in.
class SortHead final : public QPushButton {
 public:
  explicit SortHead(QWidget* parent) : QPushButton(parent) {}

  void ShowOrder(const QString& order) {
    order_ = order;
    setAccessibleDescription(order.isEmpty() ? QString() : "sorted " + order);
    update();
  }
  // The widest of its words, beside the sign of direction.
  int Need() const {
    int widest = 0;
    for (const QString& word : text().split(' ')) {
      widest = std::max(widest, QFontMetrics(BoldFont()).horizontalAdvance(word));
    }
    return widest + SignWidth() + 2 * CellGap(*this);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text.clear();
    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
    const int gap = CellGap(*this);
    const QRect area = rect().adjusted(gap, 0, -gap, 0);
    const QRect words = area.adjusted(0, 0, -SignWidth(), 0);
    painter.setFont(order_.isEmpty() ? font() : BoldFont());
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawText(words, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text());
    if (!order_.isEmpty()) PaintDirection(painter, area);
  }

 private:
  QFont BoldFont() const { return ScaledFont(*this, 1, true); }
  int SignWidth() const { return Em(*this) * 2 / 3; }

  // A triangle whose tip shows to where the largest stands.
  void PaintDirection(QPainter& painter, const QRect& area) const {
    const double edge = Em(*this) / 2.0;
    const QRectF place(area.right() - edge, area.center().y() - edge / 2, edge, edge);
    const bool down = order_ == "down";
    const double base = down ? place.top() : place.bottom();
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::ButtonText));
    painter.drawPolygon(
        QPolygonF{QPointF(place.left(), base), QPointF(place.right(), base),
                  QPointF(place.center().x(), place.top() + place.bottom() - base)});
  }

  QString order_;
};

// Writes the cells of a row below their heads, with the bar of each beneath its number.
class OverviewRows final : public QStyledItemDelegate {
 public:
  OverviewRows(const stats::FormStat& form, const std::vector<int>& widths, QObject* parent)
      : QStyledItemDelegate(parent), form_(form), widths_(widths) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& given,
             const QModelIndex& index) const override {
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    option.text.clear();
    option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    const auto& rows = form_.Overview().Rows;
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= rows.size()) return;
    const auto& cells = rows[row].Cells;
    QRect area = option.rect;
    for (std::size_t column = 0; column < std::min(cells.size(), widths_.size()); ++column) {
      area.setWidth(widths_[column]);
      PaintCell(*painter, cells[column], area, option, column == 0);
      area.moveLeft(area.left() + widths_[column]);
    }
  }

  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
    return {0, option.fontMetrics.height() * 7 / 4};
  }

 private:
  static void PaintCell(QPainter& painter, const stats::OverviewCell& cell, const QRect& area,
                        const QStyleOptionViewItem& option, bool names) {
    const bool chosen = (option.state & QStyle::State_Selected) != 0;
    const QPalette& palette = option.palette;
    const int line = option.fontMetrics.height();
    const int gap = CellGap(*option.widget);
    QRect text = area.adjusted(gap, 0, -gap, 0);
    if (cell.Bar >= 0) {
      const int thick = line / 4;
      const int foot = line / 6;
      const QRectF track(text.left(), area.bottom() - thick - foot, text.width(), thick);
      painter.fillRect(track, palette.color(chosen ? QPalette::Shadow : QPalette::Midlight));
      const QRectF bar(track.topLeft(), QSizeF(track.width() * cell.Bar, track.height()));
      painter.fillRect(bar,
                       palette.color(chosen ? QPalette::HighlightedText : QPalette::Highlight));
      text.setBottom(qRound(track.top()));
    }
    painter.setPen(palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
    const Qt::Alignment side = names ? Qt::AlignLeft : Qt::AlignRight;
    painter.drawText(QRectF(text), ToQt(cell.Text), QTextOption(side | Qt::AlignVCenter));
  }

  const stats::FormStat& form_;
  const std::vector<int>& widths_;
};

}  // namespace

OverviewArea::OverviewArea(stats::FormStat& form, QWidget* parent)
    : QWidget(parent), form_(form), list_(new RowList(this)) {
  MakeHeads();
  list_->setAccessibleName("All elements of the type");
  list_->setAlternatingRowColors(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setItemDelegate(new OverviewRows(form_, widths_, list_));
  list_->viewport()->installEventFilter(this);
  Bind(form_.LstOverview, *list_).Follow({&form_.LstOverview.Rows}, [this] { Measure(); });
}

void OverviewArea::MakeHeads() {
  for (int column = 0; column < stats::kMostColumns; ++column) {
    ui::Button& control = form_.CmdSort(column);
    auto* const head = new SortHead(this);
    Bind(control, *head).Follow({&control.Tag}, [&control, head] {
      head->ShowOrder(ToQt(control.Tag.Get()));
    });
    heads_.push_back(head);
  }
}

int OverviewArea::HeadHeight() const { return Em(*this) * 11 / 4; }

std::vector<int> OverviewArea::Needs() const {
  const stats::OverviewTable& table = form_.Overview();
  std::vector<int> needs;
  for (std::size_t column = 0; column < table.Columns.size(); ++column) {
    int need = static_cast<const SortHead*>(heads_.at(column))->Need();
    for (const stats::OverviewRow& row : table.Rows) {
      const int text = fontMetrics().horizontalAdvance(ToQt(row.Cells.at(column).Text));
      need = std::max(need, text + 2 * CellGap(*this));
    }
    needs.push_back(need);
  }
  return needs;
}

void OverviewArea::Measure() {
  needs_ = Needs();
  const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  const int frame = 2 * list_->frameWidth();
  setMinimumSize(std::accumulate(needs_.begin(), needs_.end(), bar + frame),
                 HeadHeight() + Em(*this) * 6);
  Arrange();
}

// What no column needs is shared by all alike.
void OverviewArea::Arrange() {
  list_->setGeometry(0, HeadHeight(), width(), height() - HeadHeight());
  if (needs_.empty()) return;
  const int room = list_->viewport()->width();
  const int spare = std::max(0, room - std::accumulate(needs_.begin(), needs_.end(), 0));
  const int share = spare / static_cast<int>(needs_.size());
  widths_ = needs_;
  int left = list_->frameWidth();
  for (std::size_t column = 0; column < widths_.size(); ++column) {
    widths_[column] += share;
    heads_.at(column)->setGeometry(left, 0, widths_[column], HeadHeight());
    left += widths_[column];
  }
  list_->viewport()->update();
}

bool OverviewArea::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) Arrange();
  return QWidget::eventFilter(watched, event);
}

void OverviewArea::resizeEvent(QResizeEvent*) { Arrange(); }

QWidget* MakeOverviewTable(stats::FormStat& form, QWidget* parent) {
  auto* const area = new QScrollArea(parent);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->setWidget(new OverviewArea(form, area));
  return area;
}

}  // namespace tintbench::desktop
