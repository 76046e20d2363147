// What the operator reads beside the time of a line to a PLC: which time it is, with the signals
// drawn in characters of one width.
#pragma once

#include <string>

#include "config/SelectorCatalogue.h"

namespace tintbench::editor {

// The lines with CR LF between them.
std::string PlcTimesHelp(const config::SelectorCatalogue& selectors);

}  // namespace tintbench::editor
