#include "commands/MaintenanceMenu.h"

#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::commands {

namespace {

constexpr const char* kGood = "A";
constexpr const char* kStatusLetters = "KEBN";
// Firmware up to here ends a valve test by a reset alone.
constexpr double kLastUnstoppableTest = 3.0;
constexpr const char* kExecute = "E&XECUTE";

}  // namespace

void MaintenanceMenu::Load() {
  currentOption_ = runningOption_ = kNoOption;
  walk_.Restart();
  walk_.ForgetSpeed();
  window_.CmdMultExec.Caption = kExecute;
  window_.CmdMultExec.Tag = "";
}

void MaintenanceMenu::KeyDown(ui::KeyEvent& key) {
  if ((key.Shift & (ui::kCtrl | ui::kAlt)) != 0) return;
  const int option = OptionOfKey(key.Code);
  if (!window_.Flags.Idle) {
    // Only what presses the halt button still has its way.
    if (option == kNoOption && window_.ActiveControl() == &window_.CmdMultStop) return;
    key.Code = 0;
    StopRunning(option);
    return;
  }
  if (option == kNoOption) return;
  key.Code = 0;
  if (!window_.Options.IsEnabled(option)) return;
  window_.Options.Select(option);
  Execute(option);
}

void MaintenanceMenu::Option1_Click(int option) {
  const std::string caption = window_.Option1(option).Caption;
  window_.CmdMultExec.Caption = base::JoinLines({base::Trim(base::Behind(caption, ']')), kExecute});
  window_.CmdMultExec.Tag = std::to_string(option);
}

void MaintenanceMenu::CmdMultExec_Click() {
  const std::string tag = window_.CmdMultExec.Tag;
  if (tag.empty()) return;
  const int option = base::LeadingInt(tag);
  if (window_.Flags.Idle) {
    Execute(option);
  } else {
    StopRunning(option);
  }
}

// A motor that is watched, and a purge, end by their own key.
void MaintenanceMenu::StopRunning(int option) {
  if (option != runningOption_ || (option != kEachMotor && option != kPurge)) return;
  window_.Running->Say(Wish::Finish);
}

// May run once more inside itself: the sensors can be read while the valves are tested.
void MaintenanceMenu::Execute(int option) {
  window_.Flags.Idle = false;
  StopToken process(window_.Running);
  const int outer = std::exchange(runningOption_, option);
  window_.Options.ShowRunning(option);
  const bool another = option != currentOption_;
  if (another) {
    walk_.Restart();
    window_.HidePanels();
    if (outer != kValveTest) {
      window_.HideReportFrame();
      window_.ShowReport("");
    }
  }
  RunAction(option, another);
  runningOption_ = outer;
  window_.Options.ShowRunning(outer);
  window_.Flags.Idle = true;
  currentOption_ = option;
}

void MaintenanceMenu::RunAction(int option, bool another) {
  // The report would hide the card that goes with the sensors.
  if (option > kReadStatus) window_.ShowReportFrame();
  switch (option) {
    case kReadInputs:
      return ReadInputs();
    case kReadOutputs:
      return ReadOutputs();
    case kReadStatus:
      return ReadStatus();
    case kReset:
      return MachineReset();
    case kPunching:
      return shelf_.AutomaticPunching();
    case kValveTest:
      return shelf_.ValveTest();
    case kShelfUp:
      return shelf_.ShelfUp();
    case kShelfDown:
      return shelf_.ShelfDown();
    case kPurge:
      return purge_.PurgeRun(another);
    default:
      while (walk_.Step(option)) {
      }
  }
}

void MaintenanceMenu::ReadInputs() {
  window_.ShowPanel(state::kInputPanel);
  if (!window_.FrameOutput.Visible) window_.ShowPanel(state::kCardPanel);
  const std::string answer = window_.Send(CommandId::ReadInputs);
  window_.CheckAnswer(answer, kGood, "");
  window_.ClearOutputs();
  window_.Work.Decoder.DecodeInputs(window_.Panels, answer);
}

void MaintenanceMenu::ReadOutputs() {
  window_.ShowPanel(state::kOutputPanel);
  if (!window_.FrameOutput.Visible) window_.ShowPanel(state::kCardPanel);
  const std::string answer = window_.Send(CommandId::ReadOutputs);
  window_.CheckAnswer(answer, kGood, "");
  window_.ClearInputs();
  window_.Work.Decoder.DecodeOutputs(window_.Panels, answer);
}

void MaintenanceMenu::ReadStatus() {
  window_.ShowPanel(state::kStatusPanel);
  const std::string answer = window_.Send(CommandId::ReadStatus);
  window_.CheckAnswer(answer, kStatusLetters, "");
  window_.Work.Decoder.DecodeStatus(window_.Panels, answer);
}

void MaintenanceMenu::MachineReset() {
  const std::string answer = window_.SendMoving(CommandId::Reset, "");
  window_.CheckAnswer(answer, kGood, "");
  if (window_.Work.Status.LinkState <= link::kPortOpen) return;
  // The machine starts its timed processes again after a reset.
  window_.Send(CommandId::StopTimed);
  // A machine that takes its time has had the countdown in the place of the result.
  window_.CheckAnswer(answer, kGood, "");
}

void MaintenanceMenu::CmdMultStop_Click() {
  if (window_.Running != nullptr) window_.Running->Say(Wish::Stop);
  if (runningOption_ == kValveTest) window_.Options.UnlockOptions();
  walk_.Restart();
  purge_.Forget();
  shelf_.StopForCan();
  // While the valves are tested a reading may be the option selected.
  const int option = runningOption_ != kNoOption ? runningOption_ : window_.Options.Selected();
  std::optional<std::string> stopped = StopMachine(option);
  const double firmware = base::LeadingNumber(window_.Work.Status.FirmwareVersion);
  if (option == kValveTest && firmware <= kLastUnstoppableTest) MachineReset();
  if (!stopped) stopped = SwitchOffRest();
  if (stopped) window_.CheckAnswer(*stopped, kGood, "( process stopped )");
}

// The machine's answer, if everything was switched off; nothing if the shelf alone was stopped, or
// if it is a purge that ends in order.
std::optional<std::string> MaintenanceMenu::StopMachine(int option) {
  if (option == kShelfUp && shelf_.IsMovingUp()) {
    shelf_.ShelfUp();
    return std::nullopt;
  }
  if (option == kShelfDown && shelf_.IsMovingDown()) {
    shelf_.ShelfDown();
    return std::nullopt;
  }
  if (option == kPurge && !window_.Flags.Closing) return std::nullopt;
  return window_.Send(CommandId::AllOff);
}

// Nothing that was switched on from here stays on. A purge that runs has its own order for that.
std::optional<std::string> MaintenanceMenu::SwitchOffRest() {
  if (window_.On().IsEmpty() || purge_.WillSwitchOff()) return std::nullopt;
  return window_.Send(CommandId::AllOff);
}

}  // namespace tintbench::commands
