#include "qt/EndWatch.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <utility>

namespace tintbench::desktop {

EndWatch::EndWatch(int descriptor, std::function<void()> end) : end_(std::move(end)) {
  QCoreApplication::instance()->installEventFilter(this);
  if (descriptor >= 0) {
    auto* const notifier = new QSocketNotifier(descriptor, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] { end_(); });
  }
  // The session waits only while it is served, and must not start the program again by itself.
  if (auto* const windowed = qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
    connect(windowed, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& session) {
      session.setRestartHint(QSessionManager::RestartNever);
      end_();
    });
  }
}

EndWatch::~EndWatch() {
  if (auto* const application = QCoreApplication::instance()) application->removeEventFilter(this);
}

// The toolkit would close all its windows at once, in an order of its own.
bool EndWatch::eventFilter(QObject* watched, QEvent* event) {
  if (watched != QCoreApplication::instance() || event->type() != QEvent::Quit) return false;
  end_();
  return true;
}

}  // namespace tintbench::desktop
