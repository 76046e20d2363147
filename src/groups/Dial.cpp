#include "groups/Dial.h"

#include <array>
#include <cmath>

#include "base/Numbers.h"

namespace tintbench::groups {

namespace {

constexpr double kRadian = 0.017453292519943278;  // a degree
constexpr double kThirtyDegrees = 0.5235987755982984;
constexpr double kStartAngle = 225;
constexpr double kEndAngle = 315;
constexpr double kSpanAngle = 270;
constexpr double kFacePart = 0.8;     // of the dial's radius
constexpr double kBandPart = 0.7;     // of the face's radius
constexpr double kNumberPart = 0.93;  // where the numbers stand, of the dial's radius
constexpr double kNumberHeight = 0.17;
constexpr int kNeedleWidth = 3;

constexpr ui::Colour kRimColour{0xE0E0E0};
constexpr ui::Colour kInnerRimColour{0xC0C0C0};
constexpr ui::Colour kFaceColour{0xFFFFFF};
constexpr ui::Colour kBlack{0x000000};
constexpr ui::Colour kAlarmColour{0x0000FF};
constexpr ui::Colour kGoodColour{0x008000};
constexpr ui::Colour kPumpColour{0x808080};

// The angles of the ticks, by the way the needle goes.
constexpr std::array<double, 7> kTicks{225, 180, 135, 90, 45, 0, -45};

double Normalise(double angle) { return angle <= 0 ? angle + 360 : angle; }

bool SameAngle(double one, double other) { return std::abs(one - other) < 1e-4; }

}  // namespace

std::string ScaleNumber(double value, double span) {
  const int decimals = span >= 60 ? 0 : span >= 6 ? 1 : 2;
  return base::PlainNumber(base::RoundHalfEven(value, decimals));
}

void Dial::LoadNeedle() {
  window_.LnP.Load(index_).BorderWidth = kNeedleWidth;
  window_.LnC.Load(index_).BorderWidth = kNeedleWidth;
}

void Dial::UnloadNeedle() {
  if (index_ == 0) return;
  window_.LnC.Unload(index_);
  window_.LnP.Unload(index_);
}

void Dial::DrawCircle(double radius, ui::Colour line, ui::Colour fill) {
  picture_.ForeColor = line;
  picture_.FillColor = fill;
  picture_.DrawCircle(centreX_, centreY_, radius);
}

void Dial::Draw(const AnalogueInput& input, double factor) {
  centreX_ = picture_.ScaleWidth / 2;
  centreY_ = picture_.ScaleHeight * 1.3 / 2;
  radius_ = centreX_ * 7 / 8 - 30;
  needleLength_ = radius_ * kFacePart;
  ui::Line& lower = window_.LnP(index_);
  ui::Line& upper = window_.LnC(index_);
  lower.X1 = upper.X1 = centreX_;
  lower.Y1 = centreY_ + 1;
  upper.Y1 = centreY_;
  DrawFace();
  DrawTicks(input.End.Value - input.Start.Value);
  DrawNeedle(kStartAngle);
  lower.Visible = true;
  upper.Visible = true;
  DrawBand(input, factor);
  DrawHub();
  DrawPump();
  picture_.Refresh();
}

void Dial::DrawFace() {
  picture_.FillSolid = true;
  DrawCircle(radius_, ui::kWindowTextColour, kRimColour);
  DrawCircle(radius_ * 0.88, kInnerRimColour, kInnerRimColour);
  DrawCircle(radius_ * kFacePart, ui::kWindowTextColour, kFaceColour);
}

// The numbers are those that the needle points at, so that it tells the reading on every scale.
void Dial::DrawTicks(double span) {
  for (const double angle : kTicks) {
    const double across = std::cos(angle * kRadian);
    const double up = std::sin(angle * kRadian);
    const auto x = [&](double part) { return centreX_ + radius_ * part * across; };
    const auto y = [&](double part) { return centreY_ - radius_ * part * up; };
    picture_.ForeColor = kBlack;
    picture_.DrawLine(x(0.6), y(0.6), x(kFacePart), y(kFacePart));
    picture_.ForeColor = ui::kWindowTextColour;
    picture_.DrawText(x(kNumberPart), y(kNumberPart),
                      ScaleNumber((kStartAngle - angle) / kSpanAngle * span, span),
                      radius_ * kNumberHeight, ui::TextPlace::Centre);
  }
}

void Dial::DrawSector(double from, double to, ui::Colour colour) {
  if (SameAngle(from, to)) return;
  picture_.ForeColor = colour;
  picture_.FillColor = colour;
  picture_.DrawPie(centreX_, centreY_, radius_ * kFacePart * kBandPart, from, to, true);
}

void Dial::DrawBand(const AnalogueInput& input, double factor) {
  const auto angle = [&](double value) {
    return Normalise(kStartAngle - (value - input.Start.Value) * factor);
  };
  const double low = angle(input.Low.Value);
  const double high = angle(input.High.Value);
  picture_.FillSolid = true;
  DrawSector(low, kStartAngle, kAlarmColour);
  DrawSector(high, low, kGoodColour);
  DrawSector(kEndAngle, high, kAlarmColour);
}

void Dial::DrawHub() {
  const double face = radius_ * kFacePart;
  picture_.FillSolid = false;
  picture_.ForeColor = kFaceColour;
  picture_.DrawCircle(centreX_, centreY_, face * 0.1);
  picture_.ForeColor = ui::kWindowTextColour;
  picture_.DrawCircle(centreX_, centreY_, face * 0.06);
  picture_.DrawPie(centreX_, centreY_, face * kBandPart, kEndAngle, kStartAngle, true);
}

// A triangle in a circle with a pipe on each side; it points the way that the liquid goes.
void Dial::DrawPump() {
  const double face = radius_ * kFacePart;
  const double y = centreY_ - 2 * face;
  const double dx = face * 0.25;
  const double dy = dx / std::tan(kThirtyDegrees);
  const double way = index_ == 0 ? 1 : -1;
  const double base = centreX_ + way * dx;
  const double tip = centreX_ - way * 2 * dx;
  picture_.ForeColor = kPumpColour;
  picture_.DrawLine(base, y - dy, base, y + dy);
  picture_.DrawLine(base, y + dy, tip, y);
  picture_.DrawLine(tip, y, base, y - dy);
  picture_.DrawLine(centreX_ - 2 * dx - 4.6 * dx, y, centreX_ - 2 * dx, y);
  picture_.DrawLine(centreX_ + 4.6 * dx, y, centreX_ + 2 * dx, y);
  picture_.DrawCircle(centreX_, y, 2 * dx);
}

void Dial::DrawNeedle(double angle) {
  const double up = std::sin(angle * kRadian) * needleLength_;
  const double across = std::cos(angle * kRadian) * needleLength_;
  for (ui::Line* line : {&window_.LnP(index_), &window_.LnC(index_)}) {
    line->Y2 = line->Y1 - up;
    line->X2 = line->X1 + across;
  }
}

}  // namespace tintbench::groups
