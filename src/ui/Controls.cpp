#include "ui/Controls.h"

#include "base/Text.h"

namespace tintbench::ui {

namespace {

// The texts of the rows, one a line, as a script prints a whole list.
template <typename Rows, typename TextOf>
std::string JoinRows(const Rows& rows, TextOf textOf) {
  std::string text;
  for (const auto& row : rows) {
    if (!text.empty()) text += '\n';
    text += textOf(row);
  }
  return text;
}

bool HasRow(std::size_t count, int row) {
  return row >= 0 && static_cast<std::size_t>(row) < count;
}

}  // namespace

std::string PropertyText(const ListRows& rows) {
  return JoinRows(rows, [](const ListRow& row) { return row.Text; });
}

std::string PropertyText(const TabPages& pages) {
  return JoinRows(pages, [](const TabPage& page) { return page.Caption; });
}

void TextBox::OnChanged(const PropertyBase& property) {
  if (property.Is(Text)) Change.Raise();
}

void CheckBox::Press() {
  if (!Locked) Value = Value == kUnchecked ? kChecked : kUnchecked;
}

void CheckBox::OnChanged(const PropertyBase& property) {
  if (property.Is(Value)) Click.Raise();
}

void OptionButton::OnChanged(const PropertyBase& property) {
  if (!property.Is(Value) || !Value) return;
  const std::vector<Control*> siblings = Parent().Children();
  for (Control* control : siblings) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other != nullptr && other != this) other->Value = false;
  }
  Click.Raise();
}

std::string RowControl::List(int row) const {
  return HasRow(Rows->size(), row) ? Rows.Get()[static_cast<std::size_t>(row)].Text : std::string();
}

int RowControl::ItemData(int row) const {
  return HasRow(Rows->size(), row) ? Rows.Get()[static_cast<std::size_t>(row)].ItemData : 0;
}

void RowControl::AddItem(std::string text, int itemData) {
  Rows.Change([&](ListRows& rows) { rows.push_back({std::move(text), itemData, false}); });
}

void RowControl::SetItem(int row, std::string text) {
  if (!HasRow(Rows->size(), row)) return;
  Rows.Change([&](ListRows& rows) { rows[static_cast<std::size_t>(row)].Text = std::move(text); });
}

void RowControl::RemoveItem(int row) {
  if (!HasRow(Rows->size(), row)) return;
  if (ListIndex == row) ListIndex = -1;
  Rows.Change([&](ListRows& rows) { rows.erase(rows.begin() + row); });
  shifting_ = true;
  if (ListIndex > row) ListIndex = ListIndex - 1;
  shifting_ = false;
}

void RowControl::Clear() {
  ListIndex = -1;
  Rows = ListRows{};
}

bool RowControl::ReadProperty(std::string_view name, int index, std::string& text) const {
  if (index >= 0) {
    if (!HasRow(Rows->size(), index)) return false;
    const ListRow& row = Rows.Get()[static_cast<std::size_t>(index)];
    if (base::EqualFolded(name, "List")) {
      text = row.Text;
    } else if (base::EqualFolded(name, "ItemData")) {
      text = std::to_string(row.ItemData);
    } else if (base::EqualFolded(name, "Selected")) {
      text = ui::PropertyText(row.Selected);
    } else {
      return false;
    }
    return true;
  }
  if (base::EqualFolded(name, "ListCount")) {
    text = std::to_string(ListCount());
    return true;
  }
  if (base::EqualFolded(name, "Text")) {
    text = SelectedText();
    return true;
  }
  return Control::ReadProperty(name, index, text);
}

void RowControl::PressRow(int row) {
  if (!HasRow(Rows->size(), row)) return;
  if (ListIndex == row) {
    Click.Raise();
  } else {
    ListIndex = row;
  }
}

void RowControl::OnChanged(const PropertyBase& property) {
  if (property.Is(ListIndex) && ListIndex >= 0 && !shifting_) Click.Raise();
}

bool ListBox::Selected(int row) const {
  return HasRow(Rows->size(), row) && Rows.Get()[static_cast<std::size_t>(row)].Selected;
}

void ListBox::Select(int row, bool selected) {
  if (!HasRow(Rows->size(), row) || Selected(row) == selected) return;
  Rows.Change([&](ListRows& rows) { rows[static_cast<std::size_t>(row)].Selected = selected; });
  ItemCheck.Raise(row);
}

void TabStrip::AddTab(TabPage page) {
  Tabs.Change([&](TabPages& pages) { pages.push_back(std::move(page)); });
}

void TabStrip::SetCaption(int index, std::string caption) {
  if (!HasRow(Tabs->size(), index)) return;
  Tabs.Change([&](TabPages& pages) {
    pages[static_cast<std::size_t>(index)].Caption = std::move(caption);
  });
}

void TabStrip::RemoveTab(int index) {
  if (!HasRow(Tabs->size(), index)) return;
  if (TabIndex == index) TabIndex = -1;
  Tabs.Change([&](TabPages& pages) { pages.erase(pages.begin() + index); });
  shifting_ = true;
  if (TabIndex > index) TabIndex = TabIndex - 1;
  shifting_ = false;
}

void TabStrip::Clear() {
  TabIndex = -1;
  Tabs = TabPages{};
}

bool TabStrip::ReadProperty(std::string_view name, int index, std::string& text) const {
  if (index >= 0) {
    if (!HasRow(Tabs->size(), index) || !base::EqualFolded(name, "Tab")) return false;
    text = Tab(index).Caption;
    return true;
  }
  if (base::EqualFolded(name, "TabCount")) {
    text = std::to_string(TabCount());
    return true;
  }
  return Control::ReadProperty(name, index, text);
}

void TabStrip::PressTab(int index) {
  if (!HasRow(Tabs->size(), index)) return;
  if (TabIndex == index) {
    Click.Raise();
  } else {
    TabIndex = index;
  }
}

void TabStrip::OnChanged(const PropertyBase& property) {
  if (property.Is(TabIndex) && TabIndex >= 0 && !shifting_) Click.Raise();
}

Timer::Timer(Container& parent, std::string name, int index)
    : Control(parent, std::move(name), index) {
  Visible = false;
}

void Timer::OnChanged(const PropertyBase& property) {
  if (property.Is(Interval) || property.Is(Enabled)) due_ = kNotStarted;
}

}  // namespace tintbench::ui
