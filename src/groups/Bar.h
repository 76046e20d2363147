// The bar of a level or a temperature: a column that fills, and beside it a scale with the alarm
// band. Both are picture boxes, in their own units.
#pragma once

#include "groups/GroupRows.h"
#include "ui/Picture.h"

namespace tintbench::groups {

enum class BarKind { Level, Temperature };

class Bar {
 public:
  Bar(ui::PictureBox& column, ui::PictureBox& scale) : column_(column), scale_(scale) {}

  // Draws the side scale of an enabled input. `factor` is in picture units for each unit of the
  // reading.
  void DrawScale(const AnalogueInput& input, double factor, BarKind kind);

  void Draw(const AnalogueInput& input, double factor, double value);

 private:
  // Where the column stands, seen from the scale.
  double Shift() const { return scale_.Left - column_.Left; }
  double Top() const { return scale_.Top - column_.Top; }
  double Bottom() const { return Top() + column_.ScaleHeight; }

  void DrawTicks();
  void DrawNumbers(const AnalogueInput& input, double factor);
  void DrawBand(const AnalogueInput& input, double factor);

  ui::PictureBox& column_;
  ui::PictureBox& scale_;
};

}  // namespace tintbench::groups
