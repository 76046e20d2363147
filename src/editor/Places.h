// Where something stands in a configuration that is edited. Everything counts from 1.
#pragma once

#include <compare>

#include "config/ConfigTables.h"

namespace tintbench::editor {

struct TablePlace {
  config::ConfigGroup Group = config::ConfigGroup::kStandard;
  int Table = 1;  // within its group
  int Slave = 1;
  friend auto operator<=>(const TablePlace&, const TablePlace&) = default;
};

struct ElementPlace {
  TablePlace Table;
  int Element = 1;  // its position in the table, which is not its number
  friend auto operator<=>(const ElementPlace&, const ElementPlace&) = default;
};

struct ParameterPlace {
  ElementPlace Element;
  int Parameter = 1;
  friend auto operator<=>(const ParameterPlace&, const ParameterPlace&) = default;
};

// The table's description; null if there is no such table.
const config::ConfigTable* TableAt(const TablePlace& at);

}  // namespace tintbench::editor
