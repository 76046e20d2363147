// Notices that the system wants the program to end: by a signal, with the desktop session, or by
// the toolkit's own way of being told to quit.
#pragma once

#include <QObject>
#include <functional>

namespace tintbench::desktop {

// Needs an Application that outlives it.
class EndWatch final : public QObject {
 public:
  // `end` is called while events are served, each time that the end is asked for. `descriptor` can
  // be read once a signal has come, and is -1 without; `end` reads it.
  EndWatch(int descriptor, std::function<void()> end);
  ~EndWatch() override;
  EndWatch(const EndWatch&) = delete;
  EndWatch& operator=(const EndWatch&) = delete;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  std::function<void()> end_;
};

}  // namespace tintbench::desktop
