// The instruments' geometry against its formulas, worked out by hand for round numbers.
#include "groups/Instruments.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tintbench::groups {
namespace {

class InstrumentsTest : public ::testing::Test {
 protected:
  void Set(int index, double start, double end, double low, double high) {
    AnalogueInput& input = group_.Analogue.at(static_cast<std::size_t>(index));
    input.Enabled = true;
    input.Start = {start, true};
    input.End = {end, true};
    input.Low = {low, true};
    input.High = {high, true};
  }
  // The sectors of a dial's band, as from, to and colour.
  std::vector<ui::Drawing> Sectors(int dial) {
    std::vector<ui::Drawing> sectors;
    for (const ui::Drawing& drawing : window_.PictP(dial).Drawn.Get()) {
      if (drawing.Kind == ui::DrawingKind::Pie && drawing.Filled) sectors.push_back(drawing);
    }
    return sectors;
  }
  ui::Line& Segment(int index, int number) { return window_.Lngr(index * 10 + number); }

  GroupWindow window_;
  Group group_;
  Instruments instruments_{window_, group_};
};

TEST_F(InstrumentsTest, DialFollowsItsFormulas) {
  Set(0, 0, 10, 2, 8);
  Set(1, 0, 10, 0, 10);
  instruments_.Activate();
  const double cx = window_.PictP(0).ScaleWidth / 2;
  const double cy = window_.PictP(0).ScaleHeight * 0.65;
  const double radius = cx * 7 / 8 - 30;
  EXPECT_EQ(window_.LnC(0).Y1, cy);
  EXPECT_EQ(window_.LnP(0).Y1, cy + 1);
  const auto sectors = Sectors(0);
  ASSERT_EQ(sectors.size(), 3U);
  const double expected[3][2] = {{171, 225}, {9, 171}, {315, 9}};
  for (std::size_t at = 0; at < 3; ++at) {
    EXPECT_NEAR(sectors[at].StartAngle, expected[at][0], 1e-9);
    EXPECT_NEAR(sectors[at].EndAngle, expected[at][1], 1e-9);
    EXPECT_NEAR(sectors[at].Radius, radius * 0.8 * 0.7, 1e-9);
    EXPECT_EQ(sectors[at].Fill, ui::Colour{at == 1 ? 0x008000U : 0x0000FFU});
  }
  // A band as wide as the scale leaves no red sector.
  EXPECT_EQ(Sectors(1).size(), 1U);
  // Up, right, and back at the scale's start.
  instruments_.DrawNeedle(0, 90);
  EXPECT_NEAR(window_.LnC(0).X2, cx, 1e-6);
  EXPECT_NEAR(window_.LnC(0).Y2, cy - radius * 0.8, 1e-6);
  instruments_.DrawNeedle(0, 0);
  EXPECT_NEAR(window_.LnP(0).X2, cx + radius * 0.8, 1e-6);
  EXPECT_NEAR(window_.LnP(0).Y2, cy + 1, 1e-6);
  instruments_.Unload();
  EXPECT_FALSE(window_.LnC.Has(1));
  EXPECT_EQ(window_.Lngr.Count(), 1);
  EXPECT_EQ(window_.LnlV.Count(), 1);
}

TEST_F(InstrumentsTest, BarAndScaleFollowTheirFormulas) {
  Set(2, -10, 40, 0, 30);
  Set(3, 0, 100, 0, 100);
  instruments_.Activate();
  const double height = window_.PictTL(0).ScaleHeight;
  instruments_.DrawBar(0, 15);
  const auto column = window_.PictTL(0).Drawn.Get();
  ASSERT_EQ(column.size(), 2U);
  EXPECT_EQ(column[0].Y1, height / 2);
  EXPECT_EQ(column[0].Y2, height);
  EXPECT_EQ(column[1].Y2, height / 2);
  for (int reading = 0; reading < 100; ++reading) instruments_.DrawBar(0, reading % 40);
  EXPECT_EQ(window_.PictTL(0).Drawn->size(), 2U);
  std::vector<ui::Drawing> boxes;
  for (const ui::Drawing& drawing : window_.PictTLm(0).Drawn.Get()) {
    if (drawing.Kind == ui::DrawingKind::FilledBox) boxes.push_back(drawing);
  }
  ASSERT_EQ(boxes.size(), 3U);
  const double top = window_.PictTLm(0).Top - window_.PictTL(0).Top;
  EXPECT_NEAR(boxes[0].Y1, top + height * 0.8, 1e-6);
  EXPECT_NEAR(boxes[0].Y2, top + height, 1e-6);
  EXPECT_NEAR(boxes[1].Y1, top + height * 0.2, 1e-6);
  EXPECT_NEAR(boxes[1].Y2, top, 1e-6);
  // The zero of the scale, the last line of the level.
  EXPECT_NEAR(window_.PictTLm(0).Drawn->back().Y1, top + height * 0.8, 1e-6);
}

TEST_F(InstrumentsTest, TrendShiftsAndKeepsItsExtremes) {
  Set(0, 0, 10, 2, 8);
  Set(1, 0, 0.4, 0.1, 0.3);
  instruments_.Activate();
  const double base = window_.PictG(0).ScaleHeight - 100;
  const double scale = (base - 20) / 10;
  EXPECT_NEAR(window_.LnlLow(0).Y1, base - 2 * scale, 1e-9);
  EXPECT_NEAR(window_.LnlHigh(1).Y1, base - 0.3, 1e-9);
  EXPECT_EQ(Segment(0, 9).X2, window_.PictG(0).ScaleWidth - 180 - 1200);
  instruments_.LblNCurr_Click(0);
  EXPECT_EQ(window_.LblNlow(0).Caption.Get(), "Min.");
  EXPECT_EQ(window_.LblLow(0).Caption.Get(), "");
  instruments_.PlotTrend(0, kNoReading);
  EXPECT_EQ(window_.LblLow(0).Caption.Get(), "");
  EXPECT_EQ(Segment(0, 0).Y1, 5);
  EXPECT_EQ(Segment(0, 0).Y2, 5);
  EXPECT_EQ(Segment(0, 0).BorderColor, ui::Colour{0x0000FF});
  EXPECT_FALSE(window_.Lngr(1).Visible);
  group_.BlinkIndex = 1;
  for (int reading = 0; reading <= 12; ++reading) instruments_.PlotTrend(0, reading);
  EXPECT_EQ(window_.LblLow(0).Caption.Get(), "0");
  EXPECT_EQ(window_.LblHigh(0).Caption.Get(), "12");
  for (int number = 0; number < 10; ++number) {
    EXPECT_NEAR(Segment(0, number).Y1, base - (12 - number) * scale, 1e-9);
    EXPECT_NEAR(Segment(0, number).Y2, base - (11 - number) * scale, 1e-9);
    EXPECT_EQ(Segment(0, number).BorderColor, ui::Colour{0xC0FFFF});
  }
  EXPECT_NEAR(window_.Imgpen(0).Top + (window_.Imgpen(0).Height + 1) / 2, Segment(0, 0).Y1, 1e-9);
  instruments_.LblNCurr_Click(0);
  EXPECT_EQ(window_.LblNHigh(0).Caption.Get(), "High");
}

TEST_F(InstrumentsTest, TellsAlarmsInWords) {
  Set(3, 0, 100, 10, 90);
  instruments_.Activate();
  const struct {
    double Value;
    const char* Words;
  } cases[] = {{kNoReading, "NO READING"},
               {-0.1, "BELOW SCALE"},
               {9.9, " LOW"},
               {10, "OK"},
               {90, "OK"},
               {90.1, " HIGH"},
               {100.1, "ABOVE SCALE"}};
  for (const auto& reading : cases) {
    instruments_.PlotTrend(3, reading.Value);
    EXPECT_NE(window_.LblAlarm(3).Caption->find(reading.Words), std::string::npos) << reading.Value;
  }
}

}  // namespace
}  // namespace tintbench::groups
