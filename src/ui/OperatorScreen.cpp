#include "ui/OperatorScreen.h"

#include <algorithm>
#include <array>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::ui {

namespace {

// How often a script's condition is looked at while it waits, in seconds.
constexpr double kLookInterval = 0.05;
// How often whoever drives the line is served while the script waits, in seconds.
constexpr double kMeanwhileInterval = 0.25;
// How long a script may wait for a box that its next step answers, in seconds: longer than any
// process of the machine takes.
constexpr double kBoxPatience = 3600.0;
// How many times close buttons are pressed at the end.
constexpr int kCloseTries = 120;

std::string_view IconWord(BoxIcon icon) {
  constexpr std::array<std::string_view, 5> kWords{"plain", "stop", "question", "exclamation",
                                                   "information"};
  return kWords[static_cast<std::size_t>(icon)];
}

std::string_view AnswerWord(Answer answer) {
  constexpr std::array<std::string_view, 4> kWords{"OK", "Cancel", "Yes", "No"};
  return kWords[static_cast<std::size_t>(answer)];
}

bool Offers(BoxButtons buttons, Answer answer) {
  switch (buttons) {
    case BoxButtons::Ok:
      return answer == Answer::OK;
    case BoxButtons::OkCancel:
      return answer == Answer::OK || answer == Answer::Cancel;
    case BoxButtons::YesNo:
      return answer == Answer::Yes || answer == Answer::No;
  }
  return false;
}

bool IsReply(const Step& step) {
  return step.Kind == StepKind::Answer || step.Kind == StepKind::Input ||
         step.Kind == StepKind::File;
}

bool IsOfTheHand(const Step& step) { return step.Kind <= StepKind::Close; }

}  // namespace

const Step* OperatorScreen::NextStep() const {
  return ended_ || next_ == script_.Steps.size() ? nullptr : &script_.Steps[next_];
}

// While no window but the splash shows, only the machine and the splash can be spoken of.
bool OperatorScreen::MayDeliver(const Step& step) const {
  if (step.Kind == StepKind::Machine) return true;
  const bool windowShows = std::any_of(OpenForms().begin(), OpenForms().end(),
                                       [](const Form* form) { return !form->IsSplash(); });
  if (windowShows) return true;
  if (OpenForms().empty()) return false;
  return !step.Target.Names.empty() &&
         base::EqualFolded(step.Target.Names[0].Name, Front()->Name());
}

bool OperatorScreen::ServeOperator() {
  if (IsClosingAll() || (waiting_ != nullptr && !WaitIsOver())) return false;
  const Step* step = NextStep();
  if (step == nullptr) {
    // At the script's end the windows are closed from the front one back to the main window.
    CloseAll();
    return false;
  }
  if (!MayDeliver(*step)) return false;
  if (IsReply(*step)) return AnswerIsOverdue(*step);
  Deliver(*step);
  return true;
}

// The hand of a script waits, but the system may have told the program to end.
bool OperatorScreen::ServeBacklog() {
  if (Meanwhile) Meanwhile();
  return false;
}

// A name that leads nowhere is told at once.
bool OperatorScreen::RestIsOver() const {
  if (Time().Now() >= waitEnd_) return true;
  std::string found;
  return waiting_->Kind == StepKind::Until && (!ReadPath(waiting_->Target, found) ||
                                               Relates(found, waiting_->Compare, waiting_->Wanted));
}

bool OperatorScreen::WaitIsOver() {
  if (!RestIsOver()) return false;
  std::string found;
  if (waiting_->Kind != StepKind::Until) {
    // Nothing was to come of it.
  } else if (!ReadPath(waiting_->Target, found)) {
    ScriptFails(waiting_, "there is no " + waiting_->Target.Text);
  } else if (!Relates(found, waiting_->Compare, waiting_->Wanted)) {
    ExpectationFails(*waiting_, "wanted " + std::string(RelationWord(waiting_->Compare)) + " " +
                                    Quoted(waiting_->Wanted) + ", found " + Quoted(found) +
                                    " after " + base::PlainNumber(waiting_->Seconds) + " seconds");
  }
  waiting_ = nullptr;
  return true;
}

bool OperatorScreen::OperatorMayWait() const {
  if (waiting_ != nullptr && !RestIsOver()) return false;
  const Step* step = NextStep();
  if (step == nullptr) return true;  // and closes the windows
  return IsOfTheHand(*step) && MayDeliver(*step);
}

bool OperatorScreen::AnswerIsOverdue(const Step& step) {
  if (awaited_ != &step) {
    awaited_ = &step;
    awaitedSince_ = Time().Now();
  }
  if (Time().Now() < awaitedSince_ + kBoxPatience) return false;
  ScriptFails(&step, "the box to be answered has not come");
  return true;
}

void OperatorScreen::Deliver(const Step& step) {
  static constexpr std::array<std::pair<StepKind, Handler>, 14> kHandlers{{
      {StepKind::Click, &OperatorScreen::DoClick},
      {StepKind::DblClick, &OperatorScreen::DoDblClick},
      {StepKind::RightPress, &OperatorScreen::DoRightPress},
      {StepKind::Press, &OperatorScreen::DoPress},
      {StepKind::Type, &OperatorScreen::DoType},
      {StepKind::Pick, &OperatorScreen::DoPick},
      {StepKind::Tick, &OperatorScreen::DoTick},
      {StepKind::Untick, &OperatorScreen::DoTick},
      {StepKind::Close, &OperatorScreen::DoClose},
      {StepKind::Wait, &OperatorScreen::DoWait},
      {StepKind::Until, &OperatorScreen::DoUntil},
      {StepKind::Expect, &OperatorScreen::DoExpect},
      {StepKind::Print, &OperatorScreen::DoPrint},
      {StepKind::Watch, &OperatorScreen::DoWatch},
  }};
  if (step.Kind == StepKind::Machine) {
    TellMachine(step);
    return;
  }
  ++next_;
  transcript_ << "> " << step.Source << '\n' << std::flush;
  for (const auto& [kind, handler] : kHandlers) {
    if (kind == step.Kind) (this->*handler)(step);
  }
}

void OperatorScreen::TellMachine(const Step& step) {
  ++next_;
  transcript_ << "> " << step.Source << '\n' << std::flush;
  if (!machine_) {
    ScriptFails(&step, "there is no simulated machine here");
    return;
  }
  if (const std::string fault = machine_(step.Text); !fault.empty()) ScriptFails(&step, fault);
}

// The operator's other hand is free while a box is open, and before the first window is.
void OperatorScreen::TellWaitingMachineWords() {
  for (const Step* step = NextStep(); step != nullptr && step->Kind == StepKind::Machine;
       step = NextStep()) {
    TellMachine(*step);
  }
}

void OperatorScreen::PressClose(Form& form) {
  if (++closeTries_ <= kCloseTries) {
    CloseByOperator(form);
  } else {
    ScriptFails(nullptr, "the window " + form.Name() + " does not close");
    Quit();
  }
}

double OperatorScreen::NextLook() const {
  if (IsClosingAll()) return kNever;
  const double now = Time().Now();
  if (waiting_ != nullptr) {
    return waiting_->Kind == StepKind::Wait ? waitEnd_ : std::min(waitEnd_, now + kLookInterval);
  }
  const Step* step = NextStep();
  if (step == awaited_) return awaitedSince_ + kBoxPatience;
  return now + kLookInterval;
}

void OperatorScreen::AwaitOperator(double when) {
  const double wake = std::min(when, NextLook());
  if (!Meanwhile) return Time().SleepUntil(wake);
  Meanwhile();
  const double next = Time().Now() + kMeanwhileInterval;
  Time().SleepUntil(Time().IsVirtual() ? wake : std::min(wake, next));
}

void OperatorScreen::Appeared(Form&, bool) {
  // The machine's state at link-up is settled before the line is opened behind the splash.
  TellWaitingMachineWords();
}

void OperatorScreen::Vanished(Form&) { openMenus_.clear(); }

double OperatorScreen::TextWidth(const Form&, std::string_view text) const {
  return static_cast<double>(text.size());
}

void OperatorScreen::ShowBox(std::string_view title, std::string_view icon, std::string_view text) {
  transcript_ << "[box] " << (title.empty() ? std::string_view(Title) : title) << " | " << icon
              << " | " << OnOneLine(text) << '\n'
              << std::flush;
}

const Step* OperatorScreen::TakeReply(StepKind kind, const std::string& told) {
  // A script that is cut short answers nothing more.
  if (IsClosingAll() && NextStep() != nullptr) return nullptr;
  TellWaitingMachineWords();
  const Step* step = NextStep();
  if (step == nullptr || step->Kind != kind) {
    // Once the script has failed its windows close, and what they ask is of no consequence.
    if (!ended_) ScriptFails(step, "a box came that the script does not answer: " + told);
    return nullptr;
  }
  ++next_;
  awaited_ = nullptr;
  transcript_ << "> " << step->Source << '\n' << std::flush;
  return step;
}

void OperatorScreen::CheckReply(const Step& step, const std::string& text) {
  if (Relates(text, step.Compare, step.Wanted)) return;
  ExpectationFails(step, "the box: wanted " + std::string(RelationWord(step.Compare)) + " " +
                             Quoted(step.Wanted) + ", found " + Quoted(text));
}

Answer OperatorScreen::Ask(const Box& box) {
  ShowBox(box.Title, IconWord(box.Icon), box.Text);
  const Step* step = TakeReply(StepKind::Answer, OnOneLine(box.Text));
  if (step == nullptr) return WayOut(box.Buttons);
  CheckReply(*step, box.Text);
  if (Offers(box.Buttons, step->Button)) return step->Button;
  ScriptFails(step, "the box has no button " + std::string(AnswerWord(step->Button)) + ": " +
                        OnOneLine(box.Text));
  return WayOut(box.Buttons);
}

std::optional<std::string> OperatorScreen::Ask(const Question& question) {
  ShowBox(question.Title, "input", question.Prompt);
  const Step* step = TakeReply(StepKind::Input, OnOneLine(question.Prompt));
  if (step == nullptr) return std::nullopt;
  CheckReply(*step, question.Prompt);
  return step->Refused ? std::nullopt : std::optional(step->Text);
}

std::optional<std::string> OperatorScreen::Ask(const FileRequest& request) {
  ShowBox(request.Title, "file", request.Filter);
  const Step* step = TakeReply(StepKind::File, OnOneLine(request.Title));
  if (step == nullptr) return std::nullopt;
  CheckReply(*step, request.Title);
  return step->Refused ? std::nullopt : std::optional(step->Text);
}

std::string OperatorScreen::Where(const Step& step) const {
  return script_.FileName + ":" + std::to_string(step.Line) + ": ";
}

void OperatorScreen::ExpectationFails(const Step& step, const std::string& what) {
  transcript_ << Where(step) << step.Target.Text << (step.Target.Text.empty() ? "" : ": ") << what
              << '\n'
              << std::flush;
  if (outcome_ == Outcome::Good) outcome_ = Outcome::ExpectationFailed;
}

void OperatorScreen::ScriptFails(const Step* step, const std::string& what) {
  const std::string line = (step != nullptr ? Where(*step) : script_.FileName + ": ") + what;
  transcript_ << line << '\n' << std::flush;
  diagnostics_ << line << '\n' << std::flush;
  outcome_ = Outcome::ScriptWrong;
  ended_ = true;
  waiting_ = nullptr;
}

OperatorScreen::Outcome OperatorScreen::Finish() {
  const Step* step = waiting_ != nullptr ? waiting_ : NextStep();
  if (step != nullptr) {
    ScriptFails(step, "the program has ended before this step was done");
  }
  return outcome_;
}

}  // namespace tintbench::ui
