#include "qt/NamedPictures.h"

#include <QPainterPath>
#include <algorithm>
#include <array>

#include "qt/CpuCard.h"
#include "state/CardLayout.h"

namespace tintbench::desktop {

namespace {

using PicturePainter = void (*)(QPainter&, const QRectF&, const QPalette&);

// A recorder's pen that writes with its left end.
void PaintPen(QPainter& painter, const QRectF& area, const QPalette& palette) {
  QPainterPath pen(QPointF(area.left(), area.center().y()));
  pen.lineTo(area.left() + area.width() / 3, area.top());
  pen.lineTo(area.right(), area.top());
  pen.lineTo(area.right(), area.bottom());
  pen.lineTo(area.left() + area.width() / 3, area.bottom());
  pen.closeSubpath();
  painter.setPen(Qt::NoPen);
  painter.fillPath(pen, palette.color(QPalette::Highlight));
}

struct NamedPicture {
  std::string_view Name;
  PicturePainter Paint;
};

constexpr std::array<NamedPicture, 2> kPictures{
    {{"pen", PaintPen}, {state::kCardPicture, PaintCpuCard}}};

}  // namespace

void PaintNamed(QPainter& painter, std::string_view name, const QRectF& area,
                const QPalette& palette) {
  const auto* const found =
      std::find_if(kPictures.begin(), kPictures.end(),
                   [name](const NamedPicture& picture) { return picture.Name == name; });
  if (found != kPictures.end()) found->Paint(painter, area, palette);
}

void PaintDrop(QPainter& painter, const QRectF& area, const QColor& colour) {
  const double width = area.width();
  const double height = area.height();
  const QPointF tip(area.center().x(), area.top());
  const QPointF foot(area.center().x(), area.bottom());
  QPainterPath drop(tip);
  drop.cubicTo(tip + QPointF(width * 0.12, height * 0.30),
               area.topRight() + QPointF(0, height * 0.42),
               QPointF(area.right(), area.top() + height * 0.66));
  drop.cubicTo(QPointF(area.right(), area.top() + height * 0.86), foot + QPointF(width * 0.28, 0),
               foot);
  drop.cubicTo(foot - QPointF(width * 0.28, 0), QPointF(area.left(), area.top() + height * 0.86),
               QPointF(area.left(), area.top() + height * 0.66));
  drop.cubicTo(area.topLeft() + QPointF(0, height * 0.42),
               tip + QPointF(-width * 0.12, height * 0.30), tip);
  painter.setPen(Qt::NoPen);
  painter.fillPath(drop, colour);
}

}  // namespace tintbench::desktop
