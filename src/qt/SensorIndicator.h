// A sensor's state as a button-like pill or as a square: red with a sign, dark green, or an empty
// outline while there are no data. It is there to be read, not to be pressed.
#pragma once

#include <QCheckBox>

#include "ui/Controls.h"

namespace tintbench::desktop {

class Binding;

class SensorIndicator final : public QCheckBox {
 public:
  enum class Form { Pill, Square };

  SensorIndicator(Form form, QWidget* parent);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  friend Binding& Bind(ui::CheckBox& control, SensorIndicator& widget);

  void PaintPill(QPainter& painter, const QRectF& area, const QColor& fill) const;
  void PaintSquare(QPainter& painter, const QRectF& area) const;

  Form form_;
  ui::Colour colour_ = ui::kButtonFaceColour;
};

Binding& Bind(ui::CheckBox& control, SensorIndicator& widget);

}  // namespace tintbench::desktop
