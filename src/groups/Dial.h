// The dial of a pressure: face, ticks and alarm band under the symbol of a pump, and the needle. It
// is drawn into a picture box, in the picture's own units.
#pragma once

#include <string>

#include "groups/GroupRows.h"
#include "groups/GroupWindow.h"

namespace tintbench::groups {

class Dial {
 public:
  Dial(GroupWindow& window, int index)
      : window_(window), index_(index), picture_(window.PictP(index)) {}

  // Loads the needle's two lines if they aren't there yet, and takes those above number 0 away.
  void LoadNeedle();
  void UnloadNeedle();

  // Draws all anew for the limits of an enabled input, with the needle at the scale's start.
  // `factor` is in degrees for each unit of the reading.
  void Draw(const AnalogueInput& input, double factor);

  // The angle is in degrees, counter-clockwise from the positive x axis.
  void DrawNeedle(double angle);

 private:
  void DrawFace();
  void DrawTicks(double span);
  void DrawBand(const AnalogueInput& input, double factor);
  void DrawSector(double from, double to, ui::Colour colour);
  void DrawHub();
  void DrawPump();
  void DrawCircle(double radius, ui::Colour line, ui::Colour fill);

  GroupWindow& window_;
  int index_;
  ui::PictureBox& picture_;
  double centreX_ = 0;
  double centreY_ = 0;
  double radius_ = 0;
  double needleLength_ = 0;
};

// A number of a scale of that length, in as many digits as can be told apart on it.
std::string ScaleNumber(double value, double span);

}  // namespace tintbench::groups
