// Binds the controls of a window to widgets, one function for each kind. From there on the widget
// shows what the control says, and the operator's hand on it does to the control what a press, a
// typed text or a chosen row does. A view calls these and holds no rule of its own.
#pragma once

#include "ui/Controls.h"
#include "ui/Picture.h"

class QCheckBox;
class QComboBox;
class QFrame;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;
class QRadioButton;
class QStatusBar;
class QTabBar;
class QWidget;

namespace tintbench::desktop {

class Binding;
class FigureWidget;
class PictureWidget;
class RowList;

// A binding that is given back is for a view that shows more of the control.
Binding& Bind(ui::Label& control, QLabel& widget);
void Bind(ui::TextBox& control, QLineEdit& widget);
// How a long text is read: a new one from its start and a growing one at its end, or each at the
// place where the operator is.
enum class Reading { FollowsTheEnd, KeepsItsPlace };
void Bind(ui::TextBox& control, QPlainTextEdit& widget, Reading reading = Reading::FollowsTheEnd);
void Bind(ui::RichTextBox& control, QPlainTextEdit& widget);
Binding& Bind(ui::Button& control, QPushButton& widget);
Binding& Bind(ui::CheckBox& control, QCheckBox& widget);
Binding& Bind(ui::OptionButton& control, QRadioButton& widget);
Binding& Bind(ui::ListBox& control, RowList& widget);
void Bind(ui::ComboBox& control, QComboBox& widget);
void Bind(ui::TabStrip& control, QTabBar& widget);
Binding& Bind(ui::Frame& control, QGroupBox& widget);
Binding& Bind(ui::Frame& control, QFrame& widget);  // shows no caption
void Bind(ui::ProgressBar& control, QProgressBar& widget);
void Bind(ui::StatusBar& control, QStatusBar& widget);
void Bind(ui::PictureBox& control, PictureWidget& widget);
Binding& Bind(ui::Shape& control, FigureWidget& widget);
void Bind(ui::Image& control, FigureWidget& widget);

// Makes a widget that shows the control.
template <typename Widget, typename Kind>
Widget* MakeWidget(Kind& control, QWidget* parent) {
  auto* const widget = new Widget(parent);
  Bind(control, *widget);
  return widget;
}

}  // namespace tintbench::desktop
