#include "qt/DesktopScreen.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QFontMetricsF>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "base/Text.h"
#include "qt/Boxes.h"
#include "qt/FallbackView.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

// How long a new window may take until it is seen.
constexpr double kLongestWayToTheGlass = 1.0;

int Milliseconds(double seconds) {
  constexpr double kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(std::ceil(seconds * 1000.0), 0.0, kMost));
}

}  // namespace

DesktopScreen::DesktopScreen(base::Clock& clock) : Screen(clock) {
  // The end of the program is the logic's to say, not the last window's.
  QGuiApplication::setQuitOnLastWindowClosed(false);
}

DesktopScreen::~DesktopScreen() = default;

void DesktopScreen::AddView(std::string_view formName, ViewFactory view) {
  views_[base::ToUpper(formName)] = std::move(view);
}

ViewFactory DesktopScreen::ViewFor(const ui::Form& form) const {
  const auto found = views_.find(base::ToUpper(form.Name()));
  return found == views_.end() ? ViewFactory(MakeFallbackView) : found->second;
}

FormWindow* DesktopScreen::WindowFor(const ui::Form& form) const {
  const auto found = windows_.find(&form);
  return found == windows_.end() ? nullptr : found->second.get();
}

FormWindow* DesktopScreen::FrontWindow() const {
  return Front() == nullptr ? nullptr : WindowFor(*Front());
}

ui::Answer DesktopScreen::Ask(const ui::Box& box) {
  const QScopedValueRollback<int> nested(depth_, depth_ + 1);
  return AskBox(box, Title, FrontWindow());
}

std::optional<std::string> DesktopScreen::Ask(const ui::Question& question) {
  const QScopedValueRollback<int> nested(depth_, depth_ + 1);
  return AskQuestion(question, Title, FrontWindow());
}

std::optional<std::string> DesktopScreen::Ask(const ui::FileRequest& request) {
  const QScopedValueRollback<int> nested(depth_, depth_ + 1);
  return AskFile(request, Title, FrontWindow());
}

double DesktopScreen::TextWidth(const ui::Form&, std::string_view text) const {
  return QFontMetricsF(QApplication::font("QMenuBar")).horizontalAdvance(ToQt(text));
}

bool DesktopScreen::Process(QEventLoop::ProcessEventsFlags flags) {
  if (depth_ == 0) closed_.clear();
  const QScopedValueRollback<int> nested(depth_, depth_ + 1);
  return QAbstractEventDispatcher::instance()->processEvents(flags);
}

bool DesktopScreen::ServeOperator() {
  const bool before = std::exchange(servedWhileWaiting_, false);
  return Process(QEventLoop::AllEvents) || before;
}

bool DesktopScreen::ServeBacklog() { return Process(QEventLoop::AllEvents); }

// Serves events until one has come or the time is over. True if one has come.
bool DesktopScreen::AwaitEvents(double seconds) {
  if (!std::isfinite(seconds)) return Process(QEventLoop::WaitForMoreEvents);
  QTimer end;
  end.setSingleShot(true);
  end.setTimerType(Qt::PreciseTimer);
  end.start(Milliseconds(seconds));
  return Process(QEventLoop::WaitForMoreEvents) && end.isActive();
}

void DesktopScreen::AwaitOperator(double when) {
  const double seconds = when - Time().Now();
  if (seconds <= 0) return;
  if (Time().IsVirtual() && std::isfinite(when)) {
    // Virtual time passes only if the operator wants nothing.
    servedWhileWaiting_ = Process(QEventLoop::AllEvents);
    if (!servedWhileWaiting_) Time().SleepUntil(when);
  } else {
    servedWhileWaiting_ = AwaitEvents(seconds);
  }
}

void DesktopScreen::Appeared(ui::Form& form, bool modal) {
  auto window = std::make_unique<FormWindow>(form, ViewFor(form), [this, &form] {
    const QScopedValueRollback<int> nested(depth_, depth_ + 1);
    CloseByOperator(form);
  });
  if (modal) StandInFront(*window);
  FormWindow& shown = *window;
  windows_[&form] = std::move(window);
  shown.Open();
  WaitUntilSeen(shown);
}

// A modal window belongs in front of the one that was in front before it.
void DesktopScreen::StandInFront(FormWindow& window) const {
  window.setWindowModality(Qt::ApplicationModal);
  const std::vector<ui::Form*>& open = OpenForms();
  const FormWindow* below = open.size() < 2 ? nullptr : WindowFor(*open[open.size() - 2]);
  if (below == nullptr) return;
  window.winId();
  window.windowHandle()->setTransientParent(below->windowHandle());
}

// The program may block for seconds from here on, and the window must be on the glass by then.
void DesktopScreen::WaitUntilSeen(const FormWindow& window) {
  const QScopedValueRollback<int> nested(depth_, depth_ + 1);
  QTimer end;
  end.setSingleShot(true);
  end.start(Milliseconds(kLongestWayToTheGlass));
  const QWindow* handle = window.windowHandle();
  while (end.isActive() && window.isVisible() && !window.isMinimized() && !handle->isExposed()) {
    Process(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
  }
  Process(QEventLoop::ExcludeUserInputEvents);
}

void DesktopScreen::Vanished(ui::Form& form) {
  const auto found = windows_.find(&form);
  if (found == windows_.end()) return;
  found->second->hide();
  closed_.push_back(std::move(found->second));
  windows_.erase(found);
}

}  // namespace tintbench::desktop
