// The steps of editing a configuration, back and forth.
#include "base/Text.h"
#include "config/ConfigFile.h"
#include "config/LimitsString.h"
#include "editor/FormCfg.h"
#include "editor/ParameterRows.h"

namespace tintbench::editor {

// The table is shown anew, as the step may have changed anything of it.
void FormCfg::ShowStep(const ParameterPlace& at) {
  ui::Control* const focus = ActiveControl();
  ChooseTable(at.Element.Table);
  ShowTable();
  ShowState();
  GoTo(at);
  if (focus != nullptr && focus->IsShown() && focus->IsUsable()) focus->SetFocus();
}

void FormCfg::Travel(const std::optional<ParameterPlace>& at) {
  if (at) ShowStep(*at);
}

// The tab of a table that was empty stands for its first element.
void FormCfg::CmdAdd_Click() {
  if (!document_.AddElement(Table())) return;
  const int elements = document_.Model().ElementCount(Table());
  if (TabStripElem.TabCount() < elements) TabStripElem.AddTab({kNoNumber, "", ""});
  TabStripElem.PressTab(elements - 1);
  ShowState();
}

void FormCfg::CmdRemoveResume_Click() {
  if (!document_.RemoveOrResume(Element())) return;
  ShowElementState(true);
  ShowState();
}

void FormCfg::CmdSlv_Click(int direction) {
  slave_ += direction == 0 ? -1 : 1;
  if (slave_ < 1) slave_ = config::kSlaveCount;
  if (slave_ > config::kSlaveCount) slave_ = 1;
  ShowTable();
  ShowState();
}

void FormCfg::EditCurrentParameter() {
  if (LstCfg.ListIndex < 0) return;
  const ParameterPlace at = Row(LstCfg.ListIndex);
  const EditParms parms = EditParmsOf(document_.Model(), work_.Parameters, at);
  LblNotice.Caption = "";
  work_.Editor.SetEditParms(parms);
  work_.Screen.ShowModal(work_.Editor);
  const std::string value = work_.Editor.GetEditedParm();
  if (!work_.Editor.OkStore() || value == parms.Value) return;
  StoreParameter(at, value);
  if (!parms.Conflicts.empty()) {
    TabStripElem.SetCaption(TabStripElem.TabIndex, base::Dashed(value));
  }
}

// The row shows what was entered. If the line could not take it, or took it for more than one
// value, only a notice says so.
void FormCfg::StoreParameter(const ParameterPlace& at, const std::string& value) {
  const int row = at.Parameter - 1;
  const std::string old = base::Behind(LstCfg.List(row), ' ');
  const std::string text = QuotedLike(old, value);
  document_.StoreParameter(at, value);
  LblCurr(kCurrValue).Caption = value;
  LstCfg.SetItem(row, std::string(kRowSign) + text);
  LstTitle.SetItem(row, TitleOf(LstCfg.List(row), at));
  LstCfg.Refresh();
  const TablePlace& table = at.Element.Table;
  const config::LimitsString limits(
      work_.Parameters.Limits(table.Group, table.Table, at.Parameter));
  if (limits.IsSelector()) LstCfg_Click();
  ShowState();
  if (document_.Model().Value(at) != text) {
    LblNotice.Caption =
        "The element's line can't hold this value as it stands. Choose the table again to see what "
        "it holds.";
  }
}

}  // namespace tintbench::editor
