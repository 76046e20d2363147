#include "groups/Recording.h"

#include <utility>

#include "base/DateText.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"

namespace tintbench::groups {

namespace {

constexpr double kUsualLimitKb = 1000;
constexpr double kBytesPerKb = 1024;
constexpr const char* kForcedEnd = "[ FORCED BY EXITING FROM GROUP MONITORING ]";

// "20261115.G07".
std::string RecordingName(const base::LocalTime& day, const std::string& group) {
  return base::LastDigits(day.Year, 4) + base::LastDigits(day.Month, 2) +
         base::LastDigits(day.Day, 2) + ".G" + group;
}

}  // namespace

Recording::Recording(ui::Screen& screen, base::FileSystem& files, std::string folder,
                     GroupWindow& window, const Group& group)
    : screen_(screen),
      files_(files),
      folder_(std::move(folder)),
      window_(window),
      group_(group),
      file_(files),
      limitKb_(kUsualLimitKb) {}

std::string Recording::TimeOfDay() const { return base::TimeText(screen_.Time().Local()); }

// A folder that can't be made is told of when a recording is wanted.
void Recording::Load() {
  static_cast<void>(files_.MakeDir(folder_));
  path_ = base::JoinPath(folder_, RecordingName(screen_.Time().Local(), group_.Text));
  file_.Close();
  headerPending_ = true;
  if (limitKb_ <= 0) limitKb_ = kUsualLimitKb;
  window_.ChkMemo.Value = ui::kUnchecked;
  window_.ChkMemo.Enabled = true;
  window_.ChkMemo.ToolTipText = path_;
  window_.LblRecord.Caption = "";
  ShowLimit();
  CheckFileSize(true);
}

void Recording::BuildSymbols() {
  names_ = {.Cap = base::Trim(window_.LblCap.Caption.Get()),
            .Valve = base::Trim(window_.LblValve.Caption.Get()),
            .Stirring = base::Trim(window_.LblStirring.Caption.Get()),
            .Motor = base::Trim(window_.LblMotor.Caption.Get())};
}

std::string Recording::InputSymbol(config::InputKind kind, int index, InputMark mark) const {
  const auto row = static_cast<std::size_t>(index);
  const bool enabled = kind == config::kDigitalInput ? group_.Digital.at(row).Enabled
                                                     : group_.Analogue.at(row).Enabled;
  return enabled ? InputRecordSymbol(kind, index + 1, mark) : std::string();
}

void Recording::ChkMemo_Click() {
  if (window_.ChkMemo.Value == ui::kChecked) {
    if (OpenRecordFile()) {
      WriteHeader();
      WriteLines(StartLines(TimeOfDay()));
    }
  } else {
    WriteLines(EndLines(TimeOfDay()));
    file_.Close();
  }
  window_.TxtEnqTime.SetFocus();
}

bool Recording::OpenRecordFile() {
  if (file_.IsOpen()) return true;
  window_.LblRecord.Caption = "";
  const base::FileResult opened = file_.Open(path_);
  if (!opened) {
    window_.ChkMemo.Value = ui::kUnchecked;
    screen_.Ask({.Text = base::JoinLines({"Cannot record: " + opened.Error(), path_}),
                 .Icon = ui::BoxIcon::Exclamation});
  }
  return file_.IsOpen();
}

void Recording::WriteHeader() {
  if (!headerPending_ || !file_.IsOpen()) return;
  WriteLines(HeaderLines(Described()));
  headerPending_ = !file_.IsOpen();
}

void Recording::WriteLines(const RecordLines& lines) {
  for (const std::string& line : lines) WriteRecordLine(line);
}

void Recording::WriteRecordLine(const std::string& text) {
  if (!file_.IsOpen()) return;
  const base::FileResult written = file_.WriteLine(text);
  if (!written) GiveUp(written.Error());
}

// A box would hold the enquiry until somebody comes; this stays to be read.
void Recording::GiveUp(const std::string& reason) {
  window_.LblRecord.Caption = TimeOfDay() + " RECORDING ENDED: " + reason;
  window_.LblRecord.ToolTipText = path_;
  window_.ChkMemo.Value = ui::kUnchecked;
}

void Recording::ShowLimit() {
  window_.LblKb.ToolTipText = "MAX. FILE SIZE =" + base::BlankNumber(limitKb_) + " kb";
}

void Recording::SetLimitKb(double limit) {
  limitKb_ = limit;
  ShowLimit();
  CheckFileSize(true);
}

void Recording::CheckFileSize(bool force) {
  if (!force && !file_.IsOpen()) return;
  const auto bytes = static_cast<double>(files_.Length(path_).value_or(0));
  const double kb = base::RoundHalfEven(bytes / kBytesPerKb, 1);
  const std::string size = base::BlankNumber(kb);
  window_.LblKb.Caption = size;
  if (kb >= limitKb_) {
    EndAtLimit(size);
  } else if (!window_.ChkMemo.Enabled) {
    window_.ChkMemo.Enabled = true;
    window_.StatusBar1.Text =
        TimeOfDay() + ". FILE SIZE MAX. LIMIT[" + base::BlankNumber(limitKb_) + " kb ] INCREASED";
  }
}

void Recording::EndAtLimit(const std::string& size) {
  std::string text = TimeOfDay() + ". FILE SIZE[" + size + " kb ]  EXCEEDS MAX. LIMIT[" +
                     base::BlankNumber(limitKb_) + " kb ]";
  if (file_.IsOpen()) text += ". FORCED END RECORDING!";
  WriteRecordLine(text);
  window_.StatusBar1.Text = text;
  window_.ChkMemo.Value = ui::kUnchecked;
  window_.ChkMemo.Enabled = false;
}

void Recording::Unload() {
  if (file_.IsOpen()) WriteLines(EndLines(TimeOfDay(), kForcedEnd));
  file_.Close();
}

RecordedGroup Recording::Described() const {
  RecordedGroup told{.Address = group_.Text, .Names = names_, .Digital = {}, .Analogue = {}};
  for (int row = 0; row < kDigitalRows; ++row) {
    if (!group_.Digital.at(static_cast<std::size_t>(row)).Enabled) continue;
    const ui::Label& name = window_.LblIdiDescr(row);
    told.Digital.push_back({row + 1, base::Trim(name.Caption.Get()),
                            base::Trim(window_.LblCnIdi(row).Caption.Get()), name.ToolTipText});
  }
  for (int row = 0; row < kAnalogueRows; ++row) {
    if (!group_.Analogue.at(static_cast<std::size_t>(row)).Enabled) continue;
    const ui::Frame& frame = window_.FrmInputs(row + 1);
    told.Analogue.push_back({row + 1, base::Trim(frame.Caption.Get()),
                             base::Trim(window_.LblCnIan(row).Caption.Get()), frame.ToolTipText});
  }
  return told;
}

}  // namespace tintbench::groups
