#include "groups/Instruments.h"

#include "base/Numbers.h"

namespace tintbench::groups {

namespace {

constexpr double kDialDegrees = 270;

struct PictureSize {
  double Width;
  double Height;
};

constexpr PictureSize kTrendSize{1560, 1500};
constexpr PictureSize kDialSize{2100, 3000};
constexpr PictureSize kColumnSize{700, 3000};
constexpr PictureSize kScaleSize{1400, 3200};
constexpr double kScaleLeft = 1000;  // from the column
constexpr double kScaleTop = 100;
constexpr double kPenSize = 130;

constexpr ui::Colour kLevelColour{0xC07000};
constexpr ui::Colour kTemperatureColour{0x2070E0};
constexpr ui::Colour kColumnGround{0xFFFFFF};
constexpr ui::Colour kExtremesColour{0xC0FFFF};

// How a reading lies in its limits, in words.
struct AlarmWords {
  const char* Words = nullptr;
  ui::Colour Ground;
};

constexpr AlarmWords kNoData{"? NO READING", kOffColour};
constexpr AlarmWords kAbove{"\u25b2 ABOVE SCALE", {0x1E26B3}};
constexpr AlarmWords kBelow{"\u25bc BELOW SCALE", {0x1E26B3}};
constexpr AlarmWords kHigh{"\u25b2 HIGH", {0x1E26B3}};
constexpr AlarmWords kLow{"\u25bc LOW", {0x1E26B3}};
constexpr AlarmWords kGood{"\u2713 OK", {0x4F7D2F}};

const AlarmWords& AlarmOf(const AnalogueInput& input, double value) {
  if (value == kNoReading) return kNoData;
  if (value > input.End.Value) return kAbove;
  if (value < input.Start.Value) return kBelow;
  if (value > input.High.Value) return kHigh;
  return value < input.Low.Value ? kLow : kGood;
}

void Size(ui::PictureBox& picture, const PictureSize& size) {
  picture.ScaleWidth = size.Width;
  picture.ScaleHeight = size.Height;
  picture.Width = size.Width;
  picture.Height = size.Height;
}

}  // namespace

Instruments::Instruments(GroupWindow& window, const Group& group)
    : window_(window),
      group_(group),
      dials_{Dial(window, 0), Dial(window, 1)},
      trends_{TrendGraph(window, 0), TrendGraph(window, 1), TrendGraph(window, 2),
              TrendGraph(window, 3)} {
  PlacePictures();
}

void Instruments::PlacePictures() {
  window_.PictG.Prepare([](ui::PictureBox& picture, int) { Size(picture, kTrendSize); });
  window_.PictP.Prepare([](ui::PictureBox& picture, int) { Size(picture, kDialSize); });
  window_.PictTL.Prepare([](ui::PictureBox& picture, int index) {
    Size(picture, kColumnSize);
    picture.FillColor = index == 0 ? kLevelColour : kTemperatureColour;
    picture.BackColor = kColumnGround;
  });
  window_.PictTLm.Prepare([](ui::PictureBox& picture, int) {
    Size(picture, kScaleSize);
    picture.Left = kScaleLeft;
    picture.Top = kScaleTop;
  });
  window_.Imgpen.Prepare([](ui::Image& pen, int) { pen.Width = pen.Height = kPenSize; });
}

const AnalogueInput& Instruments::Input(int index) const {
  return group_.Analogue.at(static_cast<std::size_t>(index));
}

Bar Instruments::BarOf(int index) {
  return {window_.PictTL(index - kDials), window_.PictTLm(index - kDials)};
}

void Instruments::Activate() {
  SetGaugeFactors();
  Clear();
  for (int index = 0; index < kDials; ++index) DrawGauge(index);
  for (int index = kDials; index < kAnalogueRows; ++index) DrawScale(index);
  for (int index = 0; index < kAnalogueRows; ++index) StartTrend(index);
}

void Instruments::SetGaugeFactors() {
  for (int index = 0; index < kAnalogueRows; ++index) {
    const AnalogueInput& input = Input(index);
    const double length =
        index < kDials ? kDialDegrees : window_.PictTL(index - kDials).ScaleHeight.Get();
    PanelOf(index).Factor = input.Enabled ? length / (input.End.Value - input.Start.Value) : 0;
  }
}

// What an earlier group has left.
void Instruments::Clear() {
  for (int index = 0; index < kAnalogueRows; ++index) {
    Panel& panel = PanelOf(index);
    panel.MinMaxMode = false;
    panel.Low = window_.LblLow(index).Caption.Get();
    panel.High = window_.LblHigh(index).Caption.Get();
    ShowLimits(index);
    window_.LblAlarm(index).Caption = "";
    window_.LblAlarm(index).BackColor = ui::kButtonFaceColour;
  }
  for (int index = 0; index < kDials; ++index) {
    DialOf(index).LoadNeedle();
    window_.LnP(index).Visible = false;
    window_.LnC(index).Visible = false;
    window_.PictP(index).Cls();
  }
  for (int index = 0; index < kBars; ++index) {
    window_.PictTL(index).Cls();
    window_.PictTLm(index).Cls();
  }
}

void Instruments::DrawGauge(int index) {
  if (Input(index).Enabled) DialOf(index).Draw(Input(index), PanelOf(index).Factor);
}

void Instruments::DrawScale(int index) {
  if (!Input(index).Enabled) return;
  BarOf(index).DrawScale(Input(index), PanelOf(index).Factor,
                         index == kDials ? BarKind::Level : BarKind::Temperature);
}

void Instruments::StartTrend(int index) {
  Trend(index).LoadLines();
  Trend(index).Init();
  if (Input(index).Enabled) Trend(index).Scale(Input(index));
}

void Instruments::Unload() {
  for (int index = kAnalogueRows - 1; index >= 0; --index) Trend(index).UnloadLines();
  for (int index = kDials - 1; index >= 0; --index) DialOf(index).UnloadNeedle();
}

void Instruments::DrawNeedle(int dial, double angle) { DialOf(dial).DrawNeedle(angle); }

void Instruments::DrawBar(int bar, double value) {
  const int index = bar + kDials;
  BarOf(index).Draw(Input(index), PanelOf(index).Factor, value);
}

void Instruments::PlotTrend(int index, double value) {
  Trend(index).Plot(value, kBlinkColours.at(static_cast<std::size_t>(group_.BlinkIndex)));
  if (PanelOf(index).MinMaxMode) ShowExtremes(index);
  ShowAlarm(index, value);
}

void Instruments::LblNCurr_Click(int index) {
  Panel& panel = PanelOf(index);
  panel.MinMaxMode = !panel.MinMaxMode;
  if (!panel.MinMaxMode) {
    ShowLimits(index);
    return;
  }
  window_.LblNlow(index).Caption = "Min.";
  window_.LblNHigh(index).Caption = "Max.";
  for (auto* labels : {&window_.LblNlow, &window_.LblLow, &window_.LblNHigh, &window_.LblHigh}) {
    (*labels)(index).BackColor = kExtremesColour;
  }
  ShowExtremes(index);
}

void Instruments::ShowLimits(int index) {
  window_.LblNlow(index).Caption = "Low";
  window_.LblNHigh(index).Caption = "High";
  window_.LblNlow(index).BackColor = ui::kButtonFaceColour;
  window_.LblNHigh(index).BackColor = ui::kButtonFaceColour;
  window_.LblLow(index).Caption = PanelOf(index).Low;
  window_.LblHigh(index).Caption = PanelOf(index).High;
  window_.LblLow(index).BackColor = kOffColour;
  window_.LblHigh(index).BackColor = kOffColour;
}

void Instruments::ShowExtremes(int index) {
  const TrendGraph& trend = Trend(index);
  const auto text = [](bool has, double value) {
    return has ? base::PlainNumber(value) : std::string();
  };
  window_.LblLow(index).Caption = text(trend.HasMinimum(), trend.Minimum());
  window_.LblHigh(index).Caption = text(trend.HasMaximum(), trend.Maximum());
}

void Instruments::ShowAlarm(int index, double value) {
  const AlarmWords& alarm = AlarmOf(Input(index), value);
  window_.LblAlarm(index).Caption = alarm.Words;
  window_.LblAlarm(index).BackColor = alarm.Ground;
}

}  // namespace tintbench::groups
