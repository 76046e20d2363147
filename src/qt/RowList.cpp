#include "qt/RowList.h"

#include <QMouseEvent>
#include <QPointer>
#include <QScopedValueRollback>

namespace tintbench::desktop {

RowList::RowList(QWidget* parent) : QListView(parent) {
  setUniformItemSizes(true);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
}

void RowList::ShowRow(int row) {
  const QScopedValueRollback<bool> guard(showing_, true);
  const QModelIndex index = row < 0 ? QModelIndex() : model()->index(row, 0);
  if (index == currentIndex() && selectionModel()->isSelected(index) == index.isValid()) return;
  if (index.isValid()) {
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
  } else {
    selectionModel()->clear();
  }
}

// A dozen rows are seen before the list scrolls.
QSize RowList::sizeHint() const {
  const int rowHeight = fontMetrics().height() + 4;
  return {fontMetrics().averageCharWidth() * 36, rowHeight * 12 + 2 * frameWidth()};
}

void RowList::mousePressEvent(QMouseEvent* event) {
  pressing_ = event->button() == Qt::LeftButton;
  if (pressing_) QListView::mousePressEvent(event);
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
  const QPointer<RowList> self(this);
  // A press on a check mark leaves the toolkit's own choice of a row alone.
  const int row = indexAt(event->position().toPoint()).row();
  QListView::mouseReleaseEvent(event);
  if (self == nullptr || !pressing_ || event->button() != Qt::LeftButton) return;
  pressing_ = false;
  if (RowPressed) RowPressed(row);
}

// A list without a chosen row stays so when the keyboard comes to it.
void RowList::focusInEvent(QFocusEvent* event) {
  const QScopedValueRollback<bool> guard(showing_, true);
  const bool hadRow = currentIndex().isValid();
  QListView::focusInEvent(event);
  if (!hadRow && selectionModel() != nullptr) selectionModel()->clearCurrentIndex();
}

void RowList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QListView::currentChanged(current, previous);
  if (showing_ || pressing_ || !current.isValid() || !RowPressed) return;
  RowPressed(current.row());
}

}  // namespace tintbench::desktop
