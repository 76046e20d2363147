// How a place in a configuration is named in lists of what was found, changed or differs.
#pragma once

#include <string>

#include "config/ParameterCatalogue.h"
#include "editor/EditingModel.h"

namespace tintbench::editor {

// "Motors 3": the table and, if it may have several elements, the element's number in `model`.
// Slaves other than the first are named too, "Motors, slave 2 3".
std::string ElementText(const EditingModel& model, const ElementPlace& at);

// The parameter's description; "parameter 12" if the table has no such one.
std::string ParameterText(const config::ParameterCatalogue& catalogue, const ParameterPlace& at);

}  // namespace tintbench::editor
