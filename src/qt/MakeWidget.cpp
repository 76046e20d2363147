#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <array>

#include "qt/Binder.h"
#include "qt/PictureWidget.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

template <typename Kind, typename Widget>
QWidget* Make(Kind& control, QWidget* parent) {
  auto* const widget = new Widget(parent);
  Bind(control, *widget);
  return widget;
}

// nullptr if the control isn't of that kind.
template <typename Kind, typename Widget>
QWidget* TryMake(ui::Control& control, QWidget* parent) {
  auto* const kind = dynamic_cast<Kind*>(&control);
  return kind == nullptr ? nullptr : Make<Kind, Widget>(*kind, parent);
}

QWidget* TryTextBox(ui::Control& control, QWidget* parent) {
  auto* const box = dynamic_cast<ui::TextBox*>(&control);
  if (box == nullptr) return nullptr;
  return box->MultiLine ? Make<ui::TextBox, QPlainTextEdit>(*box, parent)
                        : Make<ui::TextBox, QLineEdit>(*box, parent);
}

QWidget* TryFrame(ui::Control& control, QWidget* parent) {
  auto* const frame = dynamic_cast<ui::Frame*>(&control);
  if (frame == nullptr) return nullptr;
  return frame->Caption->empty() ? Make<ui::Frame, QFrame>(*frame, parent)
                                 : Make<ui::Frame, QGroupBox>(*frame, parent);
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

}  // namespace

QWidget* MakeWidget(ui::Control& control, QWidget* parent) {
  for (const Maker make : kMakers) {
    QWidget* const widget = make(control, parent);
    if (widget != nullptr) return widget;
  }
  return nullptr;
}

}  // namespace tintbench::desktop
