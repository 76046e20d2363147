// What helps an operator to find his way in a configuration: finding, the list of changes, and the
// comparison with another file. It sends and asks nothing, and changes only by steps of editing.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "editor/CfgParts.h"
#include "editor/CfgWindow.h"
#include "editor/ConfigDocument.h"

namespace tintbench::editor {

class CfgPanels {
 public:
  // All of it must outlive the panels.
  CfgPanels(CfgWindow& window, ConfigDocument& document, const FormCfgParts& parts,
            CfgOwner& owner);

  // As the window opens: no panel, and nothing to compare with.
  void Reset();
  // Opens one of the window's three panels, and gives it the keyboard.
  void OpenFind();
  void OpenChanges();
  void OpenCompare();
  // False if none is open.
  bool Close();
  // The configuration has changed.
  void Update();
  // Whether the place differs from the file compared with.
  bool Differs(const ParameterPlace& at) const { return differing_.contains(at); }

 private:
  // A list whose rows are gone to by Enter or a double click.
  void ConnectList(ui::ListBox& list, void (CfgPanels::*go)());
  void Toggle(ui::Frame& panel, void (CfgPanels::*open)());
  void Open(ui::Frame& panel, ui::Control& first);

  void ShowFindings();
  void ShowChanges();
  void ShowDifferences();
  void GoToFinding();
  void GoToChange();
  void GoToDifference();
  void TxtFind_KeyDown(ui::KeyEvent& key);
  void CmdTakeBack_Click();
  void CmdCompareFile_Click();
  void CmdTakeOver_Click();

  std::string ChangeRow(const Change& change) const;
  std::string DifferenceRow(const Difference& difference) const;

  CfgWindow& window_;
  ConfigDocument& document_;
  FormCfgParts work_;
  CfgOwner& owner_;
  std::vector<Finding> findings_;
  std::vector<Change> changes_;
  std::vector<Difference> differences_;
  std::set<ParameterPlace> differing_;
  std::string otherFile_;  // compared with; empty for none
};

}  // namespace tintbench::editor
