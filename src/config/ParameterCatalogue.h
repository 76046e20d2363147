// What a configuration may hold: each parameter's description and limits, by group, table and
// parameter. Never changes.
#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>

#include "config/ConfigTables.h"
#include "config/ParameterRow.h"
#include "config/SelectorCatalogue.h"

namespace tintbench::config {

// Tables count from 1 within their group, in the order of kConfigTables, and parameters from 1
// within their table. Where there is no such table or parameter, all texts are empty.
class ParameterCatalogue {
 public:
  // The selectors must outlive the catalogue.
  explicit ParameterCatalogue(const SelectorCatalogue& selectors);

  std::string_view Description(ConfigGroup group, int table, int parameter) const;

  // The limits text, for LimitsString.
  std::string_view Limits(ConfigGroup group, int table, int parameter) const;

  // The description. Where the parameter chooses from a selector list, the meaning of `value`
  // follows, or "UNKNOWN" if the list hasn't that value.
  std::string ParameterTitle(ConfigGroup group, int table, int parameter,
                             std::string_view value) const;

  // Bounds and default as one line, "[ min. = 1, max. = 64, default = 16 ]".
  std::string ParameterRangeText(ConfigGroup group, int table, int parameter) const;

  // What fills the parameter where a file leaves it empty; empty if it has no default.
  std::string ParameterDefault(ConfigGroup group, int table, int parameter) const;

 private:
  using Tables = std::span<const ParameterTable>;

  const ParameterRow* Find(ConfigGroup group, int table, int parameter) const;

  const SelectorCatalogue& selectors_;
  std::array<Tables, kConfigGroupCount> groups_;
};

}  // namespace tintbench::config
