#include "editor/CfgWindow.h"

#include <string>

namespace tintbench::editor {

namespace {

// What marks the tab of a table that may have several elements.
constexpr const char* kSeveralElements = "-1";

ui::TabPages TablePages(config::ConfigGroup group) {
  ui::TabPages pages;
  for (const config::ConfigTable& table : config::TablesOf(group)) {
    const bool several = table.Count == config::Elements::kSeveral;
    pages.push_back(
        {std::string(table.Caption), std::string(table.Tag), several ? kSeveralElements : ""});
  }
  return pages;
}

// The keys that do the same as a control.
void TellKeys(CfgWindow& window) {
  window.CmdSave.ToolTipText = "Ctrl+S";
  window.CmdUndo.ToolTipText = "Ctrl+Z";
  window.CmdRedo.ToolTipText = "Ctrl+Y";
  window.CmdFind.ToolTipText = "Ctrl+F";
  window.CmdChanges.ToolTipText = "Ctrl+H";
  window.CmdCompare.ToolTipText = "Ctrl+K";
  window.TxtElem.ToolTipText = "Ctrl+G";
  window.TabStripElem.ToolTipText = "Ctrl+PageUp, Ctrl+PageDown";
  window.LstTables.ToolTipText = "Ctrl+T";
  window.LstCfg.ToolTipText = "Ctrl+L; Enter edits the row";
}

}  // namespace

CfgWindow::CfgWindow() : ui::Form("FormCfg") {
  FrmDT.Caption = "Date/Time";
  FrmSlv.Caption = "Slave Address";
  CmdSlv(0).Caption = "-";
  CmdSlv(1).Caption = "+";
  FrmTabStripCfg.Caption = "Configuration Features";
  OptCfg(0).Caption = "Standard";
  OptCfg(1).Caption = "Advanced";
  OptCfg(2).Caption = "Industrial";
  for (int group = 0; group < config::kConfigGroupCount; ++group) {
    TabStripCfg(group).Tabs = TablePages(static_cast<config::ConfigGroup>(group));
    TabStripCfg(group).TabIndex = 0;
    TabStripCfg(group).Visible = group == 0;
  }
  LblElem.Caption = "Number";
  CmdAdd.Caption = "ADD  ANOTHER  TABLE";
  CmdRemoveResume.Caption = "REMOVE/RESUME  THIS  TABLE";
  Frame2.Caption = "Parameter List";
  Frame3.Caption = "Parameter Description and  Range";
  Frame4.Caption = "Parameter Value";
  FrmNum.Caption = "Parameter Order";
  CmdEdit.Caption = "EDIT";
  CmdSave.Caption = "SAVE  CONFIGURATION";
  LblWplease.Caption = "wait please ... ";
  FrmWplease.Visible = false;
  CmdUndo.Caption = "UNDO";
  CmdRedo.Caption = "REDO";
  CmdFind.Caption = "FIND";
  CmdChanges.Caption = "CHANGES";
  CmdCompare.Caption = "COMPARE";
  FrmFind.Caption = "Find in the whole file";
  FrmChanges.Caption = "Changed since the file was loaded";
  FrmCompare.Caption = "Compare with another file";
  CmdTakeBack.Caption = "TAKE BACK";
  CmdCompareFile.Caption = "SELECT FILE";
  CmdTakeOver.Caption = "TAKE OVER";
  TellKeys(*this);
  for (ui::Frame* panel : {&FrmFind, &FrmChanges, &FrmCompare}) panel->Visible = false;
}

}  // namespace tintbench::editor
