// What is allowed for one parameter, read from its limits text "editor,minimum,maximum,default".
#pragma once

#include <string>
#include <string_view>

namespace tintbench::config {

enum class BoundKind {
  kFree,    // "."
  kValue,   // a number; an empty text counts as 0
  kLength,  // "c" and the number of characters
};

// One bound of a parameter.
struct Bound {
  BoundKind Kind;
  std::string Number;  // as written, without the "c"
};

struct LimitsString {
  explicit LimitsString(std::string_view text);

  // True if the parameter chooses from the selector list of that key. Masks begin with "0_" and
  // are none.
  bool IsSelector() const;

  // "[ min. = 1, max. = 64, default = 16 ]".
  std::string RangeText() const;

  // What fills an empty parameter: nothing if there is no default, two double quote characters if
  // the default is the empty text.
  std::string DefaultValue() const;

  // The default as the operator reads it: "?" if there is none.
  std::string ShownDefault() const;

  std::string EditorKey;  // which editor the operator gets, or the key of a selector list
  Bound Minimum;
  Bound Maximum;
  std::string Default;  // as written: "." for none; empty for the empty text
};

}  // namespace tintbench::config
