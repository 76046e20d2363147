#include "ui/Screen.h"

#include <algorithm>

#include "base/Text.h"

namespace tintbench::ui {

namespace {

// The running timers of a window: those that have an interval and are enabled.
std::vector<Timer*> RunningTimers(const Form& form) {
  std::vector<Timer*> timers;
  for (Control* control : form.Controls()) {
    auto* timer = dynamic_cast<Timer*>(control);
    if (timer != nullptr && timer->Enabled && timer->Interval > 0) timers.push_back(timer);
  }
  return timers;
}

constexpr double kMillisecond = 0.001;
// How often a program that is told to end presses a close button, in seconds.
constexpr double kCloseInterval = 0.5;

// More than a hand leaves behind; a window that keeps itself busy must not hold the program up.
constexpr int kMostBacklog = 100;

}  // namespace

Answer WayOut(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::OkCancel:
      return Answer::Cancel;
    case BoxButtons::YesNo:
      return Answer::No;
    case BoxButtons::Ok:
      break;
  }
  return Answer::OK;
}

void Screen::Register(Form& form) {
  if (std::find(known_.begin(), known_.end(), &form) == known_.end()) known_.push_back(&form);
}

Form* Screen::FindForm(std::string_view name) const {
  for (Form* form : known_) {
    if (base::EqualFolded(form->Name(), name)) return form;
  }
  return nullptr;
}

Form* Screen::Front() const { return open_.empty() ? nullptr : open_.back(); }

void Screen::Load(Form& form) {
  if (form.loaded_) return;
  Register(form);
  form.loaded_ = true;
  form.Form_Load();
}

void Screen::Show(Form& form) { Open(form, false); }

void Screen::ShowModal(Form& form) {
  Open(form, true);
  awaited_.push_back(&form);
  while (form.Visible && !quitting_) Idle(kNever);
  awaited_.pop_back();
}

void Screen::Open(Form& form, bool modal) {
  Load(form);
  if (form.Visible || !form.loaded_) return;
  open_.push_back(&form);
  form.Visible = true;
  Appeared(form, modal);
  form.Form_Activate();
}

void Screen::Hide(Form& form) { TakeAway(form); }

bool Screen::Unload(Form& form) {
  if (!form.loaded_) return true;
  bool cancel = false;
  form.Form_QueryUnload(cancel);
  if (cancel) return false;
  form.Form_Unload(cancel);
  if (cancel) return false;
  form.loaded_ = false;
  TakeAway(form);
  return true;
}

void Screen::TakeAway(Form& form) {
  if (!form.Visible) return;
  const bool wasFront = Front() == &form;
  std::erase(open_, &form);
  form.Visible = false;
  Vanished(form);
  if (wasFront && Front() != nullptr && !quitting_) Front()->Form_Activate();
}

void Screen::DoEvents() { Serve(); }

void Screen::CatchUp() {
  for (int served = 0; served < kMostBacklog && ServeBacklog(); ++served) {
  }
}

void Screen::Idle(double seconds) {
  const double end = clock_.Now() + seconds;
  while (!Serve() && !quitting_ && clock_.Now() < end) {
    AwaitOperator(std::min(end, NextWake()));
  }
  // A process that waits in turns for something to come must still see its time run out.
  if (quitting_ && end < kNever) clock_.SleepUntil(end);
}

void Screen::Run() {
  while (!open_.empty() && !quitting_) Idle(kNever);
}

bool Screen::Serve() {
  const bool fired = FireTimers();
  const bool served = ServeOperator();
  return CloseFront() || served || fired;
}

void Screen::CloseAll() {
  closingAll_ = true;
  GiveUpBox();
}

// Whoever showed a window modally has its say behind it before the next window is closed.
bool Screen::CloseFront() {
  if (!closingAll_ || quitting_ || Front() == nullptr || clock_.Now() < nextClose_) return false;
  nextClose_ = clock_.Now() + kCloseInterval;
  if (!awaited_.empty() && !awaited_.back()->Visible) return false;
  PressClose(*Front());
  return true;
}

double Screen::NextWake() const {
  const double due = NextTimerDue();
  return closingAll_ && Front() != nullptr ? std::min(due, nextClose_) : due;
}

bool Screen::FireTimers() {
  bool fired = false;
  const std::vector<Form*> forms = known_;
  for (Form* form : forms) {
    if (!form->loaded_) continue;
    for (Timer* timer : RunningTimers(*form)) {
      const double now = clock_.Now();
      if (timer->due_ == Timer::kNotStarted) timer->due_ = now + timer->Interval * kMillisecond;
      if (now < timer->due_ || !timer->Enabled || timer->Interval <= 0) continue;
      timer->due_ = now + timer->Interval * kMillisecond;
      timer->Tick.Raise();
      fired = true;
    }
  }
  return fired;
}

double Screen::NextTimerDue() const {
  double due = kNever;
  for (const Form* form : known_) {
    if (!form->loaded_) continue;
    for (const Timer* timer : RunningTimers(*form)) due = std::min(due, timer->due_);
  }
  return due;
}

}  // namespace tintbench::ui
