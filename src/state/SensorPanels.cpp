#include "state/SensorPanels.h"

#include "config/MachineFacts.h"
#include "state/CardLayout.h"

namespace tintbench::state {

namespace {

constexpr const char* kInUse = "e";

// In the units of the client area.
constexpr double kLargeMargin = 300;
constexpr double kButtonHeight = 260;

// Behind bit 23 the digit of the slave address is left out of the panel's bits; the outputs that
// it shows are the upper byte of all outputs.
constexpr int kAddressBits = 4;
constexpr int kFirstOutput = 8;

void Place(ui::Control& control, const CardPlace& place) {
  control.Left = place.Left;
  control.Top = place.Top;
  control.Width = place.Width;
  control.Height = place.Height;
}

void PlaceLamps(SensorPanels& panels) {
  for (int bit = 0; bit < kCardSockets; ++bit) {
    Place(panels.GRShape1(bit), SocketLampPlace(bit + 1));
  }
  for (int output = 0; output < kOutputBits; ++output) {
    Place(panels.GRShape1(kCardSockets + output), DriverLampPlace(output));
  }
  for (int lamp = 0; lamp < 2 * kPairs; ++lamp) {
    Place(panels.GRShape2(lamp), SwitchLampPlace(lamp / 2, lamp % 2 == 1));
  }
}

// One bit's controls of the two upper panels.
struct SensorRow {
  ui::CheckBox& Button;
  ui::Shape& Lamp;
  ui::CheckBox& Square;
  ui::Label& Name;
};

void ShowRow(const SensorRow& row, const SensorName& sensor, int style) {
  struct Choice {
    ui::Control& Control;
    bool Wanted;
  };
  const std::array<Choice, 4> choices{{{row.Button, style == kButtonStyle},
                                       {row.Lamp, style == kLampStyle},
                                       {row.Square, style == kSquareStyle},
                                       {row.Name, true}}};
  for (const Choice& choice : choices) {
    choice.Control.Visible = sensor.Shown && choice.Wanted;
    choice.Control.Tag = sensor.Shown ? kInUse : "";
  }
  row.Name.Caption = sensor.Name;
}

void ShowCardLamp(ui::Shape& lamp, const std::string& name, bool shown, int style) {
  lamp.Form = style == kRoundLamps ? ui::kCircle : ui::kSquare;
  lamp.Visible = shown;
  lamp.Tag = shown ? name : "";
}

void StyleInputs(SensorPanels& panels, const SensorNames& names, int style) {
  for (int bit = 0; bit < kInputBits; ++bit) {
    ShowRow({panels.ICheck1(bit), panels.IShape3(bit), panels.ICheck2(bit), panels.ILabel3(bit)},
            InputName(names, bit), style);
  }
}

void StyleOutputs(SensorPanels& panels, const SensorNames& names, int style) {
  for (int output = 0; output < kOutputBits; ++output) {
    ShowRow({panels.OCheck1(output), panels.OShape3(output), panels.OCheck2(output),
             panels.OLabel3(output)},
            OutputName(names, output), style);
  }
}

void StyleCard(SensorPanels& panels, const SensorNames& names, int style) {
  for (int bit = 0; bit < kCardSockets; ++bit) {
    const SensorName& sensor = InputName(names, bit);
    ShowCardLamp(panels.GRShape1(bit), sensor.Name, sensor.Shown, style);
  }
  for (int output = 0; output < kOutputBits; ++output) {
    const SensorName& sensor = OutputName(names, output);
    ShowCardLamp(panels.GRShape1(kCardSockets + output), sensor.Name, sensor.Shown, style);
  }
  for (int lamp = 0; lamp < 2 * kPairs; ++lamp) {
    const SensorName& sensor = InputName(names, kFirstPairBit + lamp / 2);
    const char* state = lamp % 2 == 1 ? " [ ON ]" : " [ OFF ]";
    ShowCardLamp(panels.GRShape2(lamp), sensor.Name + state, sensor.Shown, style);
  }
}

void TakeOver(StyleRecord& style) {
  style.Present = style.Value();
  style.Wanted = 0;
}

bool Holds(const ui::Shape& lamp, double x, double y) {
  return lamp.Visible && x >= lamp.Left && x <= lamp.Left + lamp.Width && y >= lamp.Top &&
         y <= lamp.Top + lamp.Height;
}

std::string SensorAt(SensorPanels& panels, double x, double y) {
  for (ui::ControlArray<ui::Shape>* lamps : {&panels.GRShape1, &panels.GRShape2}) {
    for (int index = 0; index < lamps->Count(); ++index) {
      if (Holds((*lamps)(index), x, y)) return (*lamps)(index).Tag;
    }
  }
  return {};
}

}  // namespace

SensorPanels::SensorPanels(ui::Form& window) : Window(window), Frame(window, "Frame", kPanels) {
  const auto readOnly = [](ui::CheckBox& box, int) { box.Locked = true; };
  for (auto* boxes : {&ICheck1, &ICheck2, &OCheck1, &OCheck2}) boxes->Prepare(readOnly);
  const auto round = [](ui::Shape& lamp, int) { lamp.Form = ui::kCircle; };
  for (auto* lamps : {&IShape3, &OShape3}) lamps->Prepare(round);
  for (auto* sign : {&IpShape1, &OpShape1, &ErpShape1}) round(*sign, 0);
  for (auto* sign : {&IpShape2, &OpShape2, &ErpShape2}) {
    round(*sign, 0);
    sign->Visible = false;
  }
  ErText1.MultiLine = true;
  ErText1.Locked = true;
  GRPicIOcard.ScaleWidth = kCardWidth;
  GRPicIOcard.ScaleHeight = kCardHeight;
  PlaceLamps(*this);
}

const SensorName& InputName(const SensorNames& names, int bit) {
  const int row = bit < kFirstPairBit ? bit : bit + kAddressBits;
  return names.InputNames.at(static_cast<std::size_t>(row));
}

const SensorName& OutputName(const SensorNames& names, int output) {
  const int row = output + kFirstOutput;
  return names.OutputNames.at(static_cast<std::size_t>(row));
}

void ShowLamp(ui::Shape& lamp, ui::Colour colour) {
  lamp.FillColor = colour;
  lamp.BackColor = colour;
  if (colour == kNoDataColour) {
    lamp.Sign = "";
  } else {
    lamp.Sign = colour == kActiveColour ? kActiveSign : kInactiveSign;
  }
}

void ApplyFrameSize(SensorPanels& panels, int panel, bool small) {
  ui::Frame& frame = panels.Frame(panel);
  const PanelPlace& place = kPanelLayout.at(static_cast<std::size_t>(panel));
  frame.Visible = false;
  if (small) {
    frame.Left = kClientWidth * place.Left;
    frame.Top = kClientHeight * place.Top;
    frame.Width = kClientWidth * place.Width;
    frame.Height = kClientHeight * place.Height;
  } else {
    frame.Left = kLargeMargin;
    frame.Top = kLargeMargin;
    frame.Width = kClientWidth - 2 * kLargeMargin;
    frame.Height = kClientHeight - 2 * kLargeMargin;
  }
  frame.Top = frame.Top + panels.TopShift;
  frame.Visible = true;
}

void PlaceCmdResize(ui::Button& button, const ui::Frame& frame) {
  button.Left = frame.Left;
  button.Width = frame.Width;
  button.Top = frame.Top - kButtonHeight;
  button.Height = kButtonHeight;
}

void TellInPanels(SensorPanels& panels, std::span<const Panel> which, const std::string& text) {
  const std::array<ui::Label*, kAnsweredPanels.size()> lines{&panels.ILabel1, &panels.OLabel1,
                                                             &panels.ErLabel1};
  for (const Panel panel : which) {
    ui::Label& line = *lines.at(static_cast<std::size_t>(panel));
    line.Caption = text;
    line.Refresh();
  }
}

void ApplyPanelStyle(SensorPanels& panels, int panel, PanelStyles& styles,
                     const SensorNames& names) {
  if (panel == kStatusPanel) return;
  StyleRecord& style = panel == kCardPanel ? styles.Graphic : styles.Sensor;
  TakeOver(style);
  if (panel == kInputPanel) StyleInputs(panels, names, style.Present);
  if (panel == kOutputPanel) StyleOutputs(panels, names, style.Present);
  if (panel == kCardPanel) StyleCard(panels, names, style.Present);
}

void RebuildAllPanels(SensorPanels& panels, PanelStyles& styles, const SensorNames& names) {
  for (const int panel : {kInputPanel, kOutputPanel, kCardPanel}) {
    ApplyPanelStyle(panels, panel, styles, names);
  }
}

void ShowSensorUnderPointer(SensorPanels& panels, double x, double y,
                            const std::string& firmwareVersion) {
  std::string text = SensorAt(panels, x, y);
  if (text.empty()) text = "Machine version [" + firmwareVersion + "]";
  if (panels.GRLabel1.Caption.Get() == text) return;
  panels.GRLabel1.Caption = std::move(text);
  panels.GRLabel1.Refresh();
}

}  // namespace tintbench::state
