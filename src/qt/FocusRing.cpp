#include "qt/FocusRing.h"

#include <QApplication>
#include <QPainter>

namespace tintbench::desktop {

FocusRing::FocusRing(QApplication& application, QObject& style) : QObject(&style) {
  connect(&application, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { PutAround(now); });
}

// What the keyboard doesn't come to is no place of its own.
void FocusRing::PutAround(QWidget* widget) {
  const bool marked = widget != nullptr && (widget->focusPolicy() & Qt::TabFocus) != 0;
  if (marked && frame_ == nullptr) frame_ = new QFocusFrame;
  if (frame_ != nullptr) frame_->setWidget(marked ? widget : nullptr);
}

void FocusRing::Paint(QPainter& painter, const QRect& area, const QPalette& palette) {
  constexpr double kWidth = 2;
  constexpr double kCorner = 4;
  const double inset = kWidth / 2;
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(QPen(palette.color(QPalette::Active, QPalette::Highlight), kWidth));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(area).adjusted(inset, inset, -inset, -inset), kCorner, kCorner);
}

}  // namespace tintbench::desktop
