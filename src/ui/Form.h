// A window: a form with its controls as members. A window of the program is a class derived from
// this; it stands without any toolkit and is shown by a `Screen`.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "ui/Control.h"

namespace tintbench::ui {

enum WindowStateValue : int { kNormalWindow = 0, kMinimisedWindow = 1, kMaximisedWindow = 2 };

class Form : public PropertyOwner, public Container {
 public:
  explicit Form(std::string name) : name_(std::move(name)) {}

  const std::string& Name() const { return name_; }

  Property<std::string> Caption{*this, "Caption"};
  Property<bool> Visible{*this, "Visible", false};
  Property<bool> Enabled{*this, "Enabled", true};
  Property<int> WindowState{*this, "WindowState", kNormalWindow};
  Property<Colour> BackColor{*this, "BackColor", kButtonFaceColour};
  Property<std::string> Tag{*this, "Tag"};

  // The events of a window. `cancel` set to true keeps the window open.
  virtual void Form_Load() {}
  virtual void Form_Activate() {}
  virtual void Form_Click() {}
  virtual void Form_KeyDown(KeyEvent&) {}
  virtual void Form_Resize() {}
  virtual void Form_QueryUnload(bool& cancel) { static_cast<void>(cancel); }
  virtual void Form_Unload(bool& cancel) { static_cast<void>(cancel); }

  // True for the panel that shows only while the program starts.
  virtual bool IsSplash() const { return false; }
  bool IsLoaded() const { return loaded_; }

  // The control of that name, in any letter case, and index (-1 outside an array); nullptr if
  // there is none, or if it is of another kind.
  Control* Find(std::string_view name, int index = -1) const;
  template <typename Kind>
  Kind* Find(std::string_view name, int index = -1) const {
    return dynamic_cast<Kind*>(Find(name, index));
  }
  const std::vector<Control*>& Controls() const { return controls_; }

  // The control that has the keyboard focus; nullptr if none.
  Control* ActiveControl() const { return active_; }
  // Moves the focus in the model and raises the events of losing and getting it.
  void MoveFocus(Control& control);

  // A key of the operator: the window gets it first, then the control with the focus, then the
  // button that stands for Enter or Esc. True if somebody used it, or if the window is disabled.
  bool PressKey(int code, int shift);

  Form& OwnerForm() override { return *this; }
  const Control* AsControl() const override { return nullptr; }

 protected:
  void OnChanged(const PropertyBase& property) override;

 private:
  friend class Control;
  friend class Screen;
  void Enlist(Control& control);
  void Strike(Control& control);
  bool PressStandIn(int code);

  std::string name_;
  std::vector<Control*> controls_;
  Control* active_ = nullptr;
  bool loaded_ = false;
};

}  // namespace tintbench::ui
