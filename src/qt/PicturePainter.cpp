#include "qt/PicturePainter.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "qt/Colours.h"
#include "qt/NamedPictures.h"
#include "qt/QtText.h"
#include "ui/Controls.h"

namespace tintbench::desktop {

namespace {

constexpr double kPenWidth = 1.2;  // logical pixels, whatever the picture's scale

// All that a painter of one drawing needs.
struct Canvas {
  QPainter& Painter;
  const QTransform& Scale;
  const QPalette& Palette;

  QColor Colour(ui::Colour colour) const { return ToQt(colour, Palette); }
  QPointF Point(double x, double y) const { return Scale.map(QPointF(x, y)); }
  QRectF Rect(double x1, double y1, double x2, double y2) const {
    return QRectF(Point(x1, y1), Point(x2, y2)).normalized();
  }
  void SetPen(ui::Colour colour, double width = 1) const {
    Painter.setPen(QPen(Colour(colour), width * kPenWidth, Qt::SolidLine, Qt::RoundCap));
  }
  void SetFill(bool filled, ui::Colour colour) const {
    Painter.setBrush(filled ? QBrush(Colour(colour)) : QBrush(Qt::NoBrush));
  }
};

using Drawer = void (*)(const Canvas&, const ui::Drawing&);

QRectF Around(const Canvas& canvas, const ui::Drawing& drawing) {
  return canvas.Rect(drawing.X1 - drawing.Radius, drawing.Y1 - drawing.Radius,
                     drawing.X1 + drawing.Radius, drawing.Y1 + drawing.Radius);
}

void PaintLine(const Canvas& canvas, const ui::Drawing& drawing) {
  canvas.Painter.drawLine(canvas.Point(drawing.X1, drawing.Y1),
                          canvas.Point(drawing.X2, drawing.Y2));
}

void PaintBox(const Canvas& canvas, const ui::Drawing& drawing) {
  canvas.Painter.drawRect(canvas.Rect(drawing.X1, drawing.Y1, drawing.X2, drawing.Y2));
}

// Edges that two boxes share must not let the ground shine through.
void PaintFilledBox(const Canvas& canvas, const ui::Drawing& drawing) {
  canvas.Painter.setRenderHint(QPainter::Antialiasing, false);
  canvas.Painter.fillRect(canvas.Rect(drawing.X1, drawing.Y1, drawing.X2, drawing.Y2),
                          canvas.Colour(drawing.Fill));
  canvas.Painter.setRenderHint(QPainter::Antialiasing, true);
}

void PaintCircle(const Canvas& canvas, const ui::Drawing& drawing) {
  canvas.Painter.drawEllipse(Around(canvas, drawing));
}

void PaintPie(const Canvas& canvas, const ui::Drawing& drawing) {
  constexpr double kQtUnits = 16;  // to a degree
  double span = std::fmod(drawing.EndAngle - drawing.StartAngle, 360.0);
  if (span <= 0) span += 360.0;
  const int start = static_cast<int>(std::lround(drawing.StartAngle * kQtUnits));
  const int length = static_cast<int>(std::lround(span * kQtUnits));
  const QRectF around = Around(canvas, drawing);
  if (drawing.Radii) {
    canvas.Painter.drawPie(around, start, length);
  } else {
    canvas.Painter.drawArc(around, start, length);
  }
}

// In the order of ui::TextPlace.
constexpr std::array<int, 4> kAlignments{
    Qt::AlignLeft | Qt::AlignTop, Qt::AlignLeft | Qt::AlignVCenter,
    Qt::AlignHCenter | Qt::AlignVCenter, Qt::AlignRight | Qt::AlignVCenter};

void PaintText(const Canvas& canvas, const ui::Drawing& drawing) {
  const QFont own = canvas.Painter.font();
  const double height = drawing.TextHeight * std::abs(canvas.Scale.m22());
  if (height >= 1) {
    QFont font = own;
    font.setPixelSize(qRound(height));
    canvas.Painter.setFont(font);
  }
  const QRectF area(canvas.Point(drawing.X1, drawing.Y1), QSizeF(0, 0));
  canvas.Painter.drawText(
      area, kAlignments.at(static_cast<std::size_t>(drawing.Place)) | Qt::TextDontClip,
      ToQtLines(drawing.Words));
  canvas.Painter.setFont(own);
}

void PaintPath(const Canvas& canvas, const ui::Drawing& drawing) {
  QPolygonF points;
  points.reserve(static_cast<qsizetype>(drawing.Points.size()));
  for (const ui::PicturePoint& point : drawing.Points) {
    points.append(canvas.Point(point.X, point.Y));
  }
  canvas.Painter.drawPolyline(points);
}

struct KindDrawer {
  ui::DrawingKind Kind;
  Drawer Paint;
};

constexpr std::array<KindDrawer, 7> kDrawers{{{ui::DrawingKind::Line, PaintLine},
                                              {ui::DrawingKind::Box, PaintBox},
                                              {ui::DrawingKind::FilledBox, PaintFilledBox},
                                              {ui::DrawingKind::Circle, PaintCircle},
                                              {ui::DrawingKind::Pie, PaintPie},
                                              {ui::DrawingKind::Text, PaintText},
                                              {ui::DrawingKind::Path, PaintPath}}};

void PaintDrawing(const Canvas& canvas, const ui::Drawing& drawing) {
  const auto* const drawer =
      std::find_if(kDrawers.begin(), kDrawers.end(),
                   [&](const KindDrawer& entry) { return entry.Kind == drawing.Kind; });
  canvas.SetPen(drawing.Line);
  canvas.SetFill(drawing.Filled, drawing.Fill);
  if (drawer != kDrawers.end()) drawer->Paint(canvas, drawing);
}

QRectF PlaceOf(const Canvas& canvas, const ui::Control& control) {
  return canvas.Rect(control.Left, control.Top, control.Left + control.Width,
                     control.Top + control.Height);
}

void PaintChild(const Canvas& canvas, const ui::Control& control) {
  if (const auto* line = dynamic_cast<const ui::Line*>(&control)) {
    canvas.SetPen(line->BorderColor, line->BorderWidth);
    canvas.Painter.drawLine(canvas.Point(line->X1, line->Y1), canvas.Point(line->X2, line->Y2));
  } else if (const auto* shape = dynamic_cast<const ui::Shape*>(&control)) {
    PaintShape(canvas.Painter, *shape, PlaceOf(canvas, *shape), canvas.Palette);
  } else if (const auto* image = dynamic_cast<const ui::Image*>(&control)) {
    PaintNamed(canvas.Painter, image->Picture.Get(), PlaceOf(canvas, *image), canvas.Palette);
  } else if (const auto* label = dynamic_cast<const ui::Label*>(&control)) {
    canvas.SetPen(label->ForeColor);
    canvas.Painter.drawText(PlaceOf(canvas, *label),
                            Qt::AlignLeft | Qt::AlignTop | Qt::TextDontClip,
                            ToQtLines(label->Caption.Get()));
  }
}

bool StandsInBack(const ui::Control& control) {
  const auto* line = dynamic_cast<const ui::Line*>(&control);
  return line != nullptr && line->InBack;
}

}  // namespace

QTransform PictureScale(const ui::PictureBox& picture, const QRectF& area, bool keepShape) {
  const double width = std::max(picture.ScaleWidth.Get(), 1.0);
  const double height = std::max(picture.ScaleHeight.Get(), 1.0);
  double across = area.width() / width;
  double down = area.height() / height;
  if (keepShape) across = down = std::min(across, down);
  QTransform scale;
  scale.translate(area.center().x() - width * across / 2, area.center().y() - height * down / 2);
  scale.scale(across, down);
  return scale;
}

void PaintPicture(QPainter& painter, const ui::PictureBox& picture, const QTransform& scale,
                  const QPalette& palette) {
  const Canvas canvas{painter, scale, palette};
  painter.setRenderHint(QPainter::Antialiasing, true);
  const QRectF whole = canvas.Rect(0, 0, picture.ScaleWidth, picture.ScaleHeight);
  PaintNamed(painter, picture.Picture.Get(), whole, palette);
  for (const ui::Drawing& drawing : picture.Drawn.Get()) PaintDrawing(canvas, drawing);
  for (const bool back : {true, false}) {
    for (const ui::Control* child : picture.Children()) {
      if (child->Visible && StandsInBack(*child) == back) PaintChild(canvas, *child);
    }
  }
}

void PaintShape(QPainter& painter, const ui::Shape& shape, const QRectF& area,
                const QPalette& palette) {
  const double edge = std::min(area.width(), area.height());
  const bool round = shape.Form == ui::kOval || shape.Form == ui::kCircle;
  const bool even = shape.Form == ui::kSquare || shape.Form == ui::kCircle;
  QRectF place(area.topLeft(), even ? QSizeF(edge, edge) : area.size());
  place.moveCenter(area.center());
  painter.setPen(QPen(ToQt(shape.BorderColor, palette), kPenWidth));
  painter.setBrush(shape.FillSolid ? QBrush(ToQt(shape.FillColor, palette)) : QBrush(Qt::NoBrush));
  if (round) {
    painter.drawEllipse(place);
  } else {
    painter.drawRect(place);
  }
  PaintSign(painter, place, ToQt(shape.Sign.Get()), ToQt(shape.FillColor, palette));
}

void PaintSign(QPainter& painter, const QRectF& area, const QString& sign, const QColor& ground) {
  constexpr double kPartOfHeight = 0.68;
  const int size = static_cast<int>(area.height() * kPartOfHeight);
  if (sign.isEmpty() || size < 1) return;
  QFont font = painter.font();
  font.setPixelSize(size);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(SignOn(ground));
  painter.drawText(area, Qt::AlignCenter | Qt::TextDontClip, sign);
}

}  // namespace tintbench::desktop
