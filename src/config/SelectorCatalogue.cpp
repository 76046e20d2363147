#include "config/SelectorCatalogue.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "config/SelectorRows.h"

namespace tintbench::config {

std::string SelectorEnd() { return std::string(1, '\0'); }

SelectorCatalogue::SelectorCatalogue() {
  for (const SelectorRow& row : kSelectorRows) {
    std::string& values = entries_[std::string(row.Key)];
    if (!values.empty()) values += ",";
    values += row.Value;
    entries_[std::string(row.Key).append(",").append(row.Value)] = row.Text;
  }
}

std::optional<std::string> SelectorCatalogue::Find(const std::string& key) const {
  const auto found = entries_.find(key);
  return found == entries_.end() ? std::nullopt : std::optional(found->second);
}

std::string SelectorCatalogue::SelectorItemText(int value, const std::string& key) const {
  if (key.empty()) return {};
  return Find(key + "," + base::PlainNumber(value)).value_or("");
}

std::string SelectorWalk::NextSelectorItem(const std::string& key, std::string& value) {
  if (!key.empty()) {
    cursor_ = {};
    const auto values = selectors_.Find(key);
    if (!values) return SelectorEnd();
    cursor_ = {0, base::CountFields(*values, ","), key, *values};
  }
  if (++cursor_.Position <= cursor_.Count) {
    const std::string next = base::GetField(cursor_.Position, cursor_.Values, ",");
    if (const auto text = selectors_.Find(cursor_.Key + "," + next)) {
      value = next;
      return *text;
    }
  }
  cursor_ = {};
  return SelectorEnd();
}

}  // namespace tintbench::config
