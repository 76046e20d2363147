#include "ui/Property.h"

#include <algorithm>
#include <cstdio>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::ui {

std::string PropertyText(const std::string& value) { return value; }

std::string PropertyText(bool value) { return value ? "-1" : "0"; }

std::string PropertyText(int value) { return std::to_string(value); }

std::string PropertyText(double value) { return base::PlainNumber(value); }

std::string PropertyText(Colour value) {
  char text[16];
  const int digits = value.Value > 0xFFFFFFU ? 8 : 6;
  const int length = std::snprintf(text, sizeof text, "0x%0*X", digits, value.Value);
  return {text, static_cast<std::size_t>(length)};
}

PropertyOwner::~PropertyOwner() {
  const std::vector<Observer*> observers = observers_;
  for (Observer* observer : observers) observer->OwnerGone();
}

void PropertyOwner::AddObserver(Observer& observer) { observers_.push_back(&observer); }

void PropertyOwner::RemoveObserver(Observer& observer) { std::erase(observers_, &observer); }

const PropertyBase* PropertyOwner::FindProperty(std::string_view name) const {
  for (const PropertyBase* property : properties_) {
    if (base::EqualFolded(property->Name(), name)) return property;
  }
  return nullptr;
}

bool PropertyOwner::ReadProperty(std::string_view name, int index, std::string& text) const {
  const PropertyBase* property = index < 0 ? FindProperty(name) : nullptr;
  if (property == nullptr) return false;
  text = property->Text();
  return true;
}

void PropertyOwner::Refresh() {
  const std::vector<Observer*> observers = observers_;
  for (Observer* observer : observers) observer->RefreshWanted();
}

void PropertyOwner::AskForFocus() {
  const std::vector<Observer*> observers = observers_;
  for (Observer* observer : observers) observer->FocusWanted();
}

void PropertyOwner::AnnounceControls() {
  const std::vector<Observer*> observers = observers_;
  for (Observer* observer : observers) observer->ControlsChanged();
}

void PropertyOwner::Announce(const PropertyBase& property) {
  // An observer may take itself off the list while it is told.
  const std::vector<Observer*> observers = observers_;
  for (Observer* observer : observers) {
    if (std::find(observers_.begin(), observers_.end(), observer) != observers_.end()) {
      observer->PropertyChanged(property);
    }
  }
  OnChanged(property);
}

}  // namespace tintbench::ui
