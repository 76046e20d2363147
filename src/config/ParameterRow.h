// How the parameters of a configuration are written down: a row for each, in the order that it has
// in a data line, and a list of rows for each table.
#pragma once

#include <span>
#include <string_view>

namespace tintbench::config {

struct ParameterRow {
  std::string_view Description;  // word for word what the operator reads
  std::string_view Limits;       // see LimitsString.h
};

struct ParameterTable {
  std::string_view Tag;
  std::span<const ParameterRow> Rows;
};

}  // namespace tintbench::config
