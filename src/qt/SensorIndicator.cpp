#include "qt/SensorIndicator.h"

#include <QPainter>
#include <algorithm>
#include <array>

#include "qt/Binding.h"
#include "qt/Colours.h"
#include "qt/Look.h"
#include "qt/PicturePainter.h"

namespace tintbench::desktop {

SensorIndicator::SensorIndicator(Form form, QWidget* parent) : QCheckBox(parent), form_(form) {
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

QSize SensorIndicator::sizeHint() const {
  const int em = Em(*this);
  return {form_ == Form::Pill ? em * 5 / 2 : em, em};
}

void SensorIndicator::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing, true);
  // The desktop's own colours say that there is nothing to show.
  const bool hasData = !colour_.IsSystem();
  const QColor fill = ToQt(colour_, palette());
  const QColor outline =
      Halfway(palette().color(QPalette::WindowText), palette().color(QPalette::Window));
  painter.setPen(QPen(outline, 1.2, hasData ? Qt::SolidLine : Qt::DashLine));
  painter.setBrush(hasData ? QBrush(fill) : QBrush(Qt::NoBrush));
  QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
  if (form_ == Form::Square) {
    const double edge = std::min(area.width(), area.height());
    const QPointF middle = area.center();
    area.setSize({edge, edge});
    area.moveCenter(middle);
  }
  const double radius = form_ == Form::Pill ? area.height() / 2 : area.height() / 8;
  painter.drawRoundedRect(area, radius, radius);
  if (!hasData) return;
  if (form_ == Form::Pill) {
    PaintPill(painter, area, fill);
  } else {
    PaintSquare(painter, area);
  }
}

void SensorIndicator::PaintPill(QPainter& painter, const QRectF& area, const QColor& fill) const {
  PaintSign(painter, area, isChecked() ? "ON" : "OFF", fill);
}

void SensorIndicator::PaintSquare(QPainter& painter, const QRectF& area) const {
  if (!isChecked()) return;
  const auto at = [&](double x, double y) {
    return QPointF(area.left() + area.width() * x, area.top() + area.height() * y);
  };
  const std::array<QPointF, 3> mark{at(0.22, 0.52), at(0.43, 0.74), at(0.80, 0.26)};
  painter.setPen(QPen(Qt::white, area.width() / 7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(mark.data(), static_cast<int>(mark.size()));
}

Binding& Bind(ui::CheckBox& control, SensorIndicator& widget) {
  auto* const binding = new Binding(control, widget, Dressing::ByPainting);
  binding->Follow({&control.Value}, [&] { widget.setChecked(control.Value == ui::kChecked); });
  binding->Follow({&control.BackColor}, [&] {
    widget.colour_ = control.BackColor;
    widget.update();
  });
  return *binding;
}

}  // namespace tintbench::desktop
