#include "ui/Picture.h"

#include <algorithm>

namespace tintbench::ui {

namespace {

bool Covers(const Drawing& upper, const Drawing& lower) {
  return lower.Kind == DrawingKind::FilledBox &&
         std::min(upper.X1, upper.X2) <= std::min(lower.X1, lower.X2) &&
         std::max(upper.X1, upper.X2) >= std::max(lower.X1, lower.X2) &&
         std::min(upper.Y1, upper.Y2) <= std::min(lower.Y1, lower.Y2) &&
         std::max(upper.Y1, upper.Y2) >= std::max(lower.Y1, lower.Y2);
}

}  // namespace

std::string PropertyText(const Drawings& drawings) { return std::to_string(drawings.size()); }

void PictureBox::Append(Drawing drawing) {
  drawing.Line = ForeColor;
  Drawn.Change([&](Drawings& drawings) { drawings.push_back(std::move(drawing)); });
}

void PictureBox::DrawLine(double x1, double y1, double x2, double y2) {
  Append({.Kind = DrawingKind::Line, .X1 = x1, .Y1 = y1, .X2 = x2, .Y2 = y2});
}

void PictureBox::DrawCircle(double x, double y, double radius) {
  Append({.Kind = DrawingKind::Circle,
          .X1 = x,
          .Y1 = y,
          .Radius = radius,
          .Filled = FillSolid,
          .Fill = FillColor});
}

void PictureBox::DrawPie(double x, double y, double radius, double startAngle, double endAngle,
                         bool radii) {
  Append({.Kind = DrawingKind::Pie,
          .X1 = x,
          .Y1 = y,
          .Radius = radius,
          .StartAngle = startAngle,
          .EndAngle = endAngle,
          .Radii = radii,
          .Filled = FillSolid && radii,
          .Fill = FillColor});
}

void PictureBox::DrawText(double x, double y, std::string words, double height, TextPlace place) {
  Append({.Kind = DrawingKind::Text,
          .X1 = x,
          .Y1 = y,
          .Words = std::move(words),
          .Place = place,
          .TextHeight = height});
}

void PictureBox::DrawPath(std::vector<PicturePoint> points) {
  Append({.Kind = DrawingKind::Path, .Points = std::move(points)});
}

void PictureBox::DrawBox(double x1, double y1, double x2, double y2) {
  Append({.Kind = DrawingKind::Box,
          .X1 = x1,
          .Y1 = y1,
          .X2 = x2,
          .Y2 = y2,
          .Filled = FillSolid,
          .Fill = FillColor});
}

void PictureBox::DrawFilledBox(double x1, double y1, double x2, double y2, Colour colour) {
  Drawing box{.Kind = DrawingKind::FilledBox,
              .X1 = x1,
              .Y1 = y1,
              .X2 = x2,
              .Y2 = y2,
              .Filled = true,
              .Line = colour,
              .Fill = colour};
  Drawn.Change([&](Drawings& drawings) {
    std::erase_if(drawings, [&](const Drawing& lower) { return Covers(box, lower); });
    drawings.push_back(box);
  });
}

}  // namespace tintbench::ui
