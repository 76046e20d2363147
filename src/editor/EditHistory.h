// The steps of editing since a file was loaded, to go back and forth through them.
#pragma once

#include <optional>
#include <vector>

#include "editor/EditingModel.h"

namespace tintbench::editor {

class EditHistory {
 public:
  // The model must outlive the history, and nobody else may change it.
  explicit EditHistory(EditingModel& model) : model_(model) {}

  // Carries a step out and keeps it. What was taken back before can't be redone any more. False if
  // there is no step.
  bool Do(const std::optional<CellChange>& step);

  bool CanUndo() const { return done_ > 0; }
  bool CanRedo() const { return done_ < steps_.size(); }

  // Each gives the place that has changed; nothing if there is no such step.
  std::optional<ParameterPlace> Undo();
  std::optional<ParameterPlace> Redo();

  // Forgets all steps; the model stays as it is.
  void Clear();

 private:
  EditingModel& model_;
  std::vector<CellChange> steps_;
  std::size_t done_ = 0;  // how many of the steps are in effect
};

}  // namespace tintbench::editor
