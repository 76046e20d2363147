// Entering a parameter's value: which editor its limits ask for, and whether a value is taken. It
// knows nothing of files, tables and controls.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "config/LimitsString.h"

namespace tintbench::editor {

enum class EditorKind {
  kPlain,      // a text
  kHelp,       // a text, with help
  kAddresses,  // marks in the list of group addresses
  kFunctions,  // marks in the list of functionalities
  kAuxiliary,  // a text beside the values that it belongs to
  kMask,       // 16 boxes
  kSelector,   // a row of a selector list
};

struct EditorChoice {
  EditorKind Kind;
  std::string_view Prompt;    // above the boxes or the list; empty if none stands there
  bool SingleMark = false;    // of the boxes, only one may be set
  bool HasAuxiliary = false;  // the values that it belongs to are shown

  // The text only shows what the boxes or the list make.
  bool IsTextLocked() const;
};

// The editor of a limits text's first field.
EditorChoice ChooseEditor(const std::string& selector);

// Rows below (or above, if negative) the one edited, whose values are shown beside it.
std::vector<int> AuxiliaryOffsets(std::string_view selector);

// A value that the edited one belongs to.
struct AuxiliaryValue {
  std::string Label;
  std::string Value;
};

// Compares the value's leading number, or its length, with the bounds.
bool InRange(std::string_view value, const config::LimitsString& limits);

// `conflicts` is a list with "," behind each value. Texts are compared, so "3" and "03" differ.
bool NotConflicting(std::string_view value, std::string_view conflicts);

// What is edited.
struct EditParms {
  std::string Value;
  std::string Conflicts;  // element numbers in use; empty if none can conflict
  std::string Limits;
  std::string Selector;  // the limits' first field
  std::vector<AuxiliaryValue> Auxiliary;
  std::string Description;
  std::string RangeText;
};

enum class SaveVerdict { kStored, kNotInRange, kConflicting };

// What the operator reads when a value isn't taken; empty if it is.
std::string_view RefusalText(SaveVerdict verdict);

// The editing of one value, from its original to what is stored.
class ParameterEdit {
 public:
  void SetEditParms(EditParms parms);
  const EditParms& Parms() const { return parms_; }
  EditorChoice Choice() const { return ChooseEditor(parms_.Selector); }

  // Takes the text, without the blanks around it, unless it is refused.
  SaveVerdict Save(std::string_view text);
  // Nothing is stored, whatever was before.
  void Discard();

  // The value stored; empty if none is.
  const std::string& GetEditedParm() const { return edited_; }
  bool OkStore() const { return stored_; }

 private:
  EditParms parms_;
  std::string edited_;
  bool stored_ = false;
};

}  // namespace tintbench::editor
