// The ring around whatever has the keyboard's focus, the same for every kind of control: what the
// toolkit's style marks itself is too faint, or isn't marked at all until Tab was pressed.
#pragma once

#include <QFocusFrame>
#include <QObject>
#include <QPointer>

class QApplication;
class QPainter;

namespace tintbench::desktop {

class FocusRing final : public QObject {
 public:
  // How far it reaches beyond the widget, in logical pixels.
  static constexpr int kMargin = 3;

  // Lives as long as `style`, which paints it by `Paint`.
  FocusRing(QApplication& application, QObject& style);

  static void Paint(QPainter& painter, const QRect& area, const QPalette& palette);

 private:
  void PutAround(QWidget* widget);

  QPointer<QFocusFrame> frame_;  // belongs to the window that it stands in
};

}  // namespace tintbench::desktop
