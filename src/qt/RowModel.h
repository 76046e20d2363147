// A list or combo box's rows as Qt's views read them, straight from the control: nothing is
// copied, so ten thousand rows cost no more than the few that are seen.
#pragma once

#include <QAbstractListModel>

#include "ui/Controls.h"

namespace tintbench::desktop {

class Binding;

class RowModel final : public QAbstractListModel {
 public:
  // `list` is the same control if its rows can have check marks, otherwise nullptr. `binding` owns
  // the model and knows whether the control still lives.
  RowModel(ui::RowControl& control, ui::ListBox* list, Binding& binding);

  // Tells the views that the rows have changed.
  void RowsChanged();

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  // The operator's hand on a check mark.
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

 private:
  ui::RowControl& control_;
  ui::ListBox* list_;
  Binding& binding_;
  int told_ = 0;  // the number of rows that the views know of
};

}  // namespace tintbench::desktop
