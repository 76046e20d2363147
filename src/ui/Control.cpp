#include "ui/Control.h"

#include <algorithm>

#include "ui/Form.h"

namespace tintbench::ui {

Control::Control(Container& parent, std::string name, int index)
    : parent_(parent), name_(std::move(name)), index_(index) {
  parent_.children_.push_back(this);
  parent_.OwnerForm().Enlist(*this);
}

Control::~Control() {
  std::erase(parent_.children_, this);
  parent_.OwnerForm().Strike(*this);
}

std::string Control::FullName() const {
  return index_ < 0 ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

bool Control::IsShown() const {
  const Control* holder = parent_.AsControl();
  return Visible && (holder == nullptr || holder->IsShown());
}

bool Control::IsUsable() const {
  const Control* holder = parent_.AsControl();
  return Enabled && (holder == nullptr || holder->IsUsable());
}

void Control::SetFocus() {
  OwnerForm().MoveFocus(*this);
  AskForFocus();
}

void Control::DoublePress() {
  Press();
  DblClick.Raise();
}

}  // namespace tintbench::ui
