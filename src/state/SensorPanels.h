// The four sensor panels that the main window and the window of commands carry under the same
// names: inputs, outputs, status, and the graphic view of the CPU card. Here are their controls,
// their places and their styles; the decoders write into them.
#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "state/SensorNames.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/Picture.h"

namespace tintbench::state {

inline constexpr int kPanels = 4;
enum Panel : int { kInputPanel = 0, kOutputPanel = 1, kStatusPanel = 2, kCardPanel = 3 };
// Those that show an answer of their own, and tell in a line how they stand.
inline constexpr std::array<Panel, 3> kAnsweredPanels{kInputPanel, kOutputPanel, kStatusPanel};

// What the panels show: bits of the inputs' answer without its address digit, and outputs.
inline constexpr int kInputBits = 28;
inline constexpr int kOutputBits = 8;
// The inputs from this bit on show on the card as pairs of one lit and one unlit lamp.
inline constexpr int kFirstPairBit = 24;
inline constexpr int kPairs = kInputBits - kFirstPairBit;

// Colours of a sensor, and the letter that tells the state to those who can't tell the colours.
inline constexpr ui::Colour kActiveColour{0x0000FF};
inline constexpr ui::Colour kInactiveColour{0x004000};
inline constexpr ui::Colour kNoDataColour = ui::kButtonFaceColour;
inline constexpr const char* kActiveSign = "1";
inline constexpr const char* kInactiveSign = "0";

// How a style is chosen: `Wanted` is taken over by the next ApplyPanelStyle and then cleared.
struct StyleRecord {
  int Present = 1;
  int Wanted = 0;
  // The value that counts: the wanted one, if there is one.
  int Value() const { return Wanted != 0 ? Wanted : Present; }
};

enum SensorStyle : int { kButtonStyle = 1, kLampStyle = 2, kSquareStyle = 3 };
enum GraphicStyle : int { kSquareLamps = 1, kRoundLamps = 2 };

struct PanelStyles {
  StyleRecord Sensor;
  StyleRecord Graphic;
};

// A panel's place as fractions of the window's client area.
struct PanelPlace {
  double Width;
  double Height;
  double Left;
  double Top;
};

inline constexpr std::array<PanelPlace, kPanels> kPanelLayout{{
    {11.0 / 36, 89.0 / 96, 1.0 / 48, 5.0 / 96},
    {11.0 / 36, 89.0 / 96 / 2.8, 25.0 / 72, 5.0 / 96},
    {11.0 / 36, 89.0 / 96 / 2.8, 97.0 / 144, 5.0 / 96},
    {91.0 / 144, 25.0 / 48, 25.0 / 72, 11.0 / 24},
}};

// What a window with titles takes for them above the frames, in the units of the client area.
inline constexpr double kTitleShift = 200;

// The client area that the panels' places are given in. A view scales it to its own size.
inline constexpr double kClientWidth = 14400;
inline constexpr double kClientHeight = 9600;

struct SensorPanels {
  explicit SensorPanels(ui::Form& window);

  ui::Form& Window;
  ui::ControlArray<ui::Frame> Frame;
  double TopShift = 0;  // by so much the frames stand lower, in a window with titles above them

  ui::Shape IpShape1{Frame(kInputPanel), "IpShape1"};
  ui::Shape IpShape2{Frame(kInputPanel), "IpShape2"};
  ui::Label ILabel1{Frame(kInputPanel), "ILabel1"};
  ui::ControlArray<ui::CheckBox> ICheck1{Frame(kInputPanel), "ICheck1", kInputBits};
  ui::ControlArray<ui::CheckBox> ICheck2{Frame(kInputPanel), "ICheck2", kInputBits};
  ui::ControlArray<ui::Shape> IShape3{Frame(kInputPanel), "IShape3", kInputBits};
  ui::ControlArray<ui::Label> ILabel3{Frame(kInputPanel), "ILabel3", kInputBits};

  ui::Shape OpShape1{Frame(kOutputPanel), "OpShape1"};
  ui::Shape OpShape2{Frame(kOutputPanel), "OpShape2"};
  ui::Label OLabel1{Frame(kOutputPanel), "OLabel1"};
  ui::ControlArray<ui::CheckBox> OCheck1{Frame(kOutputPanel), "OCheck1", kOutputBits};
  ui::ControlArray<ui::CheckBox> OCheck2{Frame(kOutputPanel), "OCheck2", kOutputBits};
  ui::ControlArray<ui::Shape> OShape3{Frame(kOutputPanel), "OShape3", kOutputBits};
  ui::ControlArray<ui::Label> OLabel3{Frame(kOutputPanel), "OLabel3", kOutputBits};

  ui::Shape ErpShape1{Frame(kStatusPanel), "ErpShape1"};
  ui::Shape ErpShape2{Frame(kStatusPanel), "ErpShape2"};
  ui::Label ErLabel1{Frame(kStatusPanel), "ErLabel1"};
  ui::TextBox ErText1{Frame(kStatusPanel), "ErText1"};

  ui::Label GRLabel1{Frame(kCardPanel), "GRLabel1"};
  ui::PictureBox GRPicIOcard{Frame(kCardPanel), "GRPicIOcard"};
  // Whether the last answer on inputs and on outputs was a good one.
  std::array<bool, 2> PanelValid{};

  // Lamps of the inputs on connectors, then of the outputs; and the pairs, "off" before "on".
  ui::ControlArray<ui::Shape> GRShape1{GRPicIOcard, "GRShape1", kInputBits};
  ui::ControlArray<ui::Shape> GRShape2{GRPicIOcard, "GRShape2", 2 * kPairs};
};

// The name of a bit that a panel shows. The names of all bits of an answer are more: those of the
// slave address's digit, and the outputs that the panel leaves out.
const SensorName& InputName(const SensorNames& names, int bit);
const SensorName& OutputName(const SensorNames& names, int output);

// Gives a lamp the colour and the sign that goes with it.
void ShowLamp(ui::Shape& lamp, ui::Colour colour);

// Places a frame: its row of kPanelLayout if `small`, otherwise over the whole window.
void ApplyFrameSize(SensorPanels& panels, int panel, bool small);

// Places the button of a window that has such buttons above its frame.
void PlaceCmdResize(ui::Button& button, const ui::Frame& frame);

// Shows the controls of the chosen style and writes names and tags. The status panel has none.
void ApplyPanelStyle(SensorPanels& panels, int panel, PanelStyles& styles,
                     const SensorNames& names);

// Writes the text into the lines in which these panels tell how they stand, each drawn at once.
void TellInPanels(SensorPanels& panels, std::span<const Panel> which, const std::string& text);

// Names and tags of the panels that have any, after a change of configuration.
void RebuildAllPanels(SensorPanels& panels, PanelStyles& styles, const SensorNames& names);

// Tells in `GRLabel1` the sensor whose lamp is at that point of the card's picture, in its units;
// the firmware version where there is none.
void ShowSensorUnderPointer(SensorPanels& panels, double x, double y,
                            const std::string& firmwareVersion);

}  // namespace tintbench::state
