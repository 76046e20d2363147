#include "qt/RowModel.h"

#include "qt/Binding.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

RowModel::RowModel(ui::RowControl& control, ui::ListBox* list, Binding& binding)
    : QAbstractListModel(&binding),
      control_(control),
      list_(list),
      binding_(binding),
      told_(control.ListCount()) {}

// Rows are told to come and go at the end, whatever happened; those that stay are read anew. So a
// list that grows keeps its place on the screen.
void RowModel::RowsChanged() {
  const int count = control_.ListCount();
  const int kept = std::min(told_, count);
  if (count > told_) {
    beginInsertRows({}, told_, count - 1);
    told_ = count;
    endInsertRows();
  } else if (count < told_) {
    beginRemoveRows({}, count, told_ - 1);
    told_ = count;
    endRemoveRows();
  }
  if (kept > 0) emit dataChanged(index(0), index(kept - 1));
}

int RowModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || !binding_.Lives() ? 0 : told_;
}

QVariant RowModel::data(const QModelIndex& index, int role) const {
  if (!binding_.Lives()) return {};
  if (role == Qt::DisplayRole) {
    const ui::ListRow& row = control_.Rows->at(static_cast<std::size_t>(index.row()));
    return ToQt(row.Detail.empty() ? row.Text : row.Text + "   " + row.Detail);
  }
  if (role == Qt::CheckStateRole && list_ != nullptr && list_->CheckMarks) {
    return list_->Selected(index.row()) ? Qt::Checked : Qt::Unchecked;
  }
  return {};
}

Qt::ItemFlags RowModel::flags(const QModelIndex& index) const {
  const bool marks = binding_.Lives() && list_ != nullptr && list_->CheckMarks;
  const Qt::ItemFlags plain = QAbstractListModel::flags(index);
  return marks ? plain | Qt::ItemIsUserCheckable : plain;
}

bool RowModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (role != Qt::CheckStateRole || list_ == nullptr) return false;
  const int row = index.row();
  binding_.Hand([&] { list_->Select(row, value.toInt() == Qt::Checked); });
  return true;
}

}  // namespace tintbench::desktop
