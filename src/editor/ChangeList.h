// What was changed in a configuration since it was loaded, as a list in which each change can be
// taken back by itself.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "editor/EditingModel.h"

namespace tintbench::editor {

enum class ChangeKind {
  kValue,    // of one parameter
  kLine,     // of a whole line, which has another number of fields than before
  kAdded,    // an element that the file doesn't hold
  kRemoved,  // an element of the file
};

struct Change {
  ChangeKind Kind;
  ParameterPlace At;  // parameter 1 where it is about the whole element
  std::string Old;    // as it stood in the line; of a whole element the line; empty for a new one
  std::string New;    // as it stands now; empty for one that is removed
};

// In the order of tables, slaves, elements and parameters. An element that was added and removed
// again is no change.
std::vector<Change> ListChanges(const EditingModel& loaded, const EditingModel& now);

// The step that takes one change back and leaves all others; nothing if it has no effect any more.
std::optional<CellChange> TakingBack(const Change& change, const EditingModel& now);

}  // namespace tintbench::editor
