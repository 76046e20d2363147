// The dialog that changes one parameter. It knows of no file and no table: it is told the value and
// its limits, and tells what the operator made of it.
#pragma once

#include <string>

#include "config/SelectorCatalogue.h"
#include "editor/EditWindow.h"
#include "editor/ParameterEdit.h"
#include "ui/Screen.h"

namespace tintbench::editor {

struct FormEdit final : EditWindow {
  // Both must outlive the window.
  FormEdit(ui::Screen& screen, const config::SelectorCatalogue& selectors);

  // Before it is shown, modally: what is to be edited.
  void SetEditParms(EditParms parms) { edit_.SetEditParms(std::move(parms)); }
  // Afterwards: whether a value was taken, and which.
  bool OkStore() const { return edit_.OkStore(); }
  const std::string& GetEditedParm() const { return edit_.GetEditedParm(); }
  // Which face the dialog shows.
  EditorKind Face() const { return edit_.Choice().Kind; }

  void Form_Load() override;
  void Form_Unload(bool& cancel) override;

 private:
  void ConnectControls();
  void ShowFace(const EditorChoice& choice);
  void ShowAuxiliary();
  void FillLists(EditorKind kind);
  void FocusFirst(EditorKind kind);
  // Marks and boxes as the original value has them.
  void ShowOriginalMarks();
  void MarkRows(const std::vector<bool>& marks);
  void MarkBoxes(const Mask& mask);
  Mask Boxes() const;
  std::vector<bool> RowMarks() const;

  void LstEdit_Click();
  void LstChkEdit_ItemCheck(int row);
  void ChkCnm_Click(int box);
  void CmdEdit_Click(int action);
  void RestoreOriginal();
  void SaveAndExit();

  ui::Screen& screen_;
  const config::SelectorCatalogue& selectors_;
  ParameterEdit edit_;
  int originalRow_ = -1;  // of `LstEdit`, with the original value
  bool busy_ = false;     // marks change by the program's own hand
};

}  // namespace tintbench::editor
