#include "editor/ParameterEdit.h"

#include <array>
#include <functional>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::editor {

namespace {

struct EditorRow {
  std::string_view Selector;
  EditorChoice Choice;
  std::array<int, 2> Offsets;  // 0 for none
};

constexpr EditorRow kEditors[] = {
    {".", {EditorKind::kPlain, ""}, {}},
    {"HELP_13", {EditorKind::kHelp, "", false, true}, {-3, -2}},
    {"HEX_1", {EditorKind::kAddresses, "SELECT  GROUP  ADDRESSES"}, {}},
    {"X_FUN", {EditorKind::kFunctions, "SELECT  FUNCTIONALITIES"}, {}},
    {"UM_1", {EditorKind::kAuxiliary, "", false, true}, {-1}},
    {"UM_2", {EditorKind::kAuxiliary, "", false, true}, {-2}},
    {"UM_4", {EditorKind::kAuxiliary, "", false, true}, {-4}},
    {"UM_5", {EditorKind::kAuxiliary, "", false, true}, {-5}},
    {"EDGE_1", {EditorKind::kAuxiliary, "", false, true}, {-1}},
    {"0_1", {EditorKind::kMask, "SELECT  ONLY  ONE  CNM  CONNECTION", true, true}, {1, 2}},
    {"0_2", {EditorKind::kMask, "SELECT  CNM  CONNECTIONS", false, true}, {1, 2}},
    {"0_3", {EditorKind::kMask, "SELECT  ONLY  ONE  CONNECTION", true, true}, {1}},
    {"0_4", {EditorKind::kMask, "SELECT  ONLY  ONE  CONNECTION", true, true}, {-1, 1}},
};

// Keys that stand in no row: a selector list's number, or boxes without a prompt.
constexpr EditorChoice kSelectorChoice{EditorKind::kSelector, "SELECT  ITEM"};
constexpr EditorChoice kBareMaskChoice{EditorKind::kMask, ""};

const EditorRow* FindEditor(std::string_view selector) {
  for (const EditorRow& row : kEditors) {
    if (row.Selector == selector) return &row;
  }
  return nullptr;
}

// What a bound of this kind is compared with.
double Measured(std::string_view value, config::BoundKind kind) {
  return kind == config::BoundKind::kLength ? static_cast<double>(value.size())
                                            : base::LeadingNumber(value);
}

}  // namespace

bool EditorChoice::IsTextLocked() const {
  return Kind != EditorKind::kPlain && Kind != EditorKind::kHelp && Kind != EditorKind::kAuxiliary;
}

EditorChoice ChooseEditor(const std::string& selector) {
  if (const EditorRow* row = FindEditor(selector)) return row->Choice;
  return base::LeadingNumber(selector) > 0 ? kSelectorChoice : kBareMaskChoice;
}

std::vector<int> AuxiliaryOffsets(std::string_view selector) {
  std::vector<int> offsets;
  const EditorRow* row = FindEditor(selector);
  if (row == nullptr) return offsets;
  for (const int offset : row->Offsets) {
    if (offset != 0) offsets.push_back(offset);
  }
  return offsets;
}

bool InRange(std::string_view value, const config::LimitsString& limits) {
  const auto keeps = [value](const config::Bound& bound, auto isBeyond) {
    if (bound.Kind == config::BoundKind::kFree) return true;
    return !isBeyond(Measured(value, bound.Kind), base::LeadingNumber(bound.Number));
  };
  return keeps(limits.Minimum, std::less<>()) && keeps(limits.Maximum, std::greater<>());
}

bool NotConflicting(std::string_view value, std::string_view conflicts) {
  if (conflicts.empty()) return true;
  const std::string list = "," + std::string(conflicts) + ",";
  return list.find("," + std::string(value) + ",") == std::string::npos;
}

std::string_view RefusalText(SaveVerdict verdict) {
  if (verdict == SaveVerdict::kNotInRange) return "PARAMETER NOT IN RANGE";
  return verdict == SaveVerdict::kConflicting ? "ELEMENT ALREADY EXISTING" : "";
}

void ParameterEdit::SetEditParms(EditParms parms) {
  parms_ = std::move(parms);
  Discard();
}

SaveVerdict ParameterEdit::Save(std::string_view text) {
  Discard();
  const std::string value = base::Trim(text);
  if (!InRange(value, config::LimitsString(parms_.Limits))) return SaveVerdict::kNotInRange;
  if (!NotConflicting(value, parms_.Conflicts)) return SaveVerdict::kConflicting;
  edited_ = value;
  stored_ = true;
  return SaveVerdict::kStored;
}

void ParameterEdit::Discard() {
  edited_.clear();
  stored_ = false;
}

}  // namespace tintbench::editor
