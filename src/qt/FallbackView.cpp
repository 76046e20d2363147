#include "qt/FallbackView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTabBar>
#include <array>

#include "qt/Binder.h"
#include "qt/PictureWidget.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

// nullptr if the control isn't of that kind.
template <typename Kind, typename Widget>
QWidget* TryMake(ui::Control& control, QWidget* parent) {
  auto* const kind = dynamic_cast<Kind*>(&control);
  return kind == nullptr ? nullptr : MakeWidget<Widget>(*kind, parent);
}

QWidget* TryTextBox(ui::Control& control, QWidget* parent) {
  auto* const box = dynamic_cast<ui::TextBox*>(&control);
  if (box == nullptr) return nullptr;
  if (box->MultiLine) return MakeWidget<QPlainTextEdit>(*box, parent);
  return MakeWidget<QLineEdit>(*box, parent);
}

QWidget* TryFrame(ui::Control& control, QWidget* parent) {
  auto* const frame = dynamic_cast<ui::Frame*>(&control);
  if (frame == nullptr) return nullptr;
  if (frame->Caption->empty()) return MakeWidget<QFrame>(*frame, parent);
  return MakeWidget<QGroupBox>(*frame, parent);
}

using Maker = QWidget* (*)(ui::Control& control, QWidget* parent);

constexpr std::array<Maker, 14> kMakers{TryMake<ui::Label, QLabel>,
                                        TryTextBox,
                                        TryMake<ui::RichTextBox, QPlainTextEdit>,
                                        TryMake<ui::Button, QPushButton>,
                                        TryMake<ui::CheckBox, QCheckBox>,
                                        TryMake<ui::OptionButton, QRadioButton>,
                                        TryMake<ui::ListBox, RowList>,
                                        TryMake<ui::ComboBox, QComboBox>,
                                        TryMake<ui::TabStrip, QTabBar>,
                                        TryFrame,
                                        TryMake<ui::ProgressBar, QProgressBar>,
                                        TryMake<ui::PictureBox, PictureWidget>,
                                        TryMake<ui::Shape, FigureWidget>,
                                        TryMake<ui::Image, FigureWidget>};

// nullptr for kinds that have no widget of their own: menus, timers, lines, and what stands in a
// picture box.
QWidget* MakeUsual(ui::Control& control, QWidget* parent) {
  for (const Maker make : kMakers) {
    QWidget* const widget = make(control, parent);
    if (widget != nullptr) return widget;
  }
  return nullptr;
}

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
    QWidget* const made = MakeUsual(*control, &widget);
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
