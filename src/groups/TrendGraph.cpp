#include "groups/TrendGraph.h"

#include <cmath>

#include "base/Numbers.h"

namespace tintbench::groups {

namespace {

constexpr double kNoMinimum = 222222.0;
constexpr double kNoMaximum = -222222.0;
constexpr double kUnset = -1.0;
constexpr double kFoot = 100;       // below the plot
constexpr double kTop = 20;         // above it
constexpr double kRight = 180;      // right of it, for the pen
constexpr double kStep = 120;       // from one reading to the next
constexpr double kPenGap = 25;      // between the newest point and the pen
constexpr double kLabelShift = 75;  // of the small labels, left of the picture
constexpr double kStubRise = 15;    // of an enquiry without a reading, above the plot
constexpr int kTraceWidth = 3;

constexpr ui::Colour kMissColour{0x0000FF};

}  // namespace

void TrendGraph::LoadLines() {
  for (int number = 0; number < kTrendSegments; ++number) {
    window_.Lngr.Load(index_ * kTrendSegments + number).BorderWidth = kTraceWidth;
  }
  for (int number = 0; number < kGridLines; ++number) {
    window_.LnlV.Load(index_ * kGridLines + number).BorderColor = kOffColour;
  }
  for (auto* lines : {&window_.LnlStart, &window_.LnlEnd, &window_.LnlLow, &window_.LnlHigh}) {
    lines->Load(index_);
  }
  window_.Imgpen.Load(index_).Picture = "pen";
  window_.Lbldl.Load(index_);
  window_.Lbldh.Load(index_);
}

void TrendGraph::UnloadLines() {
  if (index_ > 0) {
    window_.Lbldh.Unload(index_);
    window_.Lbldl.Unload(index_);
    window_.Imgpen.Unload(index_);
    for (auto* lines : {&window_.LnlHigh, &window_.LnlLow, &window_.LnlEnd, &window_.LnlStart}) {
      lines->Unload(index_);
    }
  }
  for (int number = kGridLines - 1; number >= 0; --number) {
    if (index_ + number > 0) window_.LnlV.Unload(index_ * kGridLines + number);
  }
  for (int number = kTrendSegments - 1; number >= 0; --number) {
    if (index_ + number > 0) window_.Lngr.Unload(index_ * kTrendSegments + number);
  }
}

void TrendGraph::Init() {
  count_ = -1;
  yBase_ = picture_.ScaleHeight - kFoot;
  yTop_ = kTop;
  span_ = yScale_ = yLow_ = yHigh_ = minimum_ = maximum_ = penHalf_ = kUnset;
  for (int number = 0; number < kGridLines; ++number) {
    X(number) = picture_.ScaleWidth - kRight - kStep * number;
    GridLine(number).Visible = false;
  }
  for (int number = 0; number < kTrendSegments; ++number) Segment(number).Visible = false;
  for (auto* lines : {&window_.LnlStart, &window_.LnlEnd, &window_.LnlLow, &window_.LnlHigh}) {
    (*lines)(index_).Visible = false;
  }
  window_.Imgpen(index_).Visible = false;
  window_.Lbldl(index_).Visible = false;
  window_.Lbldh(index_).Visible = false;
}

void TrendGraph::PlaceAcross(ui::Line& line, double y) {
  line.X1 = X(kTrendSegments);
  line.X2 = X(0);
  line.Y1 = y;
  line.Y2 = y;
  line.InBack = true;
  line.Visible = true;
}

void TrendGraph::PlaceLabel(ui::Label& label, double y, const char* sign) {
  label.Caption = sign;
  label.Left = picture_.Left - kLabelShift;
  label.Top = picture_.Top + y;
  label.Visible = true;
}

void TrendGraph::Scale(const AnalogueInput& input) {
  span_ = std::abs(yTop_ - yBase_);
  const double units = base::RoundHalfEven(input.End.Value - input.Start.Value);
  yScale_ = units > 0 ? span_ / units : 1.0;
  yLow_ = yBase_ - yScale_ * input.Low.Value;
  yHigh_ = yBase_ - yScale_ * input.High.Value;
  minimum_ = kNoMinimum;
  maximum_ = kNoMaximum;
  PlaceLabel(window_.Lbldh(index_), yHigh_, "H");
  PlaceLabel(window_.Lbldl(index_), yLow_, "L");
  PlaceAcross(window_.LnlHigh(index_), yHigh_);
  PlaceAcross(window_.LnlLow(index_), yLow_);
  PlaceAcross(window_.LnlEnd(index_), yTop_);
  PlaceAcross(window_.LnlStart(index_), yBase_);
  for (int number = 0; number < kGridLines; ++number) {
    ui::Line& line = GridLine(number);
    line.X1 = line.X2 = X(number);
    line.Y1 = yTop_;
    line.Y2 = yBase_;
    line.InBack = true;
    line.Visible = true;
  }
  ui::Image& pen = window_.Imgpen(index_);
  penHalf_ = (pen.Height + 1) / 2;
  pen.Left = X(0) + kPenGap;
  pen.Top = yBase_ - pen.Height / 2;
  pen.Visible = true;
  for (int number = 0; number < kTrendSegments; ++number) {
    Segment(number).X1 = X(number);
    Segment(number).X2 = X(number + 1);
  }
}

// The trace moves left, from its old end on.
void TrendGraph::Shift() {
  for (int number = count_; number >= 1; --number) {
    const ui::Line& from = Segment(number - 1);
    ui::Line& to = Segment(number);
    to.Y1 = from.Y1;
    to.Y2 = from.Y2;
    to.BorderColor = from.BorderColor;
    to.Visible = true;
  }
}

void TrendGraph::Plot(double value, ui::Colour colour) {
  const bool read = value != kNoReading;
  if (read && value <= minimum_) minimum_ = value;
  if (read && value >= maximum_) maximum_ = value;
  if (count_ < kTrendSegments - 1) ++count_;
  Shift();
  ui::Line& newest = Segment(0);
  newest.Y1 = read ? yBase_ - value * yScale_ : yTop_ - kStubRise;
  newest.BorderColor = read ? colour : kMissColour;
  newest.Y2 = count_ > 0 ? Segment(1).Y1 : newest.Y1;
  newest.Visible = true;
  ui::Image& pen = window_.Imgpen(index_);
  pen.Top = newest.Y1 - penHalf_;
  pen.Visible = true;
}

bool TrendGraph::HasMinimum() const { return span_ > 0 && minimum_ != kNoMinimum; }

bool TrendGraph::HasMaximum() const { return span_ > 0 && maximum_ != kNoMaximum; }

}  // namespace tintbench::groups
