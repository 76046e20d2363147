// Brings every key to the window's form before the widget that has the focus sees it.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QPointer>
#include <QWidget>

namespace tintbench::desktop {

class FormWindow;

// Watches the whole application while it lives.
class KeyGate final : public QObject {
 public:
  KeyGate();
  ~KeyGate() override;
  KeyGate(const KeyGate&) = delete;
  KeyGate& operator=(const KeyGate&) = delete;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsOnItsWayUp(const QWidget& widget, const QKeyEvent& event);
  bool ServeMenuKey(QWidget& widget, const QKeyEvent& event);

  // Where the last key was seen: a key that nobody takes goes on from holder to holder.
  const QKeyEvent* lastEvent_ = nullptr;
  QPointer<const QWidget> lastWidget_;
};

}  // namespace tintbench::desktop
