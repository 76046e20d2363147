// One configuration file in the hands of an operator: loaded, edited with all steps kept, saved.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/ChangeList.h"
#include "editor/CompareConfig.h"
#include "editor/ConfigStore.h"
#include "editor/EditHistory.h"
#include "editor/FindText.h"
#include "editor/ParameterEdit.h"

namespace tintbench::editor {

class ConfigDocument {
 public:
  // What the writer works with must outlive the document.
  explicit ConfigDocument(const ConfigWriter& writer) : writer_(writer) {}

  // The history speaks of this model and no other.
  ConfigDocument(const ConfigDocument&) = delete;
  ConfigDocument& operator=(const ConfigDocument&) = delete;

  void SetConfigName(const std::string& folder, const std::string& stem,
                     const std::string& extension);
  const ConfigName& Name() const { return name_; }

  // Reads the file of the present name. All steps are forgotten then. If it can't be read, all
  // stays as it was.
  base::FileResult LoadConfigFile();
  // Forgets what was loaded, its steps and the file compared with.
  void Clear();
  // Writes slave 1 as the file `path`. Nothing changes here: the file is yet to be named and
  // loaded.
  WriteOutcome WriteConfigFile(const std::string& path) const;

  const EditingModel& Model() const { return model_; }

  // The steps of editing. Each is false if it has no effect.
  bool AddElement(const TablePlace& at) { return history_.Do(model_.Adding(at)); }
  bool RemoveOrResume(const ElementPlace& at) { return history_.Do(model_.RemovingOrResuming(at)); }
  // The value without quotes, as the editor gives it.
  bool StoreParameter(const ParameterPlace& at, std::string_view value);
  // One change of Changes(); the others stay.
  bool TakeBack(const Change& change) { return history_.Do(TakingBack(change, model_)); }

  bool CanUndo() const { return history_.CanUndo(); }
  bool CanRedo() const { return history_.CanRedo(); }
  // Each gives the place that has changed; nothing if there is no such step.
  std::optional<ParameterPlace> Undo() { return history_.Undo(); }
  std::optional<ParameterPlace> Redo() { return history_.Redo(); }

  // What was changed since loading.
  std::vector<Change> Changes() const { return ListChanges(loaded_, model_); }
  // True if the parameter has another value than when it was loaded.
  bool IsChanged(const ParameterPlace& at) const;

  Findings Find(std::string_view letters, int slave, std::size_t most) const {
    return FindText(model_, writer_.Catalogue, letters, slave, most);
  }

  // Reads another file to compare with. If it can't be read, the one before stays.
  base::FileResult CompareWith(const std::string& path);
  // What differs now from the other file; nothing without one.
  std::vector<Difference> Differences() const;
  // The other file; empty without one.
  const EditingModel& Other() const { return other_; }
  // Gives a parameter the other file's value, unless the editor would refuse it. Nothing for a
  // difference of whole elements.
  std::optional<SaveVerdict> TakeOver(const Difference& difference);

 private:
  ConfigWriter writer_;
  ConfigName name_;
  EditingModel loaded_;
  EditingModel model_;
  EditHistory history_{model_};
  EditingModel other_;
  bool comparing_ = false;
};

}  // namespace tintbench::editor
