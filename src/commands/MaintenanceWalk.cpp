#include "commands/MaintenanceWalk.h"

#include <algorithm>
#include <array>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::commands {

namespace {

constexpr int kElementLength = 2;
constexpr std::size_t kSpeedLength = 3;
constexpr int kLargestSpeed = 999;

// The motor's speed in an answer, in hundredths of a turn per minute, and how often it is asked.
constexpr int kSpeedPosition = 12;
constexpr int kMotorDigits = 10;
constexpr double kSpeedUnit = 100.0;
constexpr double kWatchPause = 1.0;  // seconds

std::string SpeedLine(const std::string& rpm) { return "Speed received [ " + rpm + " rpm ]"; }

std::string NextStepHint(CommandId row) {
  if (link::MovesCap(row)) {
    return base::JoinLines(
        {"Press again the same key to:", "- enable the command for the next element"});
  }
  return base::JoinLines(
      {"Press again the same key to:", "- disable the command for the current element and",
       "- enable the command for the next element", "", "PRESS <HALT PROCESS> TO STOP"});
}

}  // namespace

struct MaintenanceWalk::Walk {
  int Option = 0;
  CommandId OnRow = {};
  std::optional<CommandId> OffRow;  // none: nothing to switch off, and the walk goes round for ever
  config::ElementKind Elements = {};
};

const MaintenanceWalk::Walk* MaintenanceWalk::WalkOf(int option) {
  static constexpr std::array<Walk, 6> kWalks{{
      {kEachValve, CommandId::ValvesOn, CommandId::ValvesOff, config::kCircuits},
      {kOpenEachCap, CommandId::CapOpen, std::nullopt, config::kCaps},
      {kCloseEachCap, CommandId::CapClose, std::nullopt, config::kCaps},
      {kEachMotor, CommandId::MotorOn, CommandId::MotorOff, config::kMotors},
      {kEachStirring, CommandId::StirringsOn, CommandId::StirringsOff, config::kStirrings},
      {kCapIntermediate, CommandId::CapIntermediate, std::nullopt, config::kCaps},
  }};
  const auto* const found = std::find_if(
      kWalks.begin(), kWalks.end(), [option](const Walk& walk) { return walk.Option == option; });
  return found != kWalks.end() ? found : nullptr;
}

void MaintenanceWalk::Restart() {
  position_ = 0;
  element_.clear();
}

bool MaintenanceWalk::Step(int option) {
  if (WalkOf(option) == nullptr) return false;
  const Walk& walk = *WalkOf(option);
  const bool offDone = walk.OffRow == CommandId::MotorOff && motorOffDone_;
  if (walk.OffRow && !element_.empty() && !offDone) SwitchOff(*walk.OffRow, element_);
  std::string next = TakeNext(walk);
  if (next.empty()) {
    Restart();
    if (!walk.OffRow) next = TakeNext(walk);
  }
  if (next.empty()) return false;
  if (walk.OnRow == CommandId::MotorOn) return StepMotor(next, IsAtLast(walk));
  SwitchOn(walk.OnRow, next, {});
  element_ = next;
  return false;
}

std::string MaintenanceWalk::TakeNext(const Walk& walk) {
  const config::MachineFacts& facts = window_.Work.Facts;
  const std::string& list = facts.ElementLists[walk.Elements];
  std::string element;
  do {
    element = base::GetField(++position_, list, ",");
  } while (walk.OnRow == CommandId::CapIntermediate && !element.empty() &&
           base::FindField(element, facts.CapThreePositionList, ",") == 0);
  return element;
}

bool MaintenanceWalk::IsAtLast(const Walk& walk) const {
  return position_ >= base::CountFields(window_.Work.Facts.ElementLists[walk.Elements], ",");
}

// A motor runs, with its speed on show, until the operator goes on.
bool MaintenanceWalk::StepMotor(const std::string& motor, bool last) {
  const std::optional<std::string> speed = SpeedPrompt(motor);
  if (window_.IsStopped()) return false;
  // A motor that failed to answer may run all the same: its off step is due.
  element_ = motor;
  motorOffDone_ = !speed;
  if (!speed) {
    if (last) Restart();
    return false;
  }
  if (!SwitchOn(CommandId::MotorOn, motor, *speed)) return false;
  if (MotorSpeedWatch(motor)) {
    motorOffDone_ = true;
    return false;
  }
  if (!last) return true;
  SwitchOff(CommandId::MotorOff, motor);
  Restart();
  return false;
}

void MaintenanceWalk::SwitchOff(CommandId row, const std::string& element) {
  window_.ShowReport(base::JoinLines({window_.Description(row), "", element + " -> "}));
  const bool good = CheckEcho(window_.Send(row, element), element, row);
  window_.AddToReport(good ? "Success !" : "Failure !");
}

bool MaintenanceWalk::SwitchOn(CommandId row, const std::string& element,
                               const std::string& speed) {
  const std::string argument = element + speed;
  const std::string shownSpeed =
      row == CommandId::MotorOn ? " (Speed=" + speed + ")" : std::string();
  window_.ShowReport(
      base::JoinLines({window_.Description(row), "", element + shownSpeed + " -> "}));
  const std::string answer =
      link::MovesCap(row) ? window_.SendMoving(row, argument) : window_.Send(row, argument);
  const bool good = CheckEcho(answer, argument, row);
  window_.AddToReport((good ? "Success !" : "Failure !") + Framed(NextStepHint(row)));
  return good;
}

// The machine repeats the element, and says of a cap whether it has moved.
bool MaintenanceWalk::CheckEcho(const std::string& answer, const std::string& argument,
                                CommandId row) {
  const std::string told = base::Trim(answer) + std::string(kElementLength + 2, ' ');
  if (told.substr(0, kElementLength + 1) != "A" + base::Left(argument, kElementLength)) {
    window_.ShowStatusLine(kRefused);
    return false;
  }
  const bool good = !link::MovesCap(row) || told[kElementLength + 1] == 'K';
  window_.ShowStatusLine(base::JoinLines({kAccepted, good ? kSuccess : kFail}));
  return good;
}

std::optional<std::string> MaintenanceWalk::SpeedPrompt(const std::string& motor) {
  ui::Question question{
      .Prompt = "Input 3 decimal characters for the speed of motor " + base::Bracketed(motor),
      .Title = window_.Description(CommandId::MotorOn),
      .Default = lastSpeed_};
  while (true) {
    const std::string reply = window_.Ask(question).value_or("");
    if (reply.empty()) return std::nullopt;
    const int speed = base::IsNumeric(reply) ? base::LeadingInt(reply) : 0;
    if (reply.size() <= kSpeedLength && speed > 0 && speed <= kLargestSpeed) {
      lastSpeed_ = base::LastDigits(speed, kSpeedLength);
      return lastSpeed_;
    }
    question.Default = reply;
  }
}

bool MaintenanceWalk::MotorSpeedWatch(const std::string& motor) {
  StopToken watch(window_.Running);
  window_.Options.AllowOnly({kEachMotor});
  const std::string before = window_.TextOutput.Text;
  std::string line = SpeedLine("0");
  window_.ShowReport(before + line);
  while (!window_.AbortableWait(kWatchPause, Wish::Finish) && window_.Work.Port.PortOpen()) {
    const std::string answer = window_.Send(CommandId::MotorSpeed, motor);
    const bool good = base::Left(answer, 1) == "A";
    if (good) {
      const std::string digits = base::Mid(answer, kSpeedPosition, kMotorDigits);
      line = SpeedLine(base::PlainNumber(base::LeadingNumber(digits) / kSpeedUnit));
    }
    window_.ShowReport(before + line + (good ? "" : kInvalidData));
  }
  window_.Options.UnlockOptions();
  return window_.IsStopped() || !window_.Work.Port.PortOpen();
}

}  // namespace tintbench::commands
