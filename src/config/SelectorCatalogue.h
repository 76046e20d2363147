// The keyed lists of fixed values that some parameters of a configuration choose from, each value
// with the text that explains it. Built once and never changed.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tintbench::config {

// Ends a walk: one character of value 0, which no row can be.
std::string SelectorEnd();

// Where a walk over a list stands.
struct SelectorCursor {
  int Position = 0;  // of the row given last, from 1
  int Count = 0;
  std::string Key;
  std::string Values;
};

class SelectorCatalogue {
 public:
  SelectorCatalogue();

  // What stands under a key: for a selector's key ("8") its values with "," between them, in the
  // order of showing; for a selector's key, "," and a value ("8,5") the text of that row, which
  // is "[ value ]" and its meaning. Nothing if there is no such key.
  std::optional<std::string> Find(const std::string& key) const;

  // The first row of the selector `key`, or with an empty `key` the next row of the walk that
  // `cursor` is on. Gives the row's text and puts its value into `value`. At the end, and for an
  // unknown selector, gives SelectorEnd() and leaves `value` as it is.
  std::string NextSelectorItem(const std::string& key, std::string& value,
                               SelectorCursor& cursor) const;

  // The text of one row; empty if there is no such row.
  std::string SelectorItemText(int value, const std::string& key) const;

 private:
  std::map<std::string, std::string, std::less<>> entries_;
};

}  // namespace tintbench::config
