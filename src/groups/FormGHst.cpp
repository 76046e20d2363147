#include "groups/FormGHst.h"

#include <cstdio>
#include <initializer_list>
#include <utility>

#include "base/LongDate.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"

namespace tintbench::groups {

namespace {

// Many times what a recording usually may have. A file beyond it would hold up the window.
constexpr std::size_t kShownKb = 16384;
constexpr std::size_t kKb = 1024;

}  // namespace

FormGHst::FormGHst(ui::Screen& screen, base::FileSystem& files, std::string folder)
    : ui::Form("FormGHst"),
      screen_(screen),
      files_(files),
      folder_(std::move(folder)),
      list_(files, folder_, base::SystemLanguage()) {
  OptSort(0).Caption = "Sorted by Group";
  OptSort(1).Caption = "Sorted by Date";
  CmdView.Caption = "VIEW";
  CmdView.Default = true;
  OptSort.Prepare([this](ui::OptionButton& option, int index) {
    option.Click = [this, index] { OptSort_Click(static_cast<HistoryOrder>(index)); };
  });
  CmbFile.Click = [this] { CmbFile_Click(); };
  CmdView.Click = [this] { CmdView_Click(); };
}

// A folder that can't be made or read is one without recordings.
void FormGHst::Form_Load() {
  shownIndex_ = {};
  selected_.reset();
  CmbFile.Clear();
  OptSort(0).Value = false;
  OptSort(1).Value = false;
  Blank();
  static_cast<void>(files_.MakeDir(folder_));
  FindFiles();
  const bool found = !list_.Files().empty();
  Enable(found);
  FrmChoice.Caption = found ? "Select File to View" : "";
  Caption = found ? title_ : "NO FILE TO SELECT";
  if (!found) return;
  OptSort(0).Value = true;
  CmbFile.SetFocus();
}

void FormGHst::Enable(bool enabled) {
  for (ui::Control* control : std::initializer_list<ui::Control*>{
           &OptSort(0), &OptSort(1), &CmbFile, &CmdView, &FrmFile, &FrmChoice}) {
    control->Enabled = enabled;
  }
}

void FormGHst::FindFiles() {
  for (const std::string& name : list_.FindFiles()) {
    std::fprintf(stderr, "tintbench: passed over %s, for there is no such date\n", name.c_str());
  }
}

void FormGHst::Form_KeyDown(ui::KeyEvent& key) {
  if (key.Code != ui::kKeyEsc || key.Shift != 0) return;
  key.Code = 0;
  screen_.Unload(*this);
}

void FormGHst::Form_Unload(bool& /*cancel*/) {
  RchTB1.Text = "";
  list_.Clear();
}

void FormGHst::FillFileList(HistoryOrder order) {
  CmbFile.Clear();
  ui::ListRows rows;
  for (const std::size_t index : list_.Order(order)) {
    rows.push_back({.Text = HistoryList::Line(list_.Files()[index], order)});
  }
  CmbFile.Rows = std::move(rows);
  CmbFile.Refresh();
}

void FormGHst::OptSort_Click(HistoryOrder order) {
  FillFileList(order);
  CmbFile.ListIndex = 0;
}

HistoryOrder FormGHst::Sorting() const {
  return OptSort(0).Value ? HistoryOrder::kByGroup : HistoryOrder::kByDate;
}

// Each order knows the file that was chosen in it last: chosen again, it leaves the text alone. Any
// other blanks it, and is shown only when it is wanted.
void FormGHst::CmbFile_Click() {
  const HistoryOrder order = Sorting();
  const auto row = static_cast<std::size_t>(CmbFile.ListIndex.Get());
  if (row >= list_.Order(order).size()) return;
  selected_ = list_.Order(order)[row];
  std::optional<std::size_t>& shown = shownIndex_.at(static_cast<std::size_t>(order));
  if (selected_ == shown) return;
  Blank();
  shown = selected_;
}

void FormGHst::Blank() {
  FrmFile.Caption = "";
  FrmFile.Refresh();
  RchTB1.Text = "";
}

void FormGHst::CmdView_Click() {
  if (!selected_) return;
  const HistoryFile& file = list_.Files().at(*selected_);
  FrmFile.Caption = "History File[ " + base::JoinPath(folder_, file.Name()) + " ]";
  FrmFile.Refresh();
  RchTB1.Text = Content(file);
}

std::string FormGHst::Content(const HistoryFile& file) {
  const std::optional<std::string> content = base::ReadFile(files_, file.Path, kShownKb * kKb);
  if (content) return *content;
  const bool tooLarge = files_.Length(file.Path).value_or(0) > kShownKb * kKb;
  screen_.Ask({.Text = base::JoinLines({tooLarge ? "Cannot show a file of more than " +
                                                       base::PlainNumber(kShownKb) +
                                                       " kb. Open it with an editor."
                                                 : std::string("Cannot read the file."),
                                        file.Path}),
               .Icon = ui::BoxIcon::Exclamation});
  return {};
}

}  // namespace tintbench::groups
