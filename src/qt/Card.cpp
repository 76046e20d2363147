#include "qt/Card.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>

#include "qt/Look.h"

namespace tintbench::desktop {

Card::Card(const QString& title, QWidget* parent)
    : QFrame(parent), head_(new QHBoxLayout), body_(new QVBoxLayout) {
  auto* const words = new QLabel(title, this);
  words->setTextFormat(Qt::PlainText);
  words->setFont(ScaledFont(*this, 1.1, true));
  head_->addWidget(words);
  head_->addStretch();
  auto* const rows = new QVBoxLayout(this);
  const int margin = Em(*this) * 3 / 4;
  rows->setContentsMargins(margin, margin, margin, margin);
  rows->addLayout(head_);
  rows->addLayout(body_, 1);
}

void Card::paintEvent(QPaintEvent*) {
  if (autoFillBackground()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(palette().color(QPalette::Mid));
  painter.setBrush(palette().color(QPalette::Base));
  const double radius = Em(*this) * 0.4;
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

}  // namespace tintbench::desktop
