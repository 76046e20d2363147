// The rows of a configuration: number, signs, title and value of each parameter side by side; and
// rows whose text has tabs between their cells.
#pragma once

#include <QStyledItemDelegate>

#include "editor/CfgWindow.h"

namespace tintbench::desktop {

class ParameterRowsPainter final : public QStyledItemDelegate {
 public:
  ParameterRowsPainter(const editor::CfgWindow& form, QObject* parent)
      : QStyledItemDelegate(parent), form_(form) {}
  void paint(QPainter* painter, const QStyleOptionViewItem& given,
             const QModelIndex& index) const override;

 private:
  const editor::CfgWindow& form_;
};

// Cells in columns of equal width.
class TabbedRowsPainter final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& given,
             const QModelIndex& index) const override;
};

}  // namespace tintbench::desktop
