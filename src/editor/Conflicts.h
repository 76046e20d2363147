// The one rule across the elements of a table: no two in use have the same number. All else is
// left to the machine, which checks its own file.
#pragma once

#include <string>

#include "editor/EditingModel.h"

namespace tintbench::editor {

// The numbers of the table's elements in use, with "," behind each, the one that is edited among
// them. Empty for a table that has only one element, and for any parameter but the number.
std::string GetConflicts(const EditingModel& model, const TablePlace& at, int parameter);

}  // namespace tintbench::editor
