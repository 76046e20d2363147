// The binders of buttons, boxes to tick, frames and progress bars.
#include <QCheckBox>
#include <QGroupBox>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

// A press of the button's widget presses the control.
template <typename Button>
void PassPresses(ui::Control& control, Button& widget, Binding& binding) {
  QObject::connect(&widget, &QAbstractButton::clicked, &binding,
                   [&] { binding.Hand([&] { control.Press(); }); });
}

}  // namespace

Binding& Bind(ui::Button& control, QPushButton& widget) {
  auto* const binding = new Binding(control, widget);
  // Enter and Esc are the window's to give, by the control model's own rule.
  widget.setAutoDefault(false);
  binding->Follow({&control.Caption}, [&] { widget.setText(ToQtLines(control.Caption.Get())); });
  binding->Follow({&control.Default}, [&] { widget.setDefault(control.Default); });
  PassPresses(control, widget, *binding);
  return *binding;
}

Binding& Bind(ui::CheckBox& control, QCheckBox& widget) {
  auto* const binding = new Binding(control, widget);
  binding->Follow({&control.Caption}, [&] { widget.setText(ToQtLines(control.Caption.Get())); });
  binding->Follow({&control.Value}, [&] {
    constexpr Qt::CheckState kStates[] = {Qt::Unchecked, Qt::Checked, Qt::PartiallyChecked};
    // Only the program sets the third state, so the hand must not come by it.
    widget.setTristate(control.Value == ui::kGrayed);
    widget.setCheckState(kStates[std::clamp<int>(control.Value, ui::kUnchecked, ui::kGrayed)]);
  });
  PassPresses(control, widget, *binding);
  return *binding;
}

Binding& Bind(ui::OptionButton& control, QRadioButton& widget) {
  auto* const binding = new Binding(control, widget);
  binding->Follow({&control.Caption}, [&] { widget.setText(ToQtLines(control.Caption.Get())); });
  binding->Follow({&control.Value}, [&] {
    // As one of a group the widget would refuse to be the one that is let go.
    widget.setAutoExclusive(false);
    widget.setChecked(control.Value);
    widget.setAutoExclusive(true);
  });
  PassPresses(control, widget, *binding);
  return *binding;
}

Binding& Bind(ui::Frame& control, QGroupBox& widget) {
  auto* const binding = new Binding(control, widget);
  binding->PressAnywhere();
  binding->Follow({&control.Caption}, [&] { widget.setTitle(ToQt(control.Caption.Get())); });
  return *binding;
}

Binding& Bind(ui::Frame& control, QFrame& widget) {
  auto* const binding = new Binding(control, widget);
  binding->PressAnywhere();
  return *binding;
}

void Bind(ui::ProgressBar& control, QProgressBar& widget) {
  auto* const binding = new Binding(control, widget);
  binding->PressAnywhere();
  binding->Follow({&control.Min, &control.Max, &control.Value}, [&] {
    // Equal ends would make the bar run to and fro.
    const int high = std::max(control.Max.Get(), control.Min + 1);
    widget.setRange(control.Min, high);
    widget.setValue(std::clamp(control.Value.Get(), control.Min.Get(), high));
  });
}

}  // namespace tintbench::desktop
