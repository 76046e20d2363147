#include "groups/EnquiryCycle.h"

#include <algorithm>
#include <string_view>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::groups {

namespace {

constexpr double kMillisecondsPerSecond = 1000.0;
constexpr double kLongestDelay = 3600.0;  // seconds
constexpr double kNeedleStart = 225.0;    // degrees
constexpr double kNeedleSpan = 270.0;
constexpr std::string_view kCannotEnquire = "Cannot enquire the machine!";

DigitalInput& RowOf(std::array<DigitalInput, kDigitalRows>& rows, int row) {
  return rows.at(static_cast<std::size_t>(row));
}

AnalogueInput& RowOf(std::array<AnalogueInput, kAnalogueRows>& rows, int row) {
  return rows.at(static_cast<std::size_t>(row));
}

}  // namespace

void EnquiryCycle::Reset() {
  underWay_ = running_ = false;
  window_.ChkEnquire.Value = ui::kUnchecked;
  window_.ChkEnquire.Enabled = true;
  window_.ChkStopEnquire.Value = ui::kChecked;
  window_.ChkStopEnquire.Enabled = false;
}

void EnquiryCycle::Start() {
  underWay_ = true;
  work_.Record.WriteRecordLine(work_.TimeOfDay() + work_.Record.Symbol(Mark::EnquiryTime) + " = " +
                               base::Trim(window_.TxtEnqTime.Text.Get()));
  work_.Record.WriteRecordLine(work_.TimeOfDay() + work_.Record.Symbol(Mark::EnquiryOn));
  ClearInputStatus();
  window_.TxtEnqTime.SetFocus();
  window_.ChkStopEnquire.Value = ui::kUnchecked;
  Lock(true);
  work_.Parts.Screen.DoEvents();
  if (!EnquiryLoop()) window_.ChkStopEnquire.Value = ui::kChecked;
  window_.ChkEnquire.Value = ui::kUnchecked;
  Lock(false);
  window_.TxtEnqTime.SetFocus();
  underWay_ = false;
}

void EnquiryCycle::Lock(bool locked) {
  window_.TxtEnqTime.BackColor = locked ? ui::kButtonFaceColour : ui::kWindowColour;
  window_.TxtEnqTime.Locked = locked;
  window_.ChkEnquire.Enabled = !locked;
}

void EnquiryCycle::Stop() { window_.ChkStopEnquire.Value = ui::kChecked; }

void EnquiryCycle::ChkStopEnquire_Click() {
  if (!work_.Activated) return;
  running_ = false;
  const bool stopped = window_.ChkStopEnquire.Value == ui::kChecked;
  if (stopped) {
    work_.Record.WriteRecordLine(work_.TimeOfDay() + work_.Record.Symbol(Mark::EnquiryOff));
  }
  window_.ChkStopEnquire.Enabled = !stopped;
}

void EnquiryCycle::ClearInputStatus() {
  const auto clear = [](ui::Label& label) {
    label.Caption = "";
    label.BackColor = kOffColour;
  };
  for (int row = 0; row < kDigitalRows; ++row) clear(window_.LblIdiStatus(row));
  for (int row = 0; row < kAnalogueRows; ++row) clear(window_.LblIanStatus(row));
}

bool EnquiryCycle::Refuse(std::string_view reason, std::string_view outcome) {
  work_.Parts.Screen.Ask({.Text = base::JoinLines({reason, outcome})});
  return false;
}

bool EnquiryCycle::HasInputInUse() {
  for (int row = 0; row < kDigitalRows; ++row) {
    const bool in = window_.ChkIdiOff(row).Value == ui::kUnchecked;
    if (in && RowOf(group_.Digital, row).Enabled) return true;
  }
  for (int row = 0; row < kAnalogueRows; ++row) {
    const bool in = window_.ChkIanOff(row).Value == ui::kUnchecked;
    if (in && RowOf(group_.Analogue, row).Enabled) return true;
  }
  return false;
}

bool EnquiryCycle::ValidateEnquiry() {
  delay_ = base::LeadingNumber(window_.TxtEnqTime.Text.Get()) / kMillisecondsPerSecond;
  if (delay_ <= 0 || delay_ > kLongestDelay) {
    return Refuse("Delay time between each command MUST be",
                  "in range 1..3600000 millisecnds ( =60 minutes )!");
  }
  bool any = false;
  for (int frame = 0; frame < kInputFrames; ++frame) {
    any = any || window_.FrmInputs(frame).Enabled;
  }
  if (!any) return Refuse("No group of input sensor is allowed!", kCannotEnquire);
  if (!HasInputInUse()) return Refuse("No input sensor is enabled!", kCannotEnquire);
  return true;
}

// A stop that was pressed before the first enquiry holds.
bool EnquiryCycle::EnquiryLoop() {
  if (window_.ChkStopEnquire.Value == ui::kChecked) return true;
  if (!ValidateEnquiry()) return false;
  running_ = true;
  while (running_) {
    paused_ = false;
    EnquireDigitalInputs();
    if (running_) work_.Record.CheckFileSize(false);
    EnquireAnalogueInputs();
    if (!running_) break;
    work_.Record.CheckFileSize(false);
    group_.BlinkIndex = 1 - group_.BlinkIndex;
    // The operator may have taken all inputs out.
    if (!paused_) Pause();
  }
  work_.Record.CheckFileSize(false);
  return true;
}

void EnquiryCycle::EnquireDigitalInputs() {
  for (int row = 0; running_ && row <= group_.LastDigital; ++row) {
    const bool in = window_.ChkIdiOff(row).Value == ui::kUnchecked;
    if (in && RowOf(group_.Digital, row).Enabled) EnquireDigital(row);
    work_.Parts.Screen.DoEvents();
  }
}

void EnquiryCycle::EnquireAnalogueInputs() {
  for (int row = 0; running_ && row < kAnalogueRows; ++row) {
    const bool in = window_.ChkIanOff(row).Value == ui::kUnchecked;
    if (in && RowOf(group_.Analogue, row).Enabled) EnquireAnalogue(row);
    work_.Parts.Screen.DoEvents();
  }
}

void EnquiryCycle::EnquireDigital(int row) {
  const DigitalInput& input = RowOf(group_.Digital, row);
  const Enquired enquired = Ask(input.Enquiry);
  const SensorAnswer answer = CheckSensorAnswer(config::kDigitalInput, enquired.Answer);
  work_.ShowFaults(FaultLine(answer.Faults, input.Description));
  ShowDigitalStatus(row, answer);
  Record(config::kDigitalInput, row, enquired, input.Enquiry,
         window_.LblIdiStatus(row).Caption.Get());
  Pause();
}

void EnquiryCycle::EnquireAnalogue(int row) {
  const AnalogueInput& input = RowOf(group_.Analogue, row);
  const Enquired enquired = Ask(input.Enquiry);
  const SensorAnswer answer = CheckSensorAnswer(config::kAnalogueInput, enquired.Answer);
  work_.ShowFaults(FaultLine(answer.Faults, input.Description));
  ShowAnalogueReading(row, answer);
  work_.Instruments.PlotTrend(row, input.Current);
  work_.Readings.AddReading(row, input.Current);
  work_.Parts.Screen.DoEvents();
  Record(config::kAnalogueInput, row, enquired, input.Enquiry, window_.LblCurr(row).Caption.Get());
  Pause();
}

EnquiryCycle::Enquired EnquiryCycle::Ask(const std::string& enquiry) {
  link::CommandCall call(work_.Parts.Table, link::CommandId::ReadGroupInput, "");
  call.Row().Command = enquiry;
  std::string time = work_.TimeOfDay();
  return {std::move(time), work_.Send(link::CommandId::ReadGroupInput)};
}

void EnquiryCycle::ShowDigitalStatus(int row, const SensorAnswer& answer) {
  ui::Label& status = window_.LblIdiStatus(row);
  status.BackColor = kBlinkColours.at(static_cast<std::size_t>(group_.BlinkIndex));
  status.Caption = DigitalStatusText(answer);
  status.Refresh();
}

void EnquiryCycle::ShowAnalogueReading(int row, const SensorAnswer& answer) {
  AnalogueInput& input = RowOf(group_.Analogue, row);
  ui::Label& shown = window_.LblCurr(row);
  const std::optional<double> reading = AnalogueReading(answer);
  input.Current = reading.value_or(kNoReading);
  if (answer.Status == kConnected) {
    shown.Caption = reading ? base::BlankNumber(*reading) : "";
    shown.Refresh();
  }
  const bool inRange = reading && input.Start.Value <= *reading && *reading <= input.End.Value;
  if (inRange) MoveInstrument(row);
  ui::Label& status = window_.LblIanStatus(row);
  status.BackColor = kBlinkColours.at(static_cast<std::size_t>(group_.BlinkIndex));
  status.Caption = AnalogueStatusText(answer, inRange);
  status.Refresh();
}

// The needle's angle takes no notice of where the scale starts.
void EnquiryCycle::MoveInstrument(int row) {
  const AnalogueInput& input = RowOf(group_.Analogue, row);
  if (row < kDials) {
    const double span = input.End.Value - input.Start.Value;
    work_.Instruments.DrawNeedle(row, kNeedleStart - kNeedleSpan * input.Current / span);
  } else {
    work_.Instruments.DrawBar(row - kDials, input.Current);
  }
}

void EnquiryCycle::Record(config::InputKind kind, int row, const Enquired& enquired,
                          const std::string& enquiry, const std::string& shown) {
  std::string exchange = work_.Exchange(enquiry, enquired.Answer);
  if (!exchange.empty()) exchange += " ";
  work_.Record.WriteRecordLine(enquired.Time +
                               work_.Record.InputSymbol(kind, row, InputMark::Enquired) + exchange +
                               ": sensor_value[ " + base::Trim(shown) + " ]");
}

// The operator is served meanwhile, and so is the watch over the valve: a pause may take an hour.
void EnquiryCycle::Pause() {
  paused_ = true;
  ui::Screen& screen = work_.Parts.Screen;
  const double end = screen.Time().Now() + delay_;
  while (running_ && !screen.IsQuitting() && screen.Time().Now() < end) {
    screen.Idle(end - screen.Time().Now());
  }
  if (screen.IsQuitting()) running_ = false;
}

}  // namespace tintbench::groups
