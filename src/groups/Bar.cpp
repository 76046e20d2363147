#include "groups/Bar.h"

#include "groups/Dial.h"

namespace tintbench::groups {

namespace {

constexpr ui::Colour kAlarmBandColour{0x0000FF};
constexpr ui::Colour kGoodBandColour{0x008000};
constexpr int kTickSteps = 10;
constexpr int kNumberSteps = 5;
constexpr double kTickStart = 2.5;  // part of the shift that lies left of the ticks
constexpr double kNumberGap = 60;
constexpr double kColumnNumberHeight = 0.055;  // height of the numbers, of the column's

}  // namespace

void Bar::Draw(const AnalogueInput& input, double factor, double value) {
  const double width = column_.ScaleWidth;
  const double height = column_.ScaleHeight;
  const double y = height - (value - input.Start.Value) * factor;
  column_.Cls();
  column_.DrawFilledBox(0, y, width, height, column_.FillColor);
  column_.DrawFilledBox(0, 0, width, y, column_.BackColor);
}

void Bar::DrawScale(const AnalogueInput& input, double factor, BarKind kind) {
  scale_.ForeColor = ui::kWindowTextColour;
  if (kind == BarKind::Level) DrawTicks();
  DrawNumbers(input, factor);
  DrawBand(input, factor);
  if (kind == BarKind::Level) {
    const double zero = Bottom() + input.Start.Value * factor;
    scale_.ForeColor = ui::kWindowColour;
    scale_.DrawLine(Shift(), zero, scale_.ScaleWidth, zero);
  }
}

void Bar::DrawTicks() {
  for (int step = 0; step <= kTickSteps; ++step) {
    const double y = Top() + column_.ScaleHeight / kTickSteps * step;
    scale_.DrawLine(Shift() / kTickStart, y, Shift(), y);
  }
}

void Bar::DrawNumbers(const AnalogueInput& input, double factor) {
  const double span = input.End.Value - input.Start.Value;
  for (int step = 0; step <= kNumberSteps; ++step) {
    const double above = span / kNumberSteps * step;
    scale_.DrawText(Shift() / kTickStart - kNumberGap, Bottom() - above * factor,
                    ScaleNumber(input.Start.Value + above, span),
                    column_.ScaleHeight * kColumnNumberHeight, ui::TextPlace::Right);
  }
}

void Bar::DrawBand(const AnalogueInput& input, double factor) {
  const double left = Shift();
  const double right = scale_.ScaleWidth;
  const double low = Bottom() - (input.Low.Value - input.Start.Value) * factor;
  const double high = Bottom() - (input.High.Value - input.Start.Value) * factor;
  scale_.FillSolid = true;
  scale_.DrawFilledBox(left, low, right, Bottom(), kAlarmBandColour);
  scale_.DrawFilledBox(left, high, right, Top(), kAlarmBandColour);
  scale_.DrawFilledBox(left, high, right, low, kGoodBandColour);
}

}  // namespace tintbench::groups
