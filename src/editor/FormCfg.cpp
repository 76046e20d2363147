#include "editor/FormCfg.h"

#include <algorithm>
#include <array>
#include <functional>

#include "base/Numbers.h"
#include "base/Text.h"
#include "config/ConfigFile.h"
#include "editor/ParameterRows.h"

namespace tintbench::editor {

namespace {

int GroupIndex(config::ConfigGroup group) { return static_cast<int>(group); }

// The number or name in an element's caption, without the signs around it.
std::string BareCaption(const std::string& caption) {
  const bool signs = std::count(caption.begin(), caption.end(), ' ') >= 2;
  return signs ? base::GetField(2, caption, " ") : caption;
}

// 03 is 3, but a text is only itself.
bool IsNumber(const std::string& caption, const std::string& wanted) {
  if (!base::IsNumeric(caption) || !base::IsNumeric(wanted)) return caption == wanted;
  return base::LeadingInt(caption) == base::LeadingInt(wanted);
}

}  // namespace

FormCfg::FormCfg(const FormCfgParts& parts)
    : work_(parts),
      document_({parts.Files, parts.Screen.Time(), parts.Identity, parts.Parameters}) {
  ConnectControls();
  ConnectSteps();
  ConnectKeys();
}

void FormCfg::ConnectControls() {
  for (int group = 0; group < config::kConfigGroupCount; ++group) {
    OptCfg(group).Click = [this, group] { OptCfg_Click(group); };
    TabStripCfg(group).Click = [this, group] { TabStripCfg_Click(group); };
  }
  LstTables.Click = [this] { LstTables_Click(); };
  TabStripElem.Click = [this] { ListParameters(); };
  TxtElem.Change = [this] { TxtElem_Change(); };
  LstCfg.Click = [this] { LstCfg_Click(); };
  LstCfg.DblClick = [this] { EditCurrentParameter(); };
  CmdEdit.Click = [this] { EditCurrentParameter(); };
}

void FormCfg::ConnectSteps() {
  CmdAdd.Click = [this] { CmdAdd_Click(); };
  CmdRemoveResume.Click = [this] { CmdRemoveResume_Click(); };
  for (int direction = 0; direction < CmdSlv.Count(); ++direction) {
    CmdSlv(direction).Click = [this, direction] { CmdSlv_Click(direction); };
  }
  CmdSave.Click = [this] { CmdSave_Click(); };
  CmdUndo.Click = [this] { Travel(document_.Undo()); };
  CmdRedo.Click = [this] { Travel(document_.Redo()); };
}

void FormCfg::ConnectKeys() {
  const auto onEnter = [](ui::Control& control, const std::function<void()>& act) {
    control.KeyDown = [act](ui::KeyEvent& key) {
      if (key.Code != ui::kKeyEnter || key.Shift != 0) return;
      key.Code = 0;
      act();
    };
  };
  onEnter(LstCfg, [this] { EditCurrentParameter(); });
  onEnter(TxtElem, [this] { LstCfg.SetFocus(); });
  onEnter(LstTables, [this] { LstCfg.SetFocus(); });
}

void FormCfg::Form_Load() {
  busy_ = true;
  for (int group = 0; group < config::kConfigGroupCount; ++group) TabStripCfg(group).TabIndex = 0;
  busy_ = false;
  slave_ = 1;
  panels_.Reset();
  ChooseTable({config::ConfigGroup::kStandard, 1, slave_});
  const base::FileResult result = ShowConfiguration();
  if (!result) {
    TellFileProblem("The file can't be read.", document_.Name().FullName(), result.Error());
    work_.Screen.Unload(*this);
    return;
  }
  LstCfg.SetFocus();
}

void FormCfg::Form_Unload(bool&) { document_.Clear(); }

void FormCfg::Form_KeyDown(ui::KeyEvent& key) {
  if (DoShortcut(key)) key.Code = 0;
}

bool FormCfg::DoShortcut(const ui::KeyEvent& key) {
  struct Shortcut {
    int Code;
    int Shift;
    std::function<void()> Do;
  };
  const std::array<Shortcut, 12> shortcuts{{
      {'Z', ui::kCtrl, [this] { CmdUndo.Press(); }},
      {'Y', ui::kCtrl, [this] { CmdRedo.Press(); }},
      {'S', ui::kCtrl, [this] { CmdSave.Press(); }},
      {'F', ui::kCtrl, [this] { panels_.OpenFind(); }},
      {'H', ui::kCtrl, [this] { panels_.OpenChanges(); }},
      {'K', ui::kCtrl, [this] { panels_.OpenCompare(); }},
      {'T', ui::kCtrl, [this] { LstTables.SetFocus(); }},
      {'L', ui::kCtrl, [this] { LstCfg.SetFocus(); }},
      {'G', ui::kCtrl,
       [this] { (HasSeveral() ? static_cast<ui::Control&>(TxtElem) : LstCfg).SetFocus(); }},
      {ui::kKeyPageUp, ui::kCtrl, [this] { StepElement(-1); }},
      {ui::kKeyPageDown, ui::kCtrl, [this] { StepElement(1); }},
      {ui::kKeyEsc, 0, [this] { Leave(); }},
  }};
  const bool typing = dynamic_cast<ui::TextBox*>(ActiveControl()) != nullptr;
  for (const Shortcut& shortcut : shortcuts) {
    // A text box takes its own typing back.
    if (typing && (shortcut.Code == 'Z' || shortcut.Code == 'Y')) continue;
    if (shortcut.Code != key.Code || shortcut.Shift != key.Shift) continue;
    shortcut.Do();
    return true;
  }
  return false;
}

// Nothing that isn't saved goes by a key that may have been hit by mistake.
void FormCfg::Leave() {
  if (panels_.Close()) {
    LstCfg.SetFocus();
  } else if (LblUnsaved.Caption->empty()) {
    work_.Screen.Unload(*this);
  } else {
    panels_.OpenChanges();
  }
}

TablePlace FormCfg::Table() const {
  return {group_, TabStripCfg(GroupIndex(group_)).TabIndex + 1, slave_};
}

bool FormCfg::HasSeveral() const { return TableAt(Table())->Count == config::Elements::kSeveral; }

base::FileResult FormCfg::ShowConfiguration() {
  const ConfigName& name = document_.Name();
  Caption = "VIEW / MODIFY  " + base::Bracketed(name.FullName());
  LblDateTime(0).Caption = name.Date;
  LblDateTime(1).Caption = name.Time;
  base::FileResult result = document_.LoadConfigFile();
  ShowTable();
  ShowState();
  return result;
}

// Sets all that chooses a table, without showing it yet.
void FormCfg::ChooseTable(const TablePlace& at) {
  busy_ = true;
  group_ = at.Group;
  slave_ = at.Slave;
  for (int group = 0; group < config::kConfigGroupCount; ++group) {
    TabStripCfg(group).Visible = group == GroupIndex(group_);
  }
  OptCfg(GroupIndex(group_)).Value = true;
  TabStripCfg(GroupIndex(group_)).TabIndex = at.Table - 1;
  busy_ = false;
}

void FormCfg::ShowTable() {
  const TablePlace table = Table();
  const bool several = HasSeveral();
  LblSlv.Caption = base::PlainNumber(slave_);
  FrmTable.Caption = std::string(TableAt(table)->Caption);
  CmdAdd.Enabled = several;
  LblElem.Visible = several;
  TxtElem.Visible = several;
  TxtElem.Text = "";
  ShowTables();
  busy_ = true;
  LstTables.ListIndex = static_cast<int>(TableAt(table) - config::kConfigTables.data());
  busy_ = false;
  ui::TabPages pages;
  const int elements = std::max(document_.Model().ElementCount(table), 1);
  for (int element = 1; element <= elements; ++element) {
    pages.push_back(ElementPage({table, element}));
  }
  TabStripElem.TabIndex = -1;
  TabStripElem.Tabs = std::move(pages);
  TabStripElem.TabIndex = 0;
}

ui::TabPage FormCfg::ElementPage(const ElementPlace& at) const {
  const EditingModel& model = document_.Model();
  const bool none = model.ElementCount(at.Table) == 0;
  const std::string name = !HasSeveral() ? "N." + base::PlainNumber(slave_)
                           : none        ? kNoNumber
                                         : model.Value({at, 1});
  if (!model.IsRemoved(at)) return {name, "", ""};
  return {base::Bracketed(name), "", kRemovedTab};
}

void FormCfg::ListParameters() {
  const int parameters = TableAt(Table())->Parameters;
  LblNotice.Caption = "";
  LblTot.Caption = base::PlainNumber(parameters);
  ui::ListRows rows;
  ui::ListRows titles;
  for (int row = 0; row < parameters; ++row) {
    rows.push_back(ListRowOf(Row(row)));
    titles.push_back({.Text = TitleOf(rows.back().Text, Row(row))});
  }
  LstCfg.ListIndex = -1;
  LstTitle.Rows = std::move(titles);
  LstCfg.Rows = std::move(rows);
  LstCfg.ListIndex = 0;
  ShowElementState(false);
}

ui::ListRow FormCfg::ListRowOf(const ParameterPlace& at) const {
  const std::string text = RowText(document_.Model(), work_.Parameters, at);
  const int signs = (IsEmptyRow(text) ? kRowEmpty : 0) |
                    (document_.IsChanged(at) ? kRowChanged : 0) |
                    (panels_.Differs(at) ? kRowDiffers : 0);
  return {.Text = std::string(kRowSign) + text, .ItemData = signs};
}

// An empty row has no value that could mean anything.
std::string FormCfg::TitleOf(const std::string& listRow, const ParameterPlace& at) const {
  const TablePlace& table = at.Element.Table;
  const std::string value = ListRowValue(listRow);
  if (IsEmptyRow(value)) {
    return std::string(work_.Parameters.Description(table.Group, table.Table, at.Parameter));
  }
  return work_.Parameters.ParameterTitle(table.Group, table.Table, at.Parameter, value);
}

void FormCfg::ShowElementState(bool withCaption) {
  const bool removed = document_.Model().IsRemoved(Element());
  LstCfg.BackColor = removed ? kRemovedColour : ui::kWindowColour;
  CmdEdit.Enabled = !removed;
  const int tab = TabStripElem.TabIndex;
  if (!withCaption || tab < 0) return;
  const std::string bare = BareCaption(TabStripElem.Tab(tab).Caption);
  TabStripElem.Tabs.Change([&](ui::TabPages& pages) {
    ui::TabPage& page = pages.at(static_cast<std::size_t>(tab));
    page.Caption = removed ? base::Bracketed(bare) : bare;
    page.Tag = removed ? kRemovedTab : "";
  });
}

// What hangs on the whole configuration: steps, counts, panels.
void FormCfg::ShowState() {
  CmdUndo.Enabled = document_.CanUndo();
  CmdRedo.Enabled = document_.CanRedo();
  panels_.Update();
  ShowTables();
  ShowSigns();
}

void FormCfg::ShowTables() {
  ui::ListRows rows;
  for (int group = 0; group < config::kConfigGroupCount; ++group) {
    const auto which = static_cast<config::ConfigGroup>(group);
    int number = 0;
    for (const config::ConfigTable& table : config::TablesOf(which)) {
      const int count = document_.Model().ElementCount({which, ++number, slave_});
      std::string text(table.Caption);
      if (table.Count == config::Elements::kSeveral) text += " (" + base::PlainNumber(count) + ")";
      rows.push_back({.Text = std::move(text), .ItemData = group});
    }
  }
  LstTables.Rows = std::move(rows);
}

void FormCfg::ShowSigns() {
  LstCfg.Rows.Change([this](ui::ListRows& rows) {
    for (std::size_t row = 0; row < rows.size(); ++row) {
      rows[row].ItemData = ListRowOf(Row(static_cast<int>(row))).ItemData;
    }
  });
}

void FormCfg::GoTo(const ParameterPlace& at) {
  if (at.Element.Table != Table()) {
    ChooseTable(at.Element.Table);
    ShowTable();
  }
  TabStripElem.TabIndex = std::clamp(at.Element.Element, 1, TabStripElem.TabCount()) - 1;
  LstCfg.ListIndex = std::clamp(at.Parameter, 1, LstCfg.ListCount()) - 1;
  LstCfg.SetFocus();
}

void FormCfg::OptCfg_Click(int group) {
  if (busy_) return;
  const auto which = static_cast<config::ConfigGroup>(group);
  ChooseTable({which, TabStripCfg(group).TabIndex + 1, slave_});
  ShowTable();
}

void FormCfg::TabStripCfg_Click(int group) {
  if (!busy_ && group == GroupIndex(group_)) ShowTable();
}

void FormCfg::LstTables_Click() {
  if (busy_ || LstTables.ListIndex < 0) return;
  const config::ConfigTable& table =
      config::kConfigTables.at(static_cast<std::size_t>(LstTables.ListIndex.Get()));
  const auto number = &table - config::TablesOf(table.Group).data() + 1;
  ChooseTable({table.Group, static_cast<int>(number), slave_});
  ShowTable();
}

void FormCfg::LstCfg_Click() {
  const int row = LstCfg.ListIndex;
  const TablePlace table = Table();
  const std::string value = ListRowValue(LstCfg.List(row));
  CmdEdit.Enabled = true;
  LblCurr(kCurrNumber).Caption = base::PlainNumber(row + 1);
  LblCurr(kCurrValue).Caption = value;
  LblCurr(kCurrTitle).Caption =
      work_.Parameters.ParameterTitle(table.Group, table.Table, row + 1, value);
  LblCurr(kCurrRange).Caption =
      work_.Parameters.ParameterRangeText(table.Group, table.Table, row + 1);
  LblUnit.Caption = UnitText(document_.Model(), work_.Parameters, Row(row));
}

void FormCfg::TxtElem_Change() {
  const std::string wanted = base::Trim(TxtElem.Text.Get());
  for (int tab = 0; tab < TabStripElem.TabCount() && !wanted.empty(); ++tab) {
    if (!IsNumber(BareCaption(TabStripElem.Tab(tab).Caption), wanted)) continue;
    TabStripElem.TabIndex = tab;
    return;
  }
}

void FormCfg::StepElement(int by) {
  TabStripElem.TabIndex = std::clamp(TabStripElem.TabIndex + by, 0, TabStripElem.TabCount() - 1);
}

}  // namespace tintbench::editor
