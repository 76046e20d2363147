#include "editor/ConfigDocument.h"

#include "editor/ParameterRows.h"

namespace tintbench::editor {

void ConfigDocument::SetConfigName(const std::string& folder, const std::string& stem,
                                   const std::string& extension) {
  name_ = NamedConfig(writer_.Files, folder, stem, extension);
}

base::FileResult ConfigDocument::LoadConfigFile() {
  base::FileResult result = editor::LoadConfigFile(writer_.Files, name_.FullName(), loaded_);
  if (!result) return result;
  model_ = loaded_;
  history_.Clear();
  return result;
}

void ConfigDocument::Clear() {
  loaded_ = EditingModel();
  model_ = EditingModel();
  other_ = EditingModel();
  comparing_ = false;
  history_.Clear();
}

WriteOutcome ConfigDocument::WriteConfigFile(const std::string& path) const {
  return writer_.WriteConfigFile(model_, name_, path);
}

bool ConfigDocument::StoreParameter(const ParameterPlace& at, std::string_view value) {
  return history_.Do(editor::StoreParameter(model_, writer_.Catalogue, at, value));
}

bool ConfigDocument::IsChanged(const ParameterPlace& at) const {
  return model_.Value(at) != loaded_.Value(at);
}

base::FileResult ConfigDocument::CompareWith(const std::string& path) {
  base::FileResult result = editor::LoadConfigFile(writer_.Files, path, other_);
  comparing_ = comparing_ || result;
  return result;
}

std::vector<Difference> ConfigDocument::Differences() const {
  return comparing_ ? CompareConfigs(model_, other_) : std::vector<Difference>();
}

std::optional<SaveVerdict> ConfigDocument::TakeOver(const Difference& difference) {
  if (difference.Kind != DifferenceKind::kValue) return std::nullopt;
  ParameterEdit edit;
  edit.SetEditParms(EditParmsOf(model_, writer_.Catalogue, difference.At));
  const SaveVerdict verdict = edit.Save(RowValue(difference.There));
  if (edit.OkStore()) StoreParameter(difference.At, edit.GetEditedParm());
  return verdict;
}

}  // namespace tintbench::editor
