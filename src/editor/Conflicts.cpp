#include "editor/Conflicts.h"

namespace tintbench::editor {

std::string GetConflicts(const EditingModel& model, const TablePlace& at, int parameter) {
  const config::ConfigTable* table = TableAt(at);
  if (table == nullptr || table->Count == config::Elements::kOne || parameter != 1) return {};
  std::string numbers;
  for (int element = 1; element <= model.ElementCount(at); ++element) {
    const ElementPlace place{at, element};
    if (!model.IsRemoved(place)) numbers += model.Value({place, 1}) + ",";
  }
  return numbers;
}

}  // namespace tintbench::editor
