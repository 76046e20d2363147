#include "editor/FormEdit.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Text.h"
#include "editor/HelpText.h"

namespace tintbench::editor {

namespace {

ui::ListRows RowsWithText(const std::vector<std::string>& texts) {
  ui::ListRows rows;
  for (const std::string& text : texts) rows.push_back({.Text = text});
  return rows;
}

}  // namespace

FormEdit::FormEdit(ui::Screen& screen, const config::SelectorCatalogue& selectors)
    : screen_(screen), selectors_(selectors) {
  ConnectControls();
}

void FormEdit::ConnectControls() {
  LstEdit.Click = [this] { LstEdit_Click(); };
  LstChkEdit.ItemCheck = [this](int row) { LstChkEdit_ItemCheck(row); };
  for (int box = 0; box < ChkCnm.Count(); ++box) {
    ChkCnm(box).Click = [this, box] { ChkCnm_Click(box); };
  }
  for (int action = 0; action < kEditActions; ++action) {
    CmdEdit(action).Click = [this, action] { CmdEdit_Click(action); };
  }
  // Enter and Esc press the buttons that stand for them wherever the focus is.
  TxtEdit.KeyDown = [this](ui::KeyEvent& key) {
    if (key.Code != ui::kKeyPageUp || key.Shift != 0) return;
    key.Code = 0;
    CmdEdit(kRestore).Press();
  };
}

void FormEdit::Form_Load() {
  const EditParms& parms = edit_.Parms();
  const EditorChoice choice = edit_.Choice();
  Lbldescr.Caption = parms.Description;
  LblRange.Caption = parms.RangeText;
  TxtEdit.Text = parms.Value;
  ShowFace(choice);
  ShowAuxiliary();
  FillLists(choice.Kind);
  ShowOriginalMarks();
  FocusFirst(choice.Kind);
}

void FormEdit::Form_Unload(bool&) {
  TxtEdit.Text = "";
  TxtHelp.Text = "";
  LstEdit.Clear();
  LstChkEdit.Clear();
  MarkBoxes({});
}

void FormEdit::ShowFace(const EditorChoice& choice) {
  const bool marks = choice.Kind == EditorKind::kAddresses || choice.Kind == EditorKind::kFunctions;
  const bool help = choice.Kind == EditorKind::kHelp;
  TxtEdit.Locked = choice.IsTextLocked();
  LblSel.Caption = std::string(choice.Prompt);
  LblSel.Visible = !choice.Prompt.empty();
  LstEdit.Visible = choice.Kind == EditorKind::kSelector;
  LstChkEdit.Visible = marks;
  for (int frame = 0; frame < kMaskFrames; ++frame) {
    FrmCnm(frame).Visible = choice.Kind == EditorKind::kMask;
  }
  TxtHelp.Visible = help;
  TxtHelp.Text = help ? PlcTimesHelp(selectors_) : std::string();
  FrmAux.Visible = choice.HasAuxiliary;
}

void FormEdit::ShowAuxiliary() {
  const std::vector<AuxiliaryValue>& values = edit_.Parms().Auxiliary;
  for (int pair = 0; pair < LblAux.Count() / 2; ++pair) {
    const auto at = static_cast<std::size_t>(pair);
    const AuxiliaryValue shown = at < values.size() ? values[at] : AuxiliaryValue{};
    LblAux(2 * pair).Caption = shown.Label;
    LblAux(2 * pair + 1).Caption = shown.Value;
  }
}

void FormEdit::FillLists(EditorKind kind) {
  originalRow_ = -1;
  if (kind == EditorKind::kSelector) {
    const SelectorList list =
        ReadSelectorList(selectors_, edit_.Parms().Selector, edit_.Parms().Value);
    ui::ListRows rows;
    for (const SelectorItem& item : list.Items) rows.push_back({item.Text, item.Value});
    LstEdit.Rows = std::move(rows);
    originalRow_ = list.Selected;
    LstEdit.ListIndex = originalRow_;
  } else if (kind == EditorKind::kAddresses) {
    LstChkEdit.Rows = RowsWithText(AddressRowTexts());
  } else if (kind == EditorKind::kFunctions) {
    LstChkEdit.Rows = RowsWithText(FunctionRowTexts(selectors_));
  }
}

void FormEdit::FocusFirst(EditorKind kind) {
  if (kind == EditorKind::kMask) {
    ChkCnm(0).SetFocus();
  } else if (kind == EditorKind::kSelector) {
    LstEdit.SetFocus();
  } else if (LstChkEdit.Visible) {
    LstChkEdit.SetFocus();
  } else {
    TxtEdit.SetFocus();
  }
}

void FormEdit::ShowOriginalMarks() {
  const std::string& value = edit_.Parms().Value;
  switch (Face()) {
    case EditorKind::kMask:
      MarkBoxes(ShowMask(value));
      break;
    case EditorKind::kAddresses: {
      const AddressMarks marks = ShowGroupAddresses(value);
      MarkRows(std::vector<bool>(marks.begin(), marks.end()));
      break;
    }
    case EditorKind::kFunctions:
      MarkRows(ShowFunctionalities(value, LstChkEdit.Rows->size()));
      break;
    default:
      break;
  }
}

void FormEdit::MarkRows(const std::vector<bool>& marks) {
  busy_ = true;
  for (std::size_t row = 0; row < marks.size(); ++row) {
    LstChkEdit.Select(static_cast<int>(row), marks[row]);
  }
  busy_ = false;
}

void FormEdit::MarkBoxes(const Mask& mask) {
  busy_ = true;
  for (std::size_t box = 0; box < mask.size(); ++box) {
    ChkCnm(static_cast<int>(box)).Value = mask[box] == MaskMark::kSet     ? ui::kChecked
                                          : mask[box] == MaskMark::kClear ? ui::kUnchecked
                                                                          : ui::kGrayed;
  }
  busy_ = false;
}

Mask FormEdit::Boxes() const {
  Mask mask{};
  for (std::size_t box = 0; box < mask.size(); ++box) {
    const int value = ChkCnm(static_cast<int>(box)).Value;
    mask[box] = value == ui::kChecked     ? MaskMark::kSet
                : value == ui::kUnchecked ? MaskMark::kClear
                                          : MaskMark::kUnknown;
  }
  return mask;
}

std::vector<bool> FormEdit::RowMarks() const {
  std::vector<bool> marks;
  for (const ui::ListRow& row : LstChkEdit.Rows.Get()) marks.push_back(row.Selected);
  return marks;
}

void FormEdit::LstEdit_Click() {
  TxtEdit.Text = base::PlainNumber(LstEdit.ItemData(LstEdit.ListIndex));
}

void FormEdit::LstChkEdit_ItemCheck(int row) {
  if (busy_) return;
  if (Face() == EditorKind::kFunctions && IsReservedRow(LstChkEdit.List(row))) {
    busy_ = true;
    LstChkEdit.Select(row, false);
    busy_ = false;
    return;
  }
  const std::vector<bool> marks = RowMarks();
  if (Face() == EditorKind::kFunctions) {
    TxtEdit.Text = ReadFunctionalities(marks);
    return;
  }
  AddressMarks addresses{};
  std::copy_n(marks.begin(), std::min(marks.size(), addresses.size()), addresses.begin());
  TxtEdit.Text = ReadGroupAddresses(addresses);
}

void FormEdit::ChkCnm_Click(int box) {
  if (busy_) return;
  const int other = edit_.Choice().SingleMark ? OtherMarkedBox(Boxes(), box) : -1;
  if (other >= 0) {
    busy_ = true;
    ChkCnm(other).Value = ui::kUnchecked;
    busy_ = false;
  }
  TxtEdit.Text = ReadMask(Boxes());
}

void FormEdit::CmdEdit_Click(int action) {
  edit_.Discard();
  switch (action) {
    case kRestore:
      RestoreOriginal();
      break;
    case kSaveAndExit:
      SaveAndExit();
      break;
    default:
      screen_.Unload(*this);
  }
}

// A row that was chosen in place of none is no mark of the original.
void FormEdit::RestoreOriginal() {
  LstEdit.ListIndex = originalRow_;
  if (originalRow_ >= 0) return;
  TxtEdit.Text = edit_.Parms().Value;
  ShowOriginalMarks();
}

void FormEdit::SaveAndExit() {
  const std::string text = base::Trim(TxtEdit.Text.Get());
  TxtEdit.Text = text;
  const SaveVerdict verdict = edit_.Save(text);
  if (verdict == SaveVerdict::kStored) {
    screen_.Unload(*this);
    return;
  }
  screen_.Ask({.Text = std::string(RefusalText(verdict)), .Icon = ui::BoxIcon::Exclamation});
}

}  // namespace tintbench::editor
