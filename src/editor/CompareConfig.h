// The differences between two configurations.
#pragma once

#include <string>
#include <vector>

#include "editor/EditingModel.h"

namespace tintbench::editor {

enum class DifferenceKind {
  kValue,      // of one parameter
  kOnlyHere,   // an element
  kOnlyThere,  // an element
};

struct Difference {
  DifferenceKind Kind;
  // Here; of an element that is only there, its place there. Parameter 1 for a whole element.
  ParameterPlace At;
  std::string Here;  // the parameter as it stands in the line, or the element's line
  std::string There;
};

// Elements in use are matched by table, slave and element number, 01 being 1; in tables with one
// element, and of equal numbers, the first one belongs to the first. In the order of tables,
// slaves and elements here; those that are only there come last in their table.
std::vector<Difference> CompareConfigs(const EditingModel& here, const EditingModel& there);

}  // namespace tintbench::editor
