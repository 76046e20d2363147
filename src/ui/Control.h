// What all controls have in common: a name, a place in a window, the properties and events that
// every kind shares. A window and its controls stand without any toolkit; a view observes them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/Property.h"

namespace tintbench::ui {

class Control;
class Form;

// An event of a control: one handler, called when the event is raised and if it is set.
template <typename... Arguments>
class Event {
 public:
  template <typename Handler>
  Event& operator=(Handler&& handler) {
    handler_ = std::forward<Handler>(handler);
    return *this;
  }
  explicit operator bool() const { return static_cast<bool>(handler_); }
  void Raise(Arguments... arguments) const {
    // A copy, for a handler may end the control that it belongs to.
    const std::function<void(Arguments...)> handler = handler_;
    if (handler) handler(arguments...);
  }

 private:
  std::function<void(Arguments...)> handler_;
};

// Bits of `Shift` in key and mouse events.
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;

// A key going down. A handler that has used the key sets `Code` to 0, and nobody else gets it.
struct KeyEvent {
  int Code = 0;
  int Shift = 0;
};

// Codes of the keys that are not letters or digits; those have their upper-case character code.
enum Key : int {
  kKeyBackspace = 8,
  kKeyTab = 9,
  kKeyEnter = 13,
  kKeyEsc = 27,
  kKeySpace = 32,
  kKeyPageUp = 33,
  kKeyPageDown = 34,
  kKeyEnd = 35,
  kKeyHome = 36,
  kKeyLeft = 37,
  kKeyUp = 38,
  kKeyRight = 39,
  kKeyDown = 40,
  kKeyInsert = 45,
  kKeyDelete = 46,
  kKeyF1 = 112,
  kKeyF12 = 123,
};

inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;

// A mouse button or movement over a control, in the control's own units.
struct MouseEvent {
  int Button = 0;
  int Shift = 0;
  double X = 0;
  double Y = 0;
};

// What holds controls: a window, a frame, a picture box, or a menu.
class Container {
 public:
  virtual ~Container() = default;
  virtual Form& OwnerForm() = 0;
  // The control that this container is; nullptr for a window.
  virtual const Control* AsControl() const = 0;
  const std::vector<Control*>& Children() const { return children_; }

 private:
  friend class Control;
  std::vector<Control*> children_;
};

class Control : public PropertyOwner {
 public:
  // `index` is the place in a control array, -1 for a control that stands alone.
  Control(Container& parent, std::string name, int index = -1);
  ~Control() override;

  const std::string& Name() const { return name_; }
  int Index() const { return index_; }
  // The name as a script writes it: "CmdExec" or "TxtIO(2)".
  std::string FullName() const;
  Container& Parent() { return parent_; }
  const Container& Parent() const { return parent_; }
  Form& OwnerForm() { return parent_.OwnerForm(); }

  Property<bool> Visible{*this, "Visible", true};
  Property<bool> Enabled{*this, "Enabled", true};
  Property<std::string> Tag{*this, "Tag"};
  Property<std::string> ToolTipText{*this, "ToolTipText"};
  Property<Colour> BackColor{*this, "BackColor", kButtonFaceColour};
  Property<Colour> ForeColor{*this, "ForeColor", kWindowTextColour};
  Property<double> Left{*this, "Left"};
  Property<double> Top{*this, "Top"};
  Property<double> Width{*this, "Width"};
  Property<double> Height{*this, "Height"};

  Event<> Click;
  Event<> DblClick;
  Event<MouseEvent> MouseDown;
  Event<MouseEvent> MouseMove;
  Event<KeyEvent&> KeyDown;
  Event<> GotFocus;
  Event<> LostFocus;

  // True if the control and all that holds it are visible. The window itself isn't asked.
  bool IsShown() const;
  // True if the control and all that holds it are enabled.
  bool IsUsable() const;

  // True for kinds that the operator's hand gives the keyboard focus to.
  virtual bool TakesFocus() const { return false; }
  // Gives the control the keyboard focus of its window.
  void SetFocus();

  // The operator's hand: what a press, a double press and a press of another button do.
  virtual void Press() { Click.Raise(); }
  virtual void DoublePress();
  void PressButton(const MouseEvent& event) { MouseDown.Raise(event); }

 protected:
  void OnChanged(const PropertyBase&) override {}

 private:
  Container& parent_;
  std::string name_;
  int index_;
};

}  // namespace tintbench::ui
