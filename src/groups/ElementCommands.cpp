#include "groups/ElementCommands.h"

#include <array>
#include <string_view>
#include <vector>

#include "base/Numbers.h"
#include "base/Text.h"
#include "groups/ElementAnswer.h"

namespace tintbench::groups {

using link::CommandId;

namespace {

constexpr int kWatchInterval = 3000;  // milliseconds
constexpr int kSlowestMotor = 1;
constexpr int kFastestMotor = 999;
constexpr int kSpeedDigits = 3;
constexpr const char* kCheckCondition =
    "Check condition for dispensing ( cap open, can present ) !";

bool IsChecked(const ui::CheckBox& box) { return box.Value == ui::kChecked; }

void TurnOver(ui::CheckBox& box) { box.Value = IsChecked(box) ? ui::kUnchecked : ui::kChecked; }

bool IsWhole(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace

void ElementCommands::Reset() {
  underWay_ = frozen_ = 0;
  watching_ = leaving_ = settingDigital_ = settingAnalogue_ = false;
  StopWatch();
}

ElementCommands::Side ElementCommands::SideOf(Element element, bool on) {
  struct Rows {
    CommandId On;
    CommandId Off;
    Mark OnSymbol;
    Mark OffSymbol;
  };
  static constexpr std::array<Rows, kElements> kRows{
      {{CommandId::CapOpen, CommandId::CapClose, Mark::CapOpen, Mark::CapClose},
       {CommandId::ValvesOn, CommandId::ValvesOff, Mark::ValveOn, Mark::ValveOff},
       {CommandId::StirringsOn, CommandId::StirringsOff, Mark::StirringOn, Mark::StirringOff},
       {CommandId::MotorOn, CommandId::MotorOff, Mark::MotorOn, Mark::MotorOff}}};
  const GroupWindow::Switch boxes = window_.SwitchOf(element);
  const Rows& rows = kRows.at(static_cast<std::size_t>(element));
  Side side{on ? boxes.On : boxes.Off, on ? boxes.Off : boxes.On, boxes.Id, on ? rows.On : rows.Off,
            on ? rows.OnSymbol : rows.OffSymbol};
  const std::string& threePositions = work_.Parts.Facts.CapThreePositionList;
  if (side.Row == CommandId::CapOpen &&
      base::FindField(group_.Ids[kCap], threePositions, ",") > 0) {
    side.Row = CommandId::CapIntermediate;
  }
  return side;
}

// Events are served when all is settled, so that no hand comes between an answer and what it means.
void ElementCommands::Run(const std::function<void()>& act) {
  ++underWay_;
  act();
  --underWay_;
  if (underWay_ > 0 || leaving_) return;
  work_.Parts.Screen.DoEvents();
  if (underWay_ == 0) Done();
}

void ElementCommands::FreezeControls(bool freeze) {
  frozen_ += freeze ? 1 : -1;
  const bool free = frozen_ == 0;
  window_.FrmCmd.Enabled = free;
  const auto set = [free](ui::CheckBox& box) { box.Enabled = free && !box.Tag->empty(); };
  for (int row = 0; row < kDigitalRows; ++row) {
    set(window_.ChkIdiOff(row));
    set(window_.ChkIdiXOff(row));
  }
  for (int row = 0; row < kAnalogueRows; ++row) {
    set(window_.ChkIanOff(row));
    set(window_.ChkIanXOff(row));
  }
}

bool ElementCommands::SendElementCommand(CommandId row, const std::string& argument,
                                         const std::string& symbol) {
  FreezeControls(true);
  if (!leaving_) work_.Parts.Screen.DoEvents();
  link::CommandCall call(work_.Parts.Table, row, argument);
  call.Row().TimeoutSeconds =
      work_.Parts.Table.CommandTimeout(argument, row, work_.Parts.Facts, work_.Parts.Log);
  const std::string command = call.Row().Command;
  const std::string time = work_.TimeOfDay();
  const std::string answer = work_.Send(row);
  if (row == CommandId::MotorOn) {
    work_.Record.WriteRecordLine(time + work_.Record.Symbol(Mark::MotorSpeed) + " = " +
                                 base::Trim(window_.TxtMotorSpeed.Text.Get()));
  }
  work_.Record.WriteRecordLine(time + symbol + work_.Exchange(command, answer));
  const std::string faults =
      ElementFaults(row, base::Left(argument, 2), answer, link::ExpectedAnswerLength(call.Row()));
  work_.ShowFaults(FaultLine(faults, call.Row().Description));
  FreezeControls(false);
  work_.Record.CheckFileSize(false);
  return faults.empty();
}

void ElementCommands::SetPairState(ui::CheckBox& thisBox, ui::CheckBox& otherBox, bool good) {
  thisBox.Enabled = !good;
  if (!good) thisBox.Value = ui::kUnchecked;
  otherBox.Enabled = true;
  otherBox.Value = ui::kUnchecked;
}

void ElementCommands::Switch_Click(Element element, bool on) {
  if (!work_.Activated) return;
  window_.TxtMotorSpeed.SetFocus();
  ui::CheckBox& box = SideOf(element, on).This;
  if (!IsChecked(box)) return;
  if (work_.Parts.Commands.IsSerialBusy() || (on && leaving_)) {
    box.Value = ui::kUnchecked;
    return;
  }
  Run([this, element, on] { SwitchElement(element, on); });
}

void ElementCommands::SwitchElement(Element element, bool on) {
  if (on && element == kValve) return OpenValve();
  if (on && element == kMotor) return StartMotor();
  RunSide(SideOf(element, on), on, group_.Ids.at(static_cast<std::size_t>(element)));
  if (element == kValve) StopWatch();
  if (element == kMotor && window_.StateOf(kMotor) == ElementState::Off) {
    window_.TxtMotorSpeed.BackColor = ui::kWindowColour;
    window_.TxtMotorSpeed.Locked = false;
  }
}

void ElementCommands::RunSide(const Side& side, bool on, const std::string& argument) {
  const bool good = SendElementCommand(side.Row, argument, work_.Record.Symbol(side.Symbol));
  SetPairState(side.This, side.Other, good);
  if (good) side.Label.BackColor = on ? kOnColour : kOffColour;
}

// The check that comes first stands for the watch meanwhile. A window that is to close opens
// nothing.
void ElementCommands::OpenValve() {
  const bool watched = window_.Timer2.Enabled;
  StopWatch();
  const Side side = SideOf(kValve, true);
  const bool allowed = SendElementCommand(CommandId::VerifyDispensing, "",
                                          work_.Record.Symbol(Mark::DispensingCheck));
  if (!allowed) {
    work_.Parts.Screen.Ask({.Text = base::JoinLines({"Cannot open valve!", kCheckCondition})});
  }
  if (allowed && !work_.ExitRequested) {
    RunSide(side, true, group_.Ids[kValve]);
    StartWatch();
  } else {
    side.This.Value = ui::kUnchecked;
    if (watched) StartWatch();
  }
}

void ElementCommands::StartMotor() {
  const Side side = SideOf(kMotor, true);
  const std::string speed = base::Trim(window_.TxtMotorSpeed.Text.Get());
  const double value = base::LeadingNumber(speed);
  if (!IsWhole(speed) || value < kSlowestMotor || value > kFastestMotor) {
    work_.Parts.Screen.Ask({.Text = "Motor speed( " + speed + " ) MUST be in range [1..999]!"});
    window_.TxtMotorSpeed.Locked = false;
    side.This.Value = ui::kUnchecked;
    return;
  }
  RunSide(side, true, group_.Ids[kMotor] + base::LastDigits(std::string_view(speed), kSpeedDigits));
  if (window_.StateOf(kMotor) != ElementState::On) return;
  window_.TxtMotorSpeed.BackColor = ui::kButtonFaceColour;
  window_.TxtMotorSpeed.Locked = true;
}

void ElementCommands::StartWatch() {
  window_.Timer2.Interval = kWatchInterval;
  window_.Timer2.Enabled = true;
}

void ElementCommands::StopWatch() {
  window_.Timer2.Interval = 0;
  window_.Timer2.Enabled = false;
}

// A silent machine keeps a check on the line for longer than the watch's interval.
void ElementCommands::Timer2_Tick() {
  if (watching_) return;
  watching_ = true;
  Run([this] { WatchValve(); });
  watching_ = false;
}

void ElementCommands::WatchValve() {
  const std::string check = work_.Record.Symbol(Mark::DispensingCheck);
  if (SendElementCommand(CommandId::VerifyDispensing, "", check)) return;
  const Side off = SideOf(kValve, false);
  SendElementCommand(off.Row, group_.Ids[kValve], work_.Record.Symbol(off.Symbol));
  off.Other.Enabled = true;
  off.Other.Value = ui::kUnchecked;
  off.This.Enabled = false;
  off.This.Value = ui::kChecked;  // and closes it once more, to be sure
  work_.Parts.Screen.Ask({.Text = kCheckCondition, .Icon = ui::BoxIcon::Exclamation});
  StopWatch();
}

void ElementCommands::RecordSwitch(config::InputKind kind, int row, bool on) {
  const std::string symbol =
      work_.Record.InputSymbol(kind, row, on ? InputMark::On : InputMark::Off);
  work_.Record.WriteRecordLine(work_.TimeOfDay() + symbol);
}

void ElementCommands::ChkIdiOff_Click(int row) {
  if (!work_.Activated) return;
  const bool in = !IsChecked(window_.ChkIdiOff(row));
  if (!in) window_.LblIdiStatus(row).Caption = "";
  RecordSwitch(config::kDigitalInput, row, in);
  for (ui::Label* label :
       {&window_.LblIdiStatus(row), &window_.LblCnIdi(row), &window_.LblIdiDescr(row)}) {
    label->Enabled = in;
  }
  window_.LblIdiStatus(row).BackColor = kOffColour;
  window_.TxtEnqTime.SetFocus();
}

void ElementCommands::ChkIanOff_Click(int row) {
  if (!work_.Activated) return;
  const bool in = !IsChecked(window_.ChkIanOff(row));
  if (!in) window_.LblCurr(row).Caption = "";
  RecordSwitch(config::kAnalogueInput, row, in);
  for (ui::Label* label :
       {&window_.LblStart(row), &window_.LblEnd(row), &window_.LblLow(row), &window_.LblHigh(row),
        &window_.LblCurr(row), &window_.LblCnIan(row), &window_.LblIanStatus(row)}) {
    label->Enabled = in;
  }
  window_.LblIanStatus(row).BackColor = kOffColour;
  window_.TxtEnqTime.SetFocus();
}

void ElementCommands::ChkIdiXOff_Click(int row) {
  SwitchFunction(window_.ChkIdiXOff(row), settingDigital_, config::kDigitalInput, row,
                 group_.Digital.at(static_cast<std::size_t>(row)).XFunction);
}

void ElementCommands::ChkIanXOff_Click(int row) {
  SwitchFunction(window_.ChkIanXOff(row), settingAnalogue_, config::kAnalogueInput, row,
                 group_.Analogue.at(static_cast<std::size_t>(row)).XFunction);
}

void ElementCommands::SwitchFunction(ui::CheckBox& box, bool& busy, config::InputKind kind, int row,
                                     int xFunction) {
  if (!work_.Activated) return;
  window_.TxtMotorSpeed.SetFocus();
  if (busy) return;
  busy = true;
  if (work_.Parts.Commands.IsSerialBusy() || leaving_) {
    TurnOver(box);
    busy = false;
    return;
  }
  Run([&] {
    const bool on = !IsChecked(box);
    const std::string symbol =
        work_.Record.InputSymbol(kind, row, on ? InputMark::FunctionOn : InputMark::FunctionOff);
    const std::string argument = group_.Text + base::LastDigits(xFunction, 2) + (on ? "1" : "0");
    if (!SendElementCommand(CommandId::GroupFunction, argument, symbol)) TurnOver(box);
    busy = false;
  });
}

bool ElementCommands::SwitchElementsOff() {
  struct Named {
    Element Which;
    const char* Name;
  };
  static constexpr std::array<Named, 3> kInOrder{
      {{kValve, "Valve"}, {kStirring, "Stirring"}, {kMotor, "Motor"}}};
  std::vector<std::string> failed;
  bool any = false;
  for (const Named& element : kInOrder) {
    const GroupWindow::Switch boxes = window_.SwitchOf(element.Which);
    if (IsChecked(boxes.Off)) continue;
    boxes.Off.Value = ui::kChecked;
    if (!IsChecked(boxes.On) && !IsChecked(boxes.Off)) {
      failed.emplace_back(element.Name);
    } else {
      any = true;
    }
  }
  if (!failed.empty()) {
    work_.Parts.Screen.Ask(
        {.Text = base::JoinLines(
             {"ATTENTION!",
              "Errors while trying to put the following elements OFF:", base::Join(failed, ", ")}),
         .Icon = ui::BoxIcon::Exclamation});
  }
  return any;
}

}  // namespace tintbench::groups
