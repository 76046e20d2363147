// The instruments of a group's analogue inputs: dials, bars and trends, minimum and maximum, and
// the alarm in words. It draws into the window's pictures and knows no toolkit.
#pragma once

#include <array>
#include <string>

#include "groups/Bar.h"
#include "groups/Dial.h"
#include "groups/GroupParts.h"
#include "groups/GroupWindow.h"
#include "groups/TrendGraph.h"

namespace tintbench::groups {

class Instruments final : public InstrumentPanel {
 public:
  // Both must outlive this.
  Instruments(GroupWindow& window, const Group& group);

  void Activate() override;
  void Unload() override;
  void DrawNeedle(int dial, double angle) override;
  void DrawBar(int bar, double value) override;
  void PlotTrend(int index, double value) override;
  void LblNCurr_Click(int index) override;

 private:
  // What belongs to one input beside its trend.
  struct Panel {
    double Factor = 0;  // degrees, or picture units, for each unit of the reading
    bool MinMaxMode = false;
    std::string Low;  // the limits as the set-up has shown them
    std::string High;
  };

  const AnalogueInput& Input(int index) const;
  Panel& PanelOf(int index) { return panels_.at(static_cast<std::size_t>(index)); }
  TrendGraph& Trend(int index) { return trends_.at(static_cast<std::size_t>(index)); }
  Dial& DialOf(int index) { return dials_.at(static_cast<std::size_t>(index)); }
  Bar BarOf(int index);
  void PlacePictures();
  void SetGaugeFactors();
  void Clear();
  void DrawGauge(int index);
  void DrawScale(int index);
  void StartTrend(int index);
  void ShowLimits(int index);
  void ShowExtremes(int index);
  void ShowAlarm(int index, double value);

  GroupWindow& window_;
  const Group& group_;
  std::array<Panel, kAnalogueRows> panels_;
  std::array<Dial, kDials> dials_;
  std::array<TrendGraph, kAnalogueRows> trends_;
};

}  // namespace tintbench::groups
