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

std::string SelectorCatalogue::NextSelectorItem(const std::string& key, std::string& value,
                                                SelectorCursor& cursor) const {
  if (!key.empty()) {
    cursor = {};
    const auto values = Find(key);
    if (!values) return SelectorEnd();
    cursor = {0, base::CountFields(*values, ","), key, *values};
  }
  if (++cursor.Position <= cursor.Count) {
    const std::string next = base::GetField(cursor.Position, cursor.Values, ",");
    if (const auto text = Find(cursor.Key + "," + next)) {
      value = next;
      return *text;
    }
  }
  cursor = {};
  return SelectorEnd();
}

std::string SelectorCatalogue::SelectorItemText(int value, const std::string& key) const {
  if (key.empty()) return {};
  return Find(key + "," + base::PlainNumber(value)).value_or("");
}

}  // namespace tintbench::config
