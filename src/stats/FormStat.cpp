#include "stats/FormStat.h"

#include <cmath>

#include "base/DateText.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "stats/Durations.h"

namespace tintbench::stats {

namespace {

constexpr int kReceived = 0;
constexpr int kSaved = 1;

constexpr const char* kTypesCaption = "Satistical Data Types";
constexpr const char* kLastName = "Last Received Data";
constexpr const char* kDeleteTitle = "DELETE STATISTICAL DATA";
constexpr const char* kFilter = "Saved (*.sds)|*.sds";

std::string HintText(int hint) {
  const std::array<std::string, 3> hints{
      "Select a file for viewing or saving one data at a time",
      "Select a file for saving all data (default = " + base::Bracketed(kLastName) + "file )",
      "Select a data file to send to machine"};
  return hints.at(static_cast<std::size_t>(hint));
}

std::string SecondsWords(const std::optional<std::int64_t>& seconds) {
  return seconds ? SecondsToText(*seconds) : std::string();
}

std::string Signed(std::int64_t value) { return (value > 0 ? "+" : "") + base::PlainNumber(value); }

}  // namespace

FormStat::FormStat(const FormStatParts& parts, const StatCatalogue& catalogue)
    : work_(parts),
      catalogue_(catalogue),
      stat_{catalogue, parts.Files, parts.Screen.Time(), parts.Status, *this, *this},
      exchange_(stat_),
      bulk_(stat_),
      elements_(parts.Facts),
      lastFile_(parts.Paths.LastDataFile()) {
  ConnectControls();
}

void FormStat::ConnectControls() {
  TabStripSta.Click = [this] { TabStripSta_Click(); };
  TabStripData.Click = [this] { TabStripData_Click(); };
  CmdRes.Prepare([this](ui::Button& button, int datum) {
    button.Click = [this, datum] { CmdRes_Click(datum); };
  });
  CmdLRec.Click = [this] { CmdLRec_Click(); };
  CmdLSave.Click = [this] { CmdLSave_Click(); };
  CmdDel.Prepare([this](ui::Button& button, int side) {
    button.Click = [this, side] { CmdDel_Click(side); };
  });
  CmdSend.Prepare([this](ui::Button& button, int side) {
    button.Click = [this, side] { CmdSend_Click(side); };
  });
  CmdAll.Prepare([this](ui::Button& button, int action) {
    button.Click = [this, action] { CmdAll_Click(action); };
  });
  CmdRSAll.Prepare([this](ui::Button& button, int which) {
    button.Click = [this, which] { CmdRSAll_Click(which); };
  });
  CmdOverview.Click = [this] { CmdOverview_Click(); };
  CmdSort.Prepare([this](ui::Button& button, int column) {
    button.Click = [this, column] { CmdSort_Click(column); };
  });
  CmdCopy.Click = [this] { CopyWanted.Raise(OverviewText(overview_, '\t')); };
  CmdCsv.Click = [this] { CmdCsv_Click(); };
  CmdBack.Click = [this] { ShowView(kElementView); };
}

void FormStat::Form_Load() {
  // Without the folder nothing can be stored, and each storing says so.
  static_cast<void>(work_.Files.MakeDir(work_.Paths.StatFolder()));
  FrmTabStripStat.Caption = kTypesCaption;
  FrmLastData.Caption = kLastName;
  FrmSavedData.Caption = "< no saved data selected >";
  Debug.FrmDbg.Visible = work_.Log.DebugLevel() == link::kDebugCommands;
  savedFile_.clear();
  buffers_ = {};
  CmdDel(kSaved).Enabled = false;
  CmdSend(kSaved).Enabled = false;
  elements_ = StatElements(work_.Facts);
  ShowWait(false);
  ShowView(kElementView);
  LoadSide(kReceived);
  ui::TabPages pages;
  for (const StatType& type : kTypes) {
    pages.push_back({std::string(type.Caption), std::string(type.Key), std::string(type.Tag)});
  }
  TabStripSta.Clear();
  TabStripSta.Tabs = std::move(pages);
  TabStripSta.TabIndex = 0;
}

// Esc leads back from the overview, and out of the window.
void FormStat::Form_KeyDown(ui::KeyEvent& key) {
  if (key.Code != ui::kKeyEsc || key.Shift != 0) return;
  key.Code = 0;
  if (FrmOverview.Visible) {
    ShowView(kElementView);
  } else {
    work_.Screen.Unload(*this);
  }
}

void FormStat::Form_QueryUnload(bool& cancel) { cancel = FrmRSAll.Enabled; }

void FormStat::Form_Unload(bool&) { buffers_ = {}; }

void FormStat::ShowView(View view) {
  const bool single = view == kElementView;
  for (ui::Control* control :
       {static_cast<ui::Control*>(&FrmTabStripData), static_cast<ui::Control*>(&FrmLastData),
        static_cast<ui::Control*>(&FrmSavedData), static_cast<ui::Control*>(&FrmDifference)}) {
    control->Visible = single;
  }
  for (int side = 0; side < kSides; ++side) LblSpan(side).Visible = single;
  ShowButtons(single);
  FrmRSAll.Visible = view == kBulkView;
  FrmRSAll.Enabled = view == kBulkView;
  TabStripSta.Enabled = view != kBulkView;
  FrmOverview.Visible = view == kOverviewView;
  if (view != kBulkView) FrmTabStripStat.Caption = kTypesCaption;
}

std::optional<std::string> FormStat::Element() const {
  const int index = TabStripData.TabIndex;
  if (index < 0) return std::nullopt;
  return TabStripData.Tab(index).Caption;
}

const std::string& FormStat::SideFile(int side) const {
  return side == kReceived ? lastFile_ : savedFile_;
}

std::string FormStat::SideName(int side) const {
  return side == kReceived ? std::string(kLastName) : base::FileName(savedFile_);
}

void FormStat::LoadSide(int side) {
  DataBuffer& buffer = buffers_.at(static_cast<std::size_t>(side));
  buffer = {};
  const base::FileResult result = LoadDataFile(work_.Files, SideFile(side), buffer);
  if (!result) Tell("", base::JoinLines({SideName(side), result.Error()}), false);
}

void FormStat::LoadBothSides() {
  for (int side = 0; side < kSides; ++side) LoadSide(side);
  ShowElement();
}

void FormStat::TabStripSta_Click() {
  ui::TabPages pages;
  for (const std::string& element :
       base::SplitFields(elements_.List.at(static_cast<std::size_t>(Tab())), ",")) {
    pages.push_back({.Caption = element, .Key = {}, .Tag = {}});
  }
  for (int datum = 0; datum < kData; ++datum) {
    const bool present = catalogue_.HasDatum(Tab(), datum + 1);
    datumPresent_.at(static_cast<std::size_t>(datum)) = present;
    LblLComm(datum).Caption = present ? catalogue_.Label(Tab(), datum + 1) : "";
    CmdRes(datum).Enabled = present;
  }
  TabStripData.Clear();
  TabStripData.Tabs = std::move(pages);
  if (TabStripData.TabCount() > 0) {
    TabStripData.TabIndex = 0;
  } else {
    ShowElement();
  }
  if (FrmOverview.Visible) ShowOverview();
}

void FormStat::TabStripData_Click() { ShowElement(); }

void FormStat::ClearLabels() {
  for (int side = 0; side < kSides; ++side) {
    for (int datum = 0; datum < kData; ++datum) {
      DataLabels(side)(datum).Caption = "";
      DataLabels(side)(datum).ToolTipText = "";
      TimeLabels(side)(datum).Caption = "";
    }
    LblSpan(side).Caption = "";
  }
  for (int datum = 0; datum < kData; ++datum) LblDiff(datum).Caption = "";
  LblDiffSpan.Caption = "";
  LblDays.Caption = "";
  shownEmpty_ = {true, true};
  resetOnScreen_ = {};
}

void FormStat::ShowElement() {
  ClearLabels();
  const std::optional<std::string> element = Element();
  if (!element) return;
  const std::string key = DataKey(Tab(), *element);
  const ElementValues received = ShowSide(kReceived, key);
  const ElementValues saved = ShowSide(kSaved, key);
  ShowDifference(received, saved);
}

ElementValues FormStat::ShowSide(int side, const std::string& key) {
  const std::string* line = buffers_.at(static_cast<std::size_t>(side)).Find(key);
  if (line == nullptr) return {};
  shownEmpty_.at(static_cast<std::size_t>(side)) = false;
  ElementValues values = ReadElementValues(*line, catalogue_, Tab());
  for (int datum = 0; datum < kData; ++datum) {
    const auto& value = values.Data.at(static_cast<std::size_t>(datum));
    if (value) DataLabels(side)(datum).Caption = base::PlainNumber(*value);
  }
  const std::string words = SecondsWords(values.Data[0]);
  DataLabels(side)(0).ToolTipText = words;
  LblSpan(side).Caption = words;
  if (values.Stamp) {
    TimeLabels(side)(0).Caption = base::DateText(*values.Stamp);
    TimeLabels(side)(1).Caption = base::TimeText(*values.Stamp);
  }
  return values;
}

void FormStat::ShowDifference(const ElementValues& received, const ElementValues& saved) {
  for (std::size_t datum = 0; datum < received.Data.size(); ++datum) {
    if (!received.Data[datum] || !saved.Data[datum]) continue;
    LblDiff(static_cast<int>(datum)).Caption = Signed(*received.Data[datum] - *saved.Data[datum]);
  }
  if (received.Data[0] && saved.Data[0]) {
    LblDiffSpan.Caption = SecondsToText(std::abs(*received.Data[0] - *saved.Data[0]));
  }
  if (received.Stamp && saved.Stamp) {
    const double days = base::RoundHalfEven(DaysBetween(*saved.Stamp, *received.Stamp), 1);
    LblDays.Caption = base::PlainNumber(days) + " days";
  }
}

bool FormStat::SelectSavedFile(int hint) {
  const std::optional<std::string> path =
      work_.Screen.Ask(ui::FileRequest{.Title = HintText(hint),
                                       .Filter = kFilter,
                                       .Folder = work_.Paths.StatFolder(),
                                       .Saving = hint != kSendAll});
  if (!path || path->empty()) return false;
  savedFile_ =
      base::FilePath(*path).empty() ? base::JoinPath(work_.Paths.StatFolder(), *path) : *path;
  FrmSavedData.Caption = "FILE " + base::Bracketed(SideName(kSaved));
  CmdDel(kSaved).Enabled = true;
  CmdSend(kSaved).Enabled = true;
  LoadSide(kSaved);
  ShowElement();
  return true;
}

void FormStat::CmdRes_Click(int datum) {
  if (!Element()) return;
  LblLData(datum).Caption = "0";
  LblLData(datum).ToolTipText = "";
  if (datum == 0) LblSpan(kReceived).Caption = LblDiffSpan.Caption = "";
  LblDiff(datum).Caption = "";
  resetOnScreen_.at(static_cast<std::size_t>(datum)) = true;
  shownEmpty_[kReceived] = false;
}

void FormStat::CmdLRec_Click() {
  const std::optional<std::string> element = Element();
  if (!element) return;
  if (exchange_.Receive(Tab(), *element, !shownEmpty_[kReceived], lastFile_)) LoadBothSides();
}

// What the screen shows if it was reset there, otherwise the line as it was received.
std::string FormStat::ValuesToSave() {
  if (!resetOnScreen_[0] && !resetOnScreen_[1]) {
    const std::string* line = buffers_[kReceived].Find(DataKey(Tab(), *Element()));
    return line == nullptr ? std::string() : *line;
  }
  const auto digits = [this](int datum) {
    return base::LastDigits(base::Trim(LblLData(datum).Caption.Get()), kValueDigits);
  };
  return DataValues(digits(0), digits(1), MakeTimeStamp(stat_.Clock.Local())).append(kResetRemark);
}

void FormStat::Update(const char* title, bool deletes, int side, const std::string& value) {
  const DataUpdate update =
      UpdateDataLine(work_.Files, deletes, SideFile(side), DataKey(Tab(), *Element()), value);
  if (!update.Error.empty()) Tell(title, base::JoinLines({kNotOnFile, update.Error}), false);
  LoadBothSides();
}

void FormStat::CmdLSave_Click() {
  if (shownEmpty_[kReceived]) return;
  // Choosing a file shows the element anew, and forgets what was reset.
  const std::string value = ValuesToSave();
  if (savedFile_.empty() && !SelectSavedFile(kSelectFile)) return;
  const std::string title = "SAVE STATISTICAL DATA ON FILE " + SideName(kSaved);
  const std::string question =
      shownEmpty_[kSaved] ? "CONTINUE ?"
                          : WarningText({"Current data on buffer " + SideName(kReceived),
                                         "Will overwrite data on file " + SideName(kSaved)});
  if (Confirm(title, question)) Update(title.c_str(), false, kSaved, value);
}

void FormStat::CmdDel_Click(int side) {
  if (shownEmpty_.at(static_cast<std::size_t>(side))) return;
  const std::string question =
      WarningText({"Current data will be deleted from " + base::Bracketed(SideName(side)) +
                   (side == kReceived ? " buffer !!" : " file !!!")});
  if (Confirm(kDeleteTitle, question)) Update(kDeleteTitle, true, side, "");
}

void FormStat::CmdSend_Click(int side) {
  if (shownEmpty_.at(static_cast<std::size_t>(side))) return;
  StatExchange::Values values;
  for (int datum = 0; datum < kData; ++datum) {
    const auto at = static_cast<std::size_t>(datum);
    if (datumPresent_.at(at)) values.at(at) = base::Trim(DataLabels(side)(datum).Caption.Get());
  }
  exchange_.Send(Tab(), *Element(), values);
}

void FormStat::CmdOverview_Click() {
  ShowView(kOverviewView);
  ShowOverview();
}

void FormStat::ShowOverview() {
  overview_ = BuildOverview(catalogue_, Tab(), elements_.List.at(static_cast<std::size_t>(Tab())),
                            buffers_);
  const int columns = static_cast<int>(overview_.Columns.size());
  if (sortColumn_ >= columns) sortColumn_ = 0;
  SortOverview(overview_, sortColumn_, sortDescending_);
  for (int column = 0; column < kMostColumns; ++column) {
    CmdSort(column).Visible = column < columns;
    if (column >= columns) continue;
    CmdSort(column).Caption = overview_.Columns[static_cast<std::size_t>(column)];
    CmdSort(column).Tag = column != sortColumn_ ? "" : sortDescending_ ? "down" : "up";
  }
  ui::ListRows rows;
  for (const OverviewRow& row : overview_.Rows) {
    std::vector<std::string> cells;
    for (const OverviewCell& cell : row.Cells) cells.push_back(cell.Text);
    rows.push_back({.Text = base::Join(cells, "\t")});
  }
  LstOverview.ListIndex = -1;
  LstOverview.Rows = std::move(rows);
  LblOverview.Caption = overview_.Dates;
}

// Numbers are wanted from the largest down at first, elements from the first on.
void FormStat::CmdSort_Click(int column) {
  sortDescending_ = column == sortColumn_ ? !sortDescending_ : column > 0;
  sortColumn_ = column;
  ShowOverview();
}

void FormStat::CmdCsv_Click() {
  const std::optional<std::string> path =
      work_.Screen.Ask(ui::FileRequest{.Title = "Save the table",
                                       .Filter = "Comma-separated values (*.csv)|*.csv",
                                       .Folder = work_.Paths.StatFolder(),
                                       .Saving = true});
  if (!path || path->empty()) return;
  const base::FileResult result =
      base::ReplaceFile(work_.Files, *path, OverviewText(overview_, ','));
  if (!result) Tell("Save the table", base::JoinLines({kNotOnFile, result.Error()}), false);
}

}  // namespace tintbench::stats
