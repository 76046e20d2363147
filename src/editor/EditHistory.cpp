#include "editor/EditHistory.h"

namespace tintbench::editor {

bool EditHistory::Do(const std::optional<CellChange>& step) {
  if (!step) return false;
  model_.Apply(*step);
  steps_.resize(done_);
  steps_.push_back(*step);
  ++done_;
  return true;
}

std::optional<ParameterPlace> EditHistory::Undo() {
  if (!CanUndo()) return std::nullopt;
  const CellChange& step = steps_[--done_];
  model_.Apply(step.Inverse());
  return step.Where();
}

std::optional<ParameterPlace> EditHistory::Redo() {
  if (!CanRedo()) return std::nullopt;
  const CellChange& step = steps_[done_++];
  model_.Apply(step);
  return step.Where();
}

void EditHistory::Clear() {
  steps_.clear();
  done_ = 0;
}

}  // namespace tintbench::editor
