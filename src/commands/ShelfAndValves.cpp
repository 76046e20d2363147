#include "commands/ShelfAndValves.h"

#include <cmath>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::commands {

namespace {

constexpr double kGuardSeconds = 10.0;
constexpr double kCanSeconds = 16.0;
constexpr double kCanLookEvery = 0.7;
constexpr double kTestLookEvery = 0.5;

constexpr const char* kCanTitle = "MOVE SHELF UP WITH CAN";
constexpr const char* kValveTestTitle = "Cannot perform test!";
constexpr const char* kGoOn = "Press OK to continue or CANCEL to abort.";
constexpr const char* kHaltHint = "PRESS <HALT PROCESS> TO STOP";

bool IsAccepted(const std::string& answer) { return !answer.empty() && answer[0] == 'A'; }

std::string CanRequest(bool withShelf) {
  const std::string shelf =
      withShelf
          ? base::JoinLines({"", "", "ATTENTION !", "If necessary, the SHELF will be MOVED UP !"})
          : "";
  return base::JoinLines({"ATTENTION !", "You ABSOLUTELY need a CAN for this process !",
                          "Please, put a CAN on the shelf"}) +
         shelf + base::JoinLines({"", "", kGoOn});
}

}  // namespace

void ShelfAndValves::ShelfMotion(CommandId row, const std::string& answer) {
  if (!IsAccepted(answer)) return;
  for (Way* way : {&up_, &down_}) {
    if (way->Row != row) continue;
    way->Moving = !way->Moving;
    way->Since = Now();
  }
}

bool ShelfAndValves::MoveShelf(const Way& wanted, const Way& opposite) {
  if (!window_.Work.Facts.HasShelf) return false;
  const bool stops = opposite.Moving && Now() - opposite.Since < kGuardSeconds;
  const CommandId row = (stops ? opposite : wanted).Row;
  window_.ShowReportFrame();
  window_.ShowReport(base::JoinLines({window_.Description(row), "", kHaltHint, "THE SHELF"}));
  const std::string answer = window_.Send(row);
  ShelfMotion(row, answer);
  window_.CheckAnswer(answer, "A", "");
  return !stops && (answer.empty() || IsAccepted(answer));
}

bool ShelfAndValves::CanPhotocellObscured(std::size_t place) {
  constexpr std::size_t kAnswerLength = 9;
  constexpr std::size_t kDigits = 5;
  const std::string answer = window_.Send(CommandId::ReadInputs);
  if (answer.size() != kAnswerLength || !IsAccepted(answer)) return false;
  return base::HexToBinary(answer.substr(kAnswerLength - kDigits))[place] == '0';
}

CanCheck ShelfAndValves::WaitForCan(double seconds) {
  const int connector = window_.Work.Facts.PhotocellConnector;
  if (connector < 1 || connector > config::kConnectors) return CanCheck::NoPhotocell;
  // Connector 1 is the last of the bits.
  const auto place = static_cast<std::size_t>(config::kConnectors - connector);
  if (CanPhotocellObscured(place)) return CanCheck::There;
  return window_.Work.Facts.HasShelf ? WaitWithShelf(seconds, place) : CanCheck::Missing;
}

CanCheck ShelfAndValves::WaitWithShelf(double seconds, std::size_t place) {
  const std::string report = window_.TextOutput.Text;
  const double end = Now() + seconds;
  const auto showRest = [&](double rest) {
    window_.ShowReport(base::JoinLines(
        {base::Bracketed(base::PlainNumber(rest)) + "wait please ... ", "", report}));
  };
  window_.Options.LockOptions();
  double shown = std::floor(seconds);
  showRest(shown);
  bool there = false;
  while (!there && Now() < end && window_.Work.Port.PortOpen()) {
    if (window_.AbortableWait(kCanLookEvery)) break;
    const double rest = std::floor(end - Now());
    if (rest >= 0 && rest < shown) showRest(shown = rest);
    there = CanPhotocellObscured(place);
    window_.Work.Screen.DoEvents();
  }
  window_.ShowReport(report);
  window_.Options.UnlockOptions();
  if (window_.IsStopped() || !window_.Work.Port.PortOpen()) return CanCheck::GivenUp;
  return there ? CanCheck::There : CanCheck::Missing;
}

CanCheck ShelfAndValves::ShelfonCompletelyWithCan() {
  const std::optional<ui::Answer> answer =
      window_.Ask({.Text = CanRequest(window_.Work.Facts.HasShelf),
                   .Icon = ui::BoxIcon::Exclamation,
                   .Buttons = ui::BoxButtons::OkCancel,
                   .Title = kCanTitle});
  if (answer != ui::Answer::OK) return CanCheck::GivenUp;
  const CanCheck check = MoveAndWait();
  raisedForCan_ = false;
  return check;
}

CanCheck ShelfAndValves::MoveAndWait() {
  const bool withShelf = window_.Work.Facts.HasShelf;
  raisedForCan_ = withShelf && MoveShelf(up_, down_);
  const CanCheck check = WaitForCan(withShelf ? kCanSeconds : 0);
  if (check == CanCheck::Missing || check == CanCheck::NoPhotocell) TellCanMissing(check);
  if (check != CanCheck::There || !withShelf) return check;
  const std::optional<ui::Answer> answer =
      window_.Ask({.Text = kGoOn, .Buttons = ui::BoxButtons::OkCancel, .Title = kCanTitle});
  return answer == ui::Answer::OK ? CanCheck::There : CanCheck::GivenUp;
}

void ShelfAndValves::StopForCan() {
  if (std::exchange(raisedForCan_, false)) ShelfUp();
}

void ShelfAndValves::TellCanMissing(CanCheck check) {
  std::string what = base::JoinLines(
      {"Sensor not associated to the connector or", "incorrectly associated in configuration !"});
  if (check == CanCheck::Missing) {
    what = window_.Work.Facts.HasShelf ? "Can photocell NOT obscured after timeout elapsed !" +
                                             base::Bracketed("16_seconds")
                                       : "Can photocell NOT obscured";
  }
  window_.Ask({.Text = base::JoinLines({"Failure !", what}), .Title = kCanTitle});
}

bool ShelfAndValves::CheckPurgeConditions() {
  return sender_.SendElements(CommandId::AllOff) && !window_.Flags.Closing &&
         ShelfonCompletelyWithCan() == CanCheck::There;
}

void ShelfAndValves::AutomaticPunching() {
  window_.ShowReportFrame();
  window_.ShowReport("");
  if (!CheckPurgeConditions()) return;
  window_.ShowReport(window_.Description(CommandId::Punch));
  window_.CheckAnswer(window_.Send(CommandId::Punch), "A", "");
}

bool ShelfAndValves::MayTestValves(int circuits) {
  const int seconds = window_.Work.Facts.ValveTestTime;
  ui::Box box{.Text = {}, .Title = kValveTestTitle};
  if (seconds < 1) {
    box.Text = base::JoinLines({"Wrong configuration parameter: ",
                                "<Opening time for valve-test> = " + base::PlainNumber(seconds), "",
                                "Please, correct parameter", "in the configuration section!"});
    box.Icon = ui::BoxIcon::Exclamation;
  } else if (circuits == 0) {
    box.Text = base::JoinLines({kValveTestTitle, "", "No valves!"});
  } else {
    return true;
  }
  window_.Ask(box);
  return false;
}

void ShelfAndValves::ValveTest() {
  const config::MachineFacts& facts = window_.Work.Facts;
  const int circuits = base::CountFields(facts.ElementLists[config::kCircuits], ",");
  if (!MayTestValves(circuits)) return;
  window_.ShowReportFrame();
  window_.ShowReport("");
  if (!CheckPurgeConditions()) return;
  if (!window_.CheckAnswer(window_.Send(CommandId::ValveTest), "A", "")) return;
  const int seconds = facts.ValveTestTime * circuits;
  window_.ShowReport(base::JoinLines(
      {window_.Description(CommandId::ValveTest), "",
       "[ expected process time = " + base::PlainNumber(seconds) + " sec. ]", "", kHaltHint}));
  window_.Options.AllowOnly({kReadInputs, kReadOutputs, kReadStatus}, kReadInputs);
  window_.Flags.Idle = true;  // inputs, outputs and status may be read meanwhile
  if (!window_.AbortableWait(seconds)) AwaitValveTestEnd();
}

void ShelfAndValves::AwaitValveTestEnd() {
  while (!window_.AbortableWait(kTestLookEvery)) {
    if (window_.Send(CommandId::ReadStatus).substr(0, 1) == "B") continue;
    window_.Options.UnlockOptions();
    return;
  }
}

}  // namespace tintbench::commands
