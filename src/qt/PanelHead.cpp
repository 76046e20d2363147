#include "qt/PanelHead.h"

#include <QPainter>
#include <array>
#include <utility>

#include "qt/Look.h"

namespace tintbench::desktop {

void PanelHead::ShowLarge(bool large) {
  if (large_ == large) return;
  large_ = large;
  update();
}

QSize PanelHead::sizeHint() const {
  const int em = Em(*this);
  return {fontMetrics().horizontalAdvance(text()) + 4 * em, em * 3 / 2};
}

void PanelHead::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  const bool lit = isEnabled() && (underMouse() || isDown());
  painter.setBrush(palette().color(lit ? QPalette::Midlight : QPalette::Button));
  painter.drawRect(rect().adjusted(0, 0, -1, 0));
  const int inset = Em(*this) / 2;
  const QRect inside = rect().adjusted(inset, 0, -inset, 0);
  painter.setPen(palette().color(QPalette::ButtonText));
  painter.setFont(ScaledFont(*this, 1, true));
  painter.drawText(inside, Qt::AlignLeft | Qt::AlignVCenter, text());
  painter.setRenderHint(QPainter::Antialiasing, true);
  QRectF sign(0, 0, Em(*this) * 0.75, Em(*this) * 0.75);
  sign.moveCenter(QPointF(inside.right() - sign.width() / 2, rect().center().y() + 0.5));
  PaintSizeSign(painter, sign);
}

// Four corners that point outwards, or inwards while the panel is large.
void PanelHead::PaintSizeSign(QPainter& painter, const QRectF& area) const {
  painter.setPen(QPen(palette().color(QPalette::ButtonText), 1.5));
  const double arm = area.width() * 0.3;
  const QPointF middle = area.center();
  const double reach = area.width() * (large_ ? 0.2 : 0.5);
  const double back = large_ ? arm : -arm;
  for (const auto& [x, y] :
       {std::pair(-1, -1), std::pair(1, -1), std::pair(-1, 1), std::pair(1, 1)}) {
    const QPointF corner = middle + QPointF(x * reach, y * reach);
    const std::array<QPointF, 3> line{corner + QPointF(x * back, 0), corner,
                                      corner + QPointF(0, y * back)};
    painter.drawPolyline(line.data(), static_cast<int>(line.size()));
  }
}

}  // namespace tintbench::desktop
