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

#include "qt/Boxes.h"
#include "qt/FallbackView.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

// How long a new window may take until it is seen.
constexpr double kLongestWayToTheGlass = 1.0;
// How long the window system may take to say that a window is uncovered. One that keeps what was
// covered never says so.
constexpr double kLongestUncovering = 0.2;
constexpr const char* kUncoveringPlatform = "xcb";

// Notes that the window system has asked for a window to be drawn.
class DrawWatch final : public QObject {
 public:
  explicit DrawWatch(QWindow& window) : window_(window) { window_.installEventFilter(this); }
  ~DrawWatch() override { window_.removeEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    Drawn = Drawn || event->type() == QEvent::Expose || event->type() == QEvent::Paint;
    return false;
  }
  bool Drawn = false;

 private:
  QWindow& window_;
};

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

ViewFactory DesktopScreen::ViewFor(const ui::Form& form) const {
  const auto found = views_.find(typeid(form));
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
  if (IsClosingAll()) return ui::WayOut(box.Buttons);
  const QScopedValueRollback<int> nested(depth_, depth_ + 1);
  const ui::Answer answer = AskBox(box, Title, FrontWindow());
  DrawWhatWasCovered();
  return answer;
}

std::optional<std::string> DesktopScreen::Ask(const ui::Question& question) {
  if (IsClosingAll()) return std::nullopt;
  const QScopedValueRollback<int> nested(depth_, depth_ + 1);
  std::optional<std::string> answer = AskQuestion(question, Title, FrontWindow());
  DrawWhatWasCovered();
  return answer;
}

std::optional<std::string> DesktopScreen::Ask(const ui::FileRequest& request) {
  if (IsClosingAll()) return std::nullopt;
  const QScopedValueRollback<int> nested(depth_, depth_ + 1);
  std::optional<std::string> answer = AskFile(request, Title, FrontWindow());
  DrawWhatWasCovered();
  return answer;
}

void DesktopScreen::GiveUpBox() {
  while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  const auto box = [] {
    QWidget* const front = QApplication::activeModalWidget();
    return dynamic_cast<FormWindow*>(front) == nullptr ? front : nullptr;
  };
  while (box() != nullptr && box()->close()) {
  }
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
  FormWindow* const below = open.size() < 2 ? nullptr : WindowFor(*open[open.size() - 2]);
  if (below != nullptr) window.StandOver(*below);
}

// Without a compositor the picture of what is gone stays on the glass until what it covered is
// drawn anew, and the program may block for seconds from here on.
void DesktopScreen::DrawWhatWasCovered() {
  const FormWindow* window = FrontWindow();
  if (window == nullptr || !window->isVisible() || window->isMinimized()) return;
  if (QGuiApplication::platformName() == kUncoveringPlatform) {
    const DrawWatch watch(*window->windowHandle());
    QTimer end;
    end.setSingleShot(true);
    end.start(Milliseconds(kLongestUncovering));
    while (end.isActive() && !watch.Drawn) {
      Process(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    }
  }
  Process(QEventLoop::ExcludeUserInputEvents);
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
  const QScopedValueRollback<int> nested(depth_, depth_ + 1);
  DrawWhatWasCovered();
}

}  // namespace tintbench::desktop
