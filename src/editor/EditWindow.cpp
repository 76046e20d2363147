#include "editor/EditWindow.h"

#include <string>

namespace tintbench::editor {

EditWindow::EditWindow() : ui::Form("FormEdit") {
  Caption = "PARAMETER EDITING";
  FrmEdit.Caption = "Parameter Value";
  LblSel.Caption = "SELECT";
  LstChkEdit.CheckMarks = true;
  ChkCnm.Prepare([](ui::CheckBox& box, int index) {
    box.Caption = std::to_string(static_cast<int>(kMaskBoxes) - index);
  });
  TxtHelp.MultiLine = true;
  TxtHelp.Locked = true;
  FrmAux.Caption = "Auxiliary Informations";
  CmdEdit(kRestore).Caption = "Restore Original Value";
  CmdEdit(kSaveAndExit).Caption = "Save and Exit";
  CmdEdit(kSaveAndExit).Default = true;
  CmdEdit(kExitWithoutSaving).Caption = "Exit Without Saving";
  CmdEdit(kExitWithoutSaving).Cancel = true;
}

}  // namespace tintbench::editor
