#include "qt/FallbackView.h"

#include <QAbstractScrollArea>
#include <QGridLayout>
#include <QGroupBox>
#include <QScrollArea>

#include "qt/Binder.h"
#include "qt/PictureWidget.h"

namespace tintbench::desktop {

namespace {

constexpr int kColumns = 4;

// Lists, long texts, frames and pictures take a row for themselves.
bool WantsRow(const QWidget& widget) {
  return qobject_cast<const QAbstractScrollArea*>(&widget) != nullptr ||
         qobject_cast<const QGroupBox*>(&widget) != nullptr ||
         dynamic_cast<const PictureWidget*>(&widget) != nullptr;
}

class GridFiller {
 public:
  explicit GridFiller(QWidget& holder) : grid_(new QGridLayout(&holder)) {}

  void Add(QWidget& widget) {
    const bool whole = WantsRow(widget);
    if (column_ > 0 && (whole || column_ == kColumns)) NextRow();
    grid_->addWidget(&widget, row_, column_, 1, whole ? kColumns : 1);
    column_ = whole ? kColumns : column_ + 1;
  }

 private:
  void NextRow() {
    ++row_;
    column_ = 0;
  }

  QGridLayout* grid_;
  int row_ = 0;
  int column_ = 0;
};

void Fill(QWidget& widget, ui::Container& holder) {
  GridFiller grid(widget);
  for (ui::Control* control : holder.Children()) {
    QWidget* const made = MakeWidget(*control, &widget);
    if (made == nullptr) continue;
    grid.Add(*made);
    auto* frame = dynamic_cast<ui::Frame*>(control);
    if (frame != nullptr) Fill(*made, *frame);
  }
}

}  // namespace

QWidget* MakeFallbackView(ui::Form& form, QWidget* parent) {
  auto* const area = new QScrollArea(parent);
  auto* const view = new QWidget;
  Fill(*view, form);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setWidget(view);
  return area;
}

}  // namespace tintbench::desktop
