// Picture boxes and what stands in them. What is drawn is kept as data, in the picture's own
// units, so that a view can paint it at any size and a test can read it.
#pragma once

#include <string>
#include <vector>

#include "ui/Control.h"

namespace tintbench::ui {

enum class DrawingKind { Line, Box, FilledBox, Circle, Pie, Text, Path };

// What of a text stands at its point. Of the others than UpperLeft the middle of its height does.
enum class TextPlace { UpperLeft, Left, Centre, Right };

struct PicturePoint {
  double X = 0;
  double Y = 0;
  friend bool operator==(const PicturePoint&, const PicturePoint&) = default;
};

// One thing drawn. A line or box lies between (X1, Y1) and (X2, Y2). A circle or pie has its
// centre at (X1, Y1) and `Radius`; a pie is the sector or arc counter-clockwise from
// `StartAngle` to `EndAngle`, in degrees from the positive x axis.
struct Drawing {
  DrawingKind Kind = DrawingKind::Line;
  double X1 = 0;
  double Y1 = 0;
  double X2 = 0;
  double Y2 = 0;
  double Radius = 0;
  double StartAngle = 0;
  double EndAngle = 360;
  bool Radii = false;   // an arc with the two lines to its centre
  bool Filled = false;  // with `Fill`; otherwise only the outline
  Colour Line;
  Colour Fill;
  std::string Words;  // of a text, placed at (X1, Y1)
  TextPlace Place = TextPlace::UpperLeft;
  double TextHeight = 0;             // of a line of it; 0: as large as the view's own letters
  std::vector<PicturePoint> Points;  // of a path, one line through all of them
  friend bool operator==(const Drawing&, const Drawing&) = default;
};
using Drawings = std::vector<Drawing>;
std::string PropertyText(const Drawings& drawings);

class PictureBox : public Control, public Container {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }
  // The picture's own units across and down.
  Property<double> ScaleWidth{*this, "ScaleWidth", 1000};
  Property<double> ScaleHeight{*this, "ScaleHeight", 1000};
  Property<Colour> FillColor{*this, "FillColor", Colour{0}};
  Property<bool> FillSolid{*this, "FillSolid", false};
  Property<std::string> Picture{*this, "Picture"};  // name of a picture behind all drawings
  Property<Drawings> Drawn{*this, "Drawn"};

  // Draws with `ForeColor`, closed shapes filled with `FillColor` if `FillSolid`.
  void DrawLine(double x1, double y1, double x2, double y2);
  void DrawCircle(double x, double y, double radius);
  // `radii` draws the two lines to the centre as well; only then can the sector be filled.
  void DrawPie(double x, double y, double radius, double startAngle, double endAngle, bool radii);
  void DrawText(double x, double y, std::string words, double height = 0,
                TextPlace place = TextPlace::UpperLeft);
  void DrawPath(std::vector<PicturePoint> points);
  void DrawBox(double x1, double y1, double x2, double y2);
  // A box filled with `colour` and no outline of another colour. It takes the place of boxes
  // that it covers wholly, so that a bar redrawn for ever doesn't grow.
  void DrawFilledBox(double x1, double y1, double x2, double y2, Colour colour);
  void Cls() { Drawn = Drawings{}; }

  Form& OwnerForm() override { return Control::OwnerForm(); }
  const Control* AsControl() const override { return this; }

 private:
  void Append(Drawing drawing);
};

// A line between two points of its picture or window.
class Line : public Control {
 public:
  using Control::Control;
  Property<double> X1{*this, "X1"};
  Property<double> Y1{*this, "Y1"};
  Property<double> X2{*this, "X2"};
  Property<double> Y2{*this, "Y2"};
  Property<Colour> BorderColor{*this, "BorderColor", Colour{0}};
  Property<int> BorderWidth{*this, "BorderWidth", 1};
  Property<bool> InBack{*this, "InBack", false};  // behind the other children
};

enum ShapeForm : int { kRectangle = 0, kSquare = 1, kOval = 2, kCircle = 3 };

// A rectangle or oval between Left, Top, Width and Height.
class Shape : public Control {
 public:
  using Control::Control;
  Property<int> Form{*this, "Shape", kRectangle};
  Property<Colour> FillColor{*this, "FillColor", Colour{0}};
  Property<bool> FillSolid{*this, "FillSolid", true};
  Property<Colour> BorderColor{*this, "BorderColor", Colour{0}};
  Property<std::string> Sign{*this, "Sign"};  // a letter or two in the middle
};

// A picture, by the name that the views know it under.
class Image : public Control {
 public:
  using Control::Control;
  Property<std::string> Picture{*this, "Picture"};
};

}  // namespace tintbench::ui
