#include "editor/CfgPanels.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "editor/ParameterRows.h"
#include "editor/PlaceText.h"

namespace tintbench::editor {

namespace {

// A list of more rows than this is read by nobody.
constexpr std::size_t kMostRows = 1000;

constexpr const char* kCompareFilter =
    "Received (*.cfr)|*.cfr|Modified (*.cfm)|*.cfm|Original (*.cfg)|*.cfg";

// A tab parts the cells, and can't stand in one.
std::string PanelRow(std::vector<std::string> cells) {
  for (std::string& cell : cells) std::replace(cell.begin(), cell.end(), '\t', ' ');
  return base::Join(cells, "\t");
}

// The rows of the first items.
template <typename Items, typename RowOf>
ui::ListRows PanelRows(const Items& items, RowOf rowOf) {
  ui::ListRows rows;
  const std::size_t count = std::min(items.size(), kMostRows);
  for (std::size_t i = 0; i < count; ++i) rows.push_back({.Text = rowOf(items[i])});
  return rows;
}

std::string CountText(std::size_t count, const char* one, const char* several) {
  const std::string text = base::PlainNumber(count) + " " + (count == 1 ? one : several);
  return count > kMostRows ? text + ", the first " + base::PlainNumber(kMostRows) : text;
}

// Puts new rows into a list, with the same one selected as far as there is one.
void SetRows(ui::ListBox& list, ui::ListRows rows) {
  const int row = std::min(list.ListIndex.Get(), static_cast<int>(rows.size()) - 1);
  list.ListIndex = -1;
  list.Rows = std::move(rows);
  list.ListIndex = row;
}

// The item of the list's selected row, or of its first one; null if it has none.
template <typename Item>
const Item* SelectedOf(const ui::ListBox& list, const std::vector<Item>& items) {
  const auto row = static_cast<std::size_t>(std::max(list.ListIndex.Get(), 0));
  return row < items.size() ? &items[row] : nullptr;
}

}  // namespace

CfgPanels::CfgPanels(CfgWindow& window, ConfigDocument& document, const FormCfgParts& parts,
                     CfgOwner& owner)
    : window_(window), document_(document), work_(parts), owner_(owner) {
  window_.CmdFind.Click = [this] { Toggle(window_.FrmFind, &CfgPanels::OpenFind); };
  window_.CmdChanges.Click = [this] { Toggle(window_.FrmChanges, &CfgPanels::OpenChanges); };
  window_.CmdCompare.Click = [this] { Toggle(window_.FrmCompare, &CfgPanels::OpenCompare); };
  window_.TxtFind.Change = [this] { ShowFindings(); };
  window_.TxtFind.KeyDown = [this](ui::KeyEvent& key) { TxtFind_KeyDown(key); };
  window_.CmdTakeBack.Click = [this] { CmdTakeBack_Click(); };
  window_.CmdCompareFile.Click = [this] { CmdCompareFile_Click(); };
  window_.CmdTakeOver.Click = [this] { CmdTakeOver_Click(); };
  ConnectList(window_.LstFind, &CfgPanels::GoToFinding);
  ConnectList(window_.LstChanges, &CfgPanels::GoToChange);
  ConnectList(window_.LstCompare, &CfgPanels::GoToDifference);
}

void CfgPanels::ConnectList(ui::ListBox& list, void (CfgPanels::*go)()) {
  list.DblClick = [this, go] { (this->*go)(); };
  list.KeyDown = [this, go](ui::KeyEvent& key) {
    if (key.Code != ui::kKeyEnter || key.Shift != 0) return;
    key.Code = 0;
    (this->*go)();
  };
}

void CfgPanels::Reset() {
  Close();
  otherFile_.clear();
  window_.TxtFind.Text = "";
  for (ui::ListBox* list : {&window_.LstFind, &window_.LstChanges, &window_.LstCompare}) {
    list->Clear();
  }
  Update();
}

void CfgPanels::Toggle(ui::Frame& panel, void (CfgPanels::*open)()) {
  if (panel.Visible) {
    Close();
  } else {
    (this->*open)();
  }
}

void CfgPanels::Open(ui::Frame& panel, ui::Control& first) {
  for (ui::Frame* other : {&window_.FrmFind, &window_.FrmChanges, &window_.FrmCompare}) {
    other->Visible = other == &panel;
  }
  Update();
  first.SetFocus();
}

void CfgPanels::OpenFind() { Open(window_.FrmFind, window_.TxtFind); }

void CfgPanels::OpenChanges() { Open(window_.FrmChanges, window_.LstChanges); }

void CfgPanels::OpenCompare() {
  Open(window_.FrmCompare,
       otherFile_.empty() ? static_cast<ui::Control&>(window_.CmdCompareFile) : window_.LstCompare);
}

bool CfgPanels::Close() {
  bool wasOpen = false;
  for (ui::Frame* panel : {&window_.FrmFind, &window_.FrmChanges, &window_.FrmCompare}) {
    wasOpen = wasOpen || panel->Visible;
    panel->Visible = false;
  }
  return wasOpen;
}

void CfgPanels::Update() {
  ShowChanges();
  ShowDifferences();
  if (window_.FrmFind.Visible) ShowFindings();
}

void CfgPanels::ShowFindings() {
  const Findings found = document_.Find(window_.TxtFind.Text.Get(), owner_.Slave(), kMostRows);
  findings_ = found.Places;
  SetRows(window_.LstFind, PanelRows(findings_, [this](const Finding& finding) {
            const ElementPlace& at = finding.At.Element;
            const bool value = finding.In == FoundIn::kValue;
            const std::string where = value ? ElementText(document_.Model(), at)
                                            : std::string(TableAt(at.Table)->Caption);
            const std::string what =
                value ? ParameterText(work_.Parameters, finding.At)
                      : (finding.In == FoundIn::kTable ? "table" : "description");
            return PanelRow({where, what, finding.Text});
          }));
  window_.LblFind.Caption = window_.TxtFind.Text->empty() ? ""
                            : found.Cut ? "more than " + base::PlainNumber(kMostRows) + " places"
                                        : CountText(findings_.size(), "place", "places");
}

void CfgPanels::ShowChanges() {
  changes_ = document_.Changes();
  window_.LblUnsaved.Caption =
      changes_.empty() ? "" : CountText(changes_.size(), "change", "changes") + " not saved";
  window_.CmdTakeBack.Enabled = !changes_.empty();
  SetRows(window_.LstChanges,
          PanelRows(changes_, [this](const Change& change) { return ChangeRow(change); }));
}

std::string CfgPanels::ChangeRow(const Change& change) const {
  const auto what = [&]() -> std::string {
    switch (change.Kind) {
      case ChangeKind::kAdded:
        return "added";
      case ChangeKind::kRemoved:
        return "removed";
      case ChangeKind::kLine:
        return "all parameters";
      case ChangeKind::kValue:
        break;
    }
    return ParameterText(work_.Parameters, change.At);
  };
  return PanelRow(
      {ElementText(document_.Model(), change.At.Element), what(), change.Old, change.New});
}

void CfgPanels::ShowDifferences() {
  differences_ = document_.Differences();
  differing_.clear();
  for (const Difference& difference : differences_) {
    if (difference.Kind == DifferenceKind::kValue) differing_.insert(difference.At);
  }
  window_.CmdTakeOver.Enabled = !differences_.empty();
  window_.LblCompare.Caption =
      otherFile_.empty()
          ? ""
          : otherFile_ + ": " + CountText(differences_.size(), "difference", "differences");
  SetRows(window_.LstCompare, PanelRows(differences_, [this](const Difference& difference) {
            return DifferenceRow(difference);
          }));
}

std::string CfgPanels::DifferenceRow(const Difference& difference) const {
  const bool there = difference.Kind == DifferenceKind::kOnlyThere;
  const std::string what = there ? "only in the other file"
                           : difference.Kind == DifferenceKind::kOnlyHere
                               ? "only in this file"
                               : ParameterText(work_.Parameters, difference.At);
  return PanelRow(
      {ElementText(there ? document_.Other() : document_.Model(), difference.At.Element), what,
       difference.Here, difference.There});
}

void CfgPanels::GoToFinding() {
  if (const Finding* finding = SelectedOf(window_.LstFind, findings_)) owner_.GoTo(finding->At);
}

void CfgPanels::GoToChange() {
  if (const Change* change = SelectedOf(window_.LstChanges, changes_)) owner_.GoTo(change->At);
}

// An element that only the other file has has no place here but its table.
void CfgPanels::GoToDifference() {
  const Difference* difference = SelectedOf(window_.LstCompare, differences_);
  if (difference == nullptr) return;
  const bool there = difference->Kind == DifferenceKind::kOnlyThere;
  owner_.GoTo(there ? ParameterPlace{{difference->At.Element.Table, 1}, 1} : difference->At);
}

void CfgPanels::TxtFind_KeyDown(ui::KeyEvent& key) {
  if (key.Shift != 0) return;
  if (key.Code == ui::kKeyEnter) {
    GoToFinding();
  } else if (key.Code == ui::kKeyDown && window_.LstFind.ListCount() > 0) {
    window_.LstFind.SetFocus();
    if (window_.LstFind.ListIndex < 0) window_.LstFind.ListIndex = 0;
  } else {
    return;
  }
  key.Code = 0;
}

void CfgPanels::CmdTakeBack_Click() {
  const Change* change = SelectedOf(window_.LstChanges, changes_);
  if (change == nullptr) return;
  const ParameterPlace at = change->At;
  if (document_.TakeBack(*change)) owner_.ShowStep(at);
}

void CfgPanels::CmdCompareFile_Click() {
  const std::optional<std::string> answer =
      work_.Screen.Ask(ui::FileRequest{.Title = "Select a file to compare with",
                                       .Filter = kCompareFilter,
                                       .Folder = work_.Paths.ConfigFolder()});
  if (!answer || answer->empty()) return;
  const std::string path = base::FilePath(*answer).empty()
                               ? base::JoinPath(work_.Paths.ConfigFolder(), *answer)
                               : *answer;
  const base::FileResult result = document_.CompareWith(path);
  if (!result) {
    work_.Screen.Ask({.Text = base::JoinLines({"The file can't be read.", path, result.Error()}),
                      .Icon = ui::BoxIcon::Exclamation,
                      .Title = window_.CmdCompare.Caption});
    return;
  }
  otherFile_ = base::FileName(path);
  OpenCompare();
  owner_.ShowSigns();
}

void CfgPanels::CmdTakeOver_Click() {
  const Difference* difference = SelectedOf(window_.LstCompare, differences_);
  if (difference == nullptr) return;
  const ParameterPlace at = difference->At;
  const std::optional<SaveVerdict> verdict = document_.TakeOver(*difference);
  if (!verdict) {
    window_.LblNotice.Caption = "Only a single value can be taken over, not a whole element.";
  } else if (*verdict != SaveVerdict::kStored) {
    work_.Screen.Ask(
        {.Text = std::string(RefusalText(*verdict)), .Icon = ui::BoxIcon::Exclamation});
  } else {
    owner_.ShowStep(at);
  }
}

}  // namespace tintbench::editor
