#include "qt/Card.h"

#include <QPainter>
#include <QVBoxLayout>

#include "qt/Look.h"

namespace tintbench::desktop {

Card::Card(QWidget* parent) : QFrame(parent), body_(new QVBoxLayout(this)) {
  const int margin = Em(*this) / 2;
  body_->setContentsMargins(margin, margin, margin, margin);
  body_->setSpacing(margin);
}

void Card::paintEvent(QPaintEvent*) {
  if (autoFillBackground()) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(palette().color(QPalette::Base));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

}  // namespace tintbench::desktop
