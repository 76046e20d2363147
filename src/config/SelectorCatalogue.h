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

class SelectorCatalogue {
 public:
  SelectorCatalogue();

  // What stands under a key: for a selector's key ("8") its values with "," between them, in the
  // order of showing; for a selector's key, "," and a value ("8,5") the text of that row, which
  // is "[ value ]" and its meaning. Nothing if there is no such key.
  std::optional<std::string> Find(const std::string& key) const;

  // The text of one row; empty if there is no such row.
  std::string SelectorItemText(int value, const std::string& key) const;

 private:
  std::map<std::string, std::string, std::less<>> entries_;
};

// Walks over the rows of one selector at a time: to begin a walk ends the one before.
class SelectorWalk {
 public:
  // The selectors must outlive the walk.
  explicit SelectorWalk(const SelectorCatalogue& selectors) : selectors_(selectors) {}

  // The first row of the selector `key`, or with an empty `key` the next row of the walk. Gives the
  // row's text and puts its value into `value`. At the end, and for an unknown selector, gives
  // SelectorEnd() and leaves `value` as it is; the walk is over then.
  std::string NextSelectorItem(const std::string& key, std::string& value);

 private:
  struct Cursor {
    int Position = 0;  // of the row given last, from 1
    int Count = 0;
    std::string Key;
    std::string Values;
  };

  const SelectorCatalogue& selectors_;
  Cursor cursor_;
};

}  // namespace tintbench::config
