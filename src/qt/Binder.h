// Binds the controls of a window to widgets, one function for each kind. From there on the widget
// shows what the control says, and the operator's hand on it does to the control what a press, a
// typed text or a chosen row does. A view calls these and holds no rule of its own.
#pragma once

#include <string_view>

#include "ui/Controls.h"
#include "ui/Form.h"
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
void Bind(ui::CheckBox& control, QCheckBox& widget);
Binding& Bind(ui::OptionButton& control, QRadioButton& widget);
void Bind(ui::ListBox& control, RowList& widget);
void Bind(ui::ComboBox& control, QComboBox& widget);
void Bind(ui::TabStrip& control, QTabBar& widget);
void Bind(ui::Frame& control, QGroupBox& widget);
Binding& Bind(ui::Frame& control, QFrame& widget);  // shows no caption
void Bind(ui::ProgressBar& control, QProgressBar& widget);
void Bind(ui::StatusBar& control, QStatusBar& widget);
void Bind(ui::PictureBox& control, PictureWidget& widget);
Binding& Bind(ui::Shape& control, FigureWidget& widget);
void Bind(ui::Image& control, FigureWidget& widget);

// Makes the usual widget for the control's kind and binds it: for a text box one of one line or of
// several, for a frame one with a title if it has a caption. nullptr for kinds that have no widget
// of their own: menus, timers, lines, and what stands in a picture box.
QWidget* MakeWidget(ui::Control& control, QWidget* parent);

// The same for the control of that name, which must be of that kind. nullptr if there is none.
template <typename Kind>
QWidget* MakeWidget(const ui::Form& form, std::string_view name, int index, QWidget* parent) {
  Kind* control = form.Find<Kind>(name, index);
  return control == nullptr ? nullptr : MakeWidget(*control, parent);
}

}  // namespace tintbench::desktop
