#include "ui/Form.h"

#include "base/Text.h"
#include "ui/Controls.h"

namespace tintbench::ui {

Control* Form::Find(std::string_view name, int index) const {
  for (Control* control : controls_) {
    if (control->Index() == index && base::EqualFolded(control->Name(), name)) return control;
  }
  return nullptr;
}

void Form::MoveFocus(Control& control) {
  if (active_ == &control) return;
  Control* before = active_;
  active_ = &control;
  if (before != nullptr) before->LostFocus.Raise();
  control.GotFocus.Raise();
}

bool Form::PressKey(int code, int shift) {
  if (!Enabled) return true;
  KeyEvent event{code, shift};
  Form_KeyDown(event);
  if (event.Code == 0) return true;
  if (active_ != nullptr && active_->IsShown() && active_->IsUsable()) {
    active_->KeyDown.Raise(event);
    if (event.Code == 0) return true;
  }
  return shift == 0 && PressStandIn(code);
}

bool Form::PressStandIn(int code) {
  if (code != kKeyEnter && code != kKeyEsc) return false;
  std::vector<Control*> candidates = controls_;
  // A button that has the focus needs nobody to stand in for it.
  if (code == kKeyEnter && dynamic_cast<Button*>(active_) != nullptr) candidates = {active_};
  for (Control* control : candidates) {
    auto* button = dynamic_cast<Button*>(control);
    if (button == nullptr || !button->IsShown() || !button->IsUsable()) continue;
    if (code == kKeyEnter ? button->Default || button == active_ : button->Cancel) {
      button->Press();
      return true;
    }
  }
  return false;
}

void Form::OnChanged(const PropertyBase& property) {
  if (property.Is(WindowState)) Form_Resize();
}

void Form::Enlist(Control& control) {
  controls_.push_back(&control);
  AnnounceControls();
}

void Form::Strike(Control& control) {
  std::erase(controls_, &control);
  if (active_ == &control) active_ = nullptr;
  AnnounceControls();
}

}  // namespace tintbench::ui
