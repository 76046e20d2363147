// The controls of the dialog that changes one parameter. It has seven faces: a text alone, a text
// with help, a text beside what it belongs to, a list, group addresses, functionalities and a mask.
// What a face doesn't need is hidden, and the dialog is as large as the face needs.
#pragma once

#include "editor/ParameterMarks.h"
#include "ui/Controls.h"
#include "ui/Form.h"

namespace tintbench::editor {

inline constexpr int kMaskFrames = 4;
inline constexpr int kBoxesInFrame = static_cast<int>(kMaskBoxes) / kMaskFrames;

enum EditAction : int { kRestore = 0, kSaveAndExit = 1, kExitWithoutSaving = 2, kEditActions };

struct EditWindow : ui::Form {
  EditWindow();

  ui::Label Lbldescr{*this, "Lbldescr"};  // the parameter's description
  ui::Label LblRange{*this, "LblRange"};
  ui::Frame FrmEdit{*this, "FrmEdit"};
  // The value, always. Locked where the list, the marks or the boxes make it.
  ui::TextBox TxtEdit{FrmEdit, "TxtEdit"};
  ui::Label LblSel{FrmEdit, "LblSel"};
  ui::ListBox LstEdit{FrmEdit, "LstEdit"};        // one row can be selected
  ui::ListBox LstChkEdit{FrmEdit, "LstChkEdit"};  // rows with check marks
  // Four boxes in each frame, 0 to 3 in the first; box 0 has the caption 16. Three states.
  ui::ControlArray<ui::Frame> FrmCnm{FrmEdit, "FrmCnm", kMaskFrames};
  ui::ControlArray<ui::CheckBox> ChkCnm{
      [this](int box) -> ui::Container& { return FrmCnm(box / kBoxesInFrame); }, "ChkCnm",
      static_cast<int>(kMaskBoxes)};
  ui::TextBox TxtHelp{*this, "TxtHelp"};  // drawn in characters: needs a font of one width
  ui::Frame FrmAux{*this, "FrmAux"};
  ui::ControlArray<ui::Label> LblAux{FrmAux, "LblAux", 4};  // label, value, label, value
  ui::ControlArray<ui::Button> CmdEdit{*this, "CmdEdit", kEditActions};
};

}  // namespace tintbench::editor
