// Finding a few letters anywhere in a configuration: in the parameters' descriptions, in the tags
// and names of the tables, and in the values of all groups and slaves.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/ParameterCatalogue.h"
#include "editor/EditingModel.h"

namespace tintbench::editor {

enum class FoundIn { kTable, kDescription, kValue };

struct Finding {
  FoundIn In;
  ParameterPlace At;  // the first element, unless it is a value
  std::string Text;   // what holds the letters
};

struct Findings {
  std::vector<Finding> Places;
  bool Cut = false;  // there are more
};

// The case of ASCII letters doesn't matter. Empty letters are found nowhere. Tables and
// descriptions are given for `slave`; then come the values, in the order of tables, slaves,
// elements and parameters; `most` places at the most.
Findings FindText(const EditingModel& model, const config::ParameterCatalogue& catalogue,
                  std::string_view letters, int slave, std::size_t most);

}  // namespace tintbench::editor
