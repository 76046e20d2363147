// The trend of one analogue input's last readings: a trace of lines that are moved, in a picture
// with a grid and the limits. It keeps minimum and maximum for as long as the window is open.
#pragma once

#include <array>

#include "groups/GroupRows.h"
#include "groups/GroupWindow.h"

namespace tintbench::groups {

class TrendGraph {
 public:
  TrendGraph(GroupWindow& window, int index)
      : window_(window), index_(index), picture_(window.PictG(index)) {}

  // Loads the lines that aren't there yet, and takes those with a number above 0 away.
  void LoadLines();
  void UnloadLines();

  // Begins anew with nothing shown.
  void Init();
  // Places what is fixed, for the limits of an enabled input.
  void Scale(const AnalogueInput& input);
  // A new point, and its colour; kNoReading for an enquiry without a reading.
  void Plot(double value, ui::Colour colour);

  bool HasMinimum() const;
  bool HasMaximum() const;
  double Minimum() const { return minimum_; }
  double Maximum() const { return maximum_; }

 private:
  ui::Line& Segment(int number) { return window_.Lngr(index_ * kTrendSegments + number); }
  ui::Line& GridLine(int number) { return window_.LnlV(index_ * kGridLines + number); }
  double& X(int number) { return x_.at(static_cast<std::size_t>(number)); }
  void PlaceAcross(ui::Line& line, double y);
  void PlaceLabel(ui::Label& label, double y, const char* sign);
  void Shift();

  GroupWindow& window_;
  int index_;
  ui::PictureBox& picture_;
  int count_ = -1;  // old segments in use
  double yBase_ = 0;
  double yTop_ = 0;
  double span_ = 0;
  double yScale_ = 0;
  double yLow_ = 0;
  double yHigh_ = 0;
  double minimum_ = 0;
  double maximum_ = 0;
  double penHalf_ = 0;
  std::array<double, kGridLines> x_{};
};

}  // namespace tintbench::groups
