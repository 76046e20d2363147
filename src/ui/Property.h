// Properties of controls and windows: assigned and read like members, found by name from
// scripts, and announced to whoever observes their owner when they change.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tintbench::ui {

// A colour as 0xBBGGRR. With the top bit set it names a colour of the desktop instead.
struct Colour {
  std::uint32_t Value = 0;
  constexpr bool IsSystem() const { return (Value & 0x80000000U) != 0; }
  friend constexpr bool operator==(Colour, Colour) = default;
};

inline constexpr Colour kWindowColour{0x80000005U};
inline constexpr Colour kWindowTextColour{0x80000008U};
inline constexpr Colour kButtonFaceColour{0x8000000FU};
inline constexpr Colour kButtonTextColour{0x80000012U};

// How a property's value reads in a script: true is -1, colours are hexadecimal.
std::string PropertyText(const std::string& value);
std::string PropertyText(bool value);
std::string PropertyText(int value);
std::string PropertyText(double value);
std::string PropertyText(Colour value);

class PropertyBase;

// Told of every change of the properties of the owner that it observes. An observer must be
// removed before it dies.
class Observer {
 public:
  virtual ~Observer() = default;
  virtual void PropertyChanged(const PropertyBase& property) = 0;
  // The owner asks to be drawn at once.
  virtual void RefreshWanted() {}
  // The owner asks for the keyboard focus.
  virtual void FocusWanted() {}
  // The window that is observed has got or lost a control. The control is only half there at that
  // moment, so that it must be looked at later.
  virtual void ControlsChanged() {}
  // The owner dies; it must not be touched any more.
  virtual void OwnerGone() {}
};

// What has properties: a control or a window.
class PropertyOwner {
 public:
  PropertyOwner() = default;
  PropertyOwner(const PropertyOwner&) = delete;
  PropertyOwner& operator=(const PropertyOwner&) = delete;
  virtual ~PropertyOwner();

  void AddObserver(Observer& observer);
  void RemoveObserver(Observer& observer);

  // The property of that name in any letter case; nullptr if there is none.
  const PropertyBase* FindProperty(std::string_view name) const;

  // Reads a property, or row `index` of a list property, the way a script does. False if there
  // is no such property or row.
  virtual bool ReadProperty(std::string_view name, int index, std::string& text) const;

  // Makes the view draw at once, without serving any event.
  void Refresh();

 protected:
  // Called after the observers when a property has changed.
  virtual void OnChanged(const PropertyBase& property) = 0;
  void AskForFocus();
  void AnnounceControls();

 private:
  friend class PropertyBase;
  void Adopt(const PropertyBase& property) { properties_.push_back(&property); }
  void Announce(const PropertyBase& property);

  std::vector<const PropertyBase*> properties_;
  std::vector<Observer*> observers_;
};

class PropertyBase {
 public:
  PropertyBase(const PropertyBase&) = delete;
  PropertyBase& operator=(const PropertyBase&) = delete;
  virtual ~PropertyBase() = default;

  std::string_view Name() const { return name_; }
  virtual std::string Text() const = 0;
  // True if `other` is this very property, not merely one of the same value.
  bool Is(const PropertyBase& other) const { return this == &other; }

 protected:
  PropertyBase(PropertyOwner& owner, const char* name) : owner_(owner), name_(name) {
    owner_.Adopt(*this);
  }
  void Announce() { owner_.Announce(*this); }

 private:
  PropertyOwner& owner_;
  std::string_view name_;
};

template <typename T>
class Property final : public PropertyBase {
 public:
  Property(PropertyOwner& owner, const char* name, T initial = T{})
      : PropertyBase(owner, name), value_(std::move(initial)) {}
  Property(const Property&) = delete;
  ~Property() override = default;

  Property& operator=(T value) {
    if (value == value_) return *this;
    value_ = std::move(value);
    Announce();
    return *this;
  }

  Property& operator=(const Property& other) { return *this = other.value_; }

  const T& Get() const { return value_; }
  operator const T&() const { return value_; }  // NOLINT: reads like a member
  const T* operator->() const { return &value_; }

  // Alters the value in place; it counts as changed.
  template <typename Alter>
  void Change(Alter&& alter) {
    std::forward<Alter>(alter)(value_);
    Announce();
  }

  std::string Text() const override { return PropertyText(value_); }

 private:
  T value_;
};

}  // namespace tintbench::ui
