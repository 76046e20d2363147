// The kinds of controls that the windows are made of. Setting a check box, an option button, a
// list's row or a selected tab from the program raises the same event as the operator's hand
// does, when the value changes.
#pragma once

#include <string>
#include <vector>

#include "ui/Control.h"
#include "ui/ControlArray.h"

namespace tintbench::ui {

class Label : public Control {
 public:
  using Control::Control;
  Property<std::string> Caption{*this, "Caption"};
};

class TextBox : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }
  Property<std::string> Text{*this, "Text"};
  Property<bool> Locked{*this, "Locked", false};        // shown, not typed into
  Property<bool> MultiLine{*this, "MultiLine", false};  // several lines, with a scroll bar
  Property<int> MaxLength{*this, "MaxLength", 0};       // 0: no limit
  Event<> Change;

 protected:
  void OnChanged(const PropertyBase& property) override;
};

// A text view for long, read-only texts.
class RichTextBox : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }
  Property<std::string> Text{*this, "Text"};
};

class Button : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }
  Property<std::string> Caption{*this, "Caption"};
  Property<bool> Default{*this, "Default", false};  // Enter presses it
  Property<bool> Cancel{*this, "Cancel", false};    // Esc presses it
};

enum CheckValue : int { kUnchecked = 0, kChecked = 1, kGrayed = 2 };

class CheckBox : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }
  Property<std::string> Caption{*this, "Caption"};
  Property<int> Value{*this, "Value", kUnchecked};
  Property<bool> Locked{*this, "Locked", false};  // shown, not to be pressed
  // Turns between checked and unchecked; the grey state is the program's alone.
  void Press() override;

 protected:
  void OnChanged(const PropertyBase& property) override;
};

// One choice among the option buttons of the same holder.
class OptionButton : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }
  Property<std::string> Caption{*this, "Caption"};
  Property<bool> Value{*this, "Value", false};
  void Press() override { Value = true; }

 protected:
  void OnChanged(const PropertyBase& property) override;
};

struct ListRow {
  std::string Text;
  int ItemData = 0;
  bool Selected = false;    // the check mark of a list with check marks
  std::string Detail = {};  // what a view shows beside the text; no part of it
  friend bool operator==(const ListRow&, const ListRow&) = default;
};
using ListRows = std::vector<ListRow>;
std::string PropertyText(const ListRows& rows);

// What list and combo boxes share: rows and the selected one. Rows count from 0.
class RowControl : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }
  Property<ListRows> Rows{*this, "Rows"};
  Property<int> ListIndex{*this, "ListIndex", -1};  // -1: none selected

  int ListCount() const { return static_cast<int>(Rows->size()); }
  // The row's text and data; an empty text and 0 for a row that isn't there.
  std::string List(int row) const;
  int ItemData(int row) const;
  // The selected row's text, empty if none.
  std::string SelectedText() const { return List(ListIndex); }

  void AddItem(std::string text, int itemData = 0);
  void SetItem(int row, std::string text);
  void RemoveItem(int row);
  void Clear();

  bool ReadProperty(std::string_view name, int index, std::string& text) const override;
  // The operator's hand on a row that is there: selects it and raises `Click`, even if it is
  // the selected one already.
  void PressRow(int row);

 protected:
  void OnChanged(const PropertyBase& property) override;

 private:
  bool shifting_ = false;  // the selected row only moves, because one above it went
};

class ListBox : public RowControl {
 public:
  using RowControl::RowControl;
  Property<bool> CheckMarks{*this, "CheckMarks", false};
  Event<int> ItemCheck;  // the row whose check mark has changed
  bool Selected(int row) const;
  // Sets a row's check mark and raises `ItemCheck` when it changes.
  void Select(int row, bool selected);
};

class ComboBox : public RowControl {
 public:
  using RowControl::RowControl;
  Event<> DropDown;  // the list is about to open
};

struct TabPage {
  std::string Caption;
  std::string Key;
  std::string Tag;
  friend bool operator==(const TabPage&, const TabPage&) = default;
};
using TabPages = std::vector<TabPage>;
std::string PropertyText(const TabPages& pages);

// A row of tabs, counted from 0. It shows the tabs alone; what belongs to a tab is the window's.
class TabStrip : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }
  Property<TabPages> Tabs{*this, "Tabs"};
  Property<int> TabIndex{*this, "TabIndex", -1};

  int TabCount() const { return static_cast<int>(Tabs->size()); }
  const TabPage& Tab(int index) const { return Tabs->at(static_cast<std::size_t>(index)); }
  void AddTab(TabPage page);
  void SetCaption(int index, std::string caption);
  void RemoveTab(int index);
  void Clear();

  bool ReadProperty(std::string_view name, int index, std::string& text) const override;
  void PressTab(int index);

 protected:
  void OnChanged(const PropertyBase& property) override;

 private:
  bool shifting_ = false;
};

// A titled box that holds controls.
class Frame : public Control, public Container {
 public:
  using Control::Control;
  Property<std::string> Caption{*this, "Caption"};
  Property<bool> Faded{*this, "Faded", false};  // what it shows is old, and is drawn pale
  Form& OwnerForm() override { return Control::OwnerForm(); }
  const Control* AsControl() const override { return this; }
};

class ProgressBar : public Control {
 public:
  using Control::Control;
  Property<int> Min{*this, "Min", 0};
  Property<int> Max{*this, "Max", 100};
  Property<int> Value{*this, "Value", 0};
};

class StatusBar : public Control {
 public:
  using Control::Control;
  Property<std::string> Text{*this, "Text"};
};

// Raises `Tick` every `Interval` milliseconds while enabled and while its window is loaded. 0
// stops it.
class Timer : public Control {
 public:
  Timer(Container& parent, std::string name, int index = -1);
  Property<int> Interval{*this, "Interval", 0};
  Event<> Tick;

 protected:
  void OnChanged(const PropertyBase& property) override;

 private:
  friend class Screen;
  static constexpr double kNotStarted = -1.0;
  double due_ = kNotStarted;  // when it fires next, by the screen's clock
};

// A menu title, an item, or an item that opens further items. "-" as caption is a separator.
class Menu : public Control, public Container {
 public:
  Menu(Container& parent, std::string name, int index = -1)
      : Control(parent, std::move(name), index) {}
  Menu(Container& parent, std::string name, std::string caption)
      : Control(parent, std::move(name)) {
    Caption = std::move(caption);
  }
  Property<std::string> Caption{*this, "Caption"};
  Property<bool> Checked{*this, "Checked", false};
  Property<std::string> KeyName{*this, "KeyName"};  // shown beside it: the key that does the same
  bool HasItems() const { return !Children().empty(); }
  bool IsTitle() const { return Parent().AsControl() == nullptr; }
  Form& OwnerForm() override { return Control::OwnerForm(); }
  const Control* AsControl() const override { return this; }
};

}  // namespace tintbench::ui
