#include "state/StateDecoder.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "config/MachineFacts.h"

namespace tintbench::state {

namespace {

constexpr const char* kInvalid = "[ INVALID DATA ]";
constexpr std::size_t kInputsLength = 9;
constexpr std::size_t kOutputsLength = 5;
constexpr int kDefaultSlave = 16;
constexpr double kLastShiftedFirmware = 3.0;
// Where the errors stand in a status, from 1, and how long each is.
constexpr int kFirstError = 4;
constexpr int kErrorLength = 4;

void MoveLifeSign(ui::Shape& one, ui::Shape& other) {
  one.Visible = other.Visible.Get();
  other.Visible = !other.Visible;
}

bool IsGood(const std::string& answer, std::size_t length) {
  return answer.size() == length && (answer[0] == 'A' || answer[0] == 'a');
}

// The controls that show one bit in a panel of its own.
struct BitControls {
  ui::CheckBox& Button;
  ui::CheckBox& Square;
  ui::Shape& Lamp;
  ui::Label& Name;

  bool InUse() const { return !Button.Tag->empty(); }
  void Enable(bool enabled) const {
    Button.Enabled = enabled;
    Square.Enabled = enabled;
    Name.Enabled = enabled;
  }
  void Show(ui::Colour colour) const {
    for (ui::CheckBox* box : {&Button, &Square}) {
      box->BackColor = colour;
      box->Value = colour == kActiveColour ? ui::kChecked : ui::kUnchecked;
    }
    ShowLamp(Lamp, colour);
  }
};

BitControls InputControls(SensorPanels& panels, int bit) {
  return {panels.ICheck1(bit), panels.ICheck2(bit), panels.IShape3(bit), panels.ILabel3(bit)};
}

BitControls OutputControls(SensorPanels& panels, int output) {
  return {panels.OCheck1(output), panels.OCheck2(output), panels.OShape3(output),
          panels.OLabel3(output)};
}

ui::Colour Opposite(ui::Colour colour) {
  if (colour == kActiveColour) return kInactiveColour;
  return colour == kInactiveColour ? kActiveColour : colour;
}

// The lamps of an input on the card; the driver bits have none.
void ShowOnCard(SensorPanels& panels, int bit, ui::Colour colour) {
  if (bit < config::kConnectors) ShowLamp(panels.GRShape1(bit), colour);
  if (bit < kFirstPairBit) return;
  const int pair = 2 * (bit - kFirstPairBit);
  ShowLamp(panels.GRShape2(pair + 1), colour);
  ShowLamp(panels.GRShape2(pair), Opposite(colour));
}

void BlankInputs(SensorPanels& panels) {
  for (int bit = 0; bit < kInputBits; ++bit) {
    const BitControls controls = InputControls(panels, bit);
    if (!controls.InUse()) continue;
    controls.Show(kNoDataColour);
    controls.Enable(false);
    ShowOnCard(panels, bit, kNoDataColour);
  }
  panels.ILabel1.Caption = kInvalid;
}

void BlankOutputs(SensorPanels& panels) {
  for (int output = 0; output < kOutputBits; ++output) {
    const BitControls controls = OutputControls(panels, output);
    if (!controls.InUse()) continue;
    controls.Show(kNoDataColour);
    controls.Enable(false);
    ShowLamp(panels.GRShape1(config::kConnectors + output), kNoDataColour);
  }
  panels.OLabel1.Caption = kInvalid;
}

template <typename ControlsOf>
void EnableAll(SensorPanels& panels, int count, ControlsOf controlsOf) {
  for (int bit = 0; bit < count; ++bit) controlsOf(panels, bit).Enable(true);
}

int SlaveAddress(const std::string& answer) {
  const int digit = base::HexDigitValue(answer[2]);
  return digit > 0 ? digit : kDefaultSlave;
}

}  // namespace

bool StateDecoder::IsNew(Kind kind, const std::string& answer) {
  std::string& last = lastAnswers_[kind];
  const bool isNew = last.empty() || last != answer;
  last = answer;
  return isNew;
}

void StateDecoder::ShowInputBits(SensorPanels& panels, const std::string& bits) const {
  for (int bit = 0; bit < kInputBits; ++bit) {
    if (!InputName(names_, bit).Shown) continue;
    // The inputs on connectors pull low.
    const char activeLevel = bit < config::kConnectors ? '0' : '1';
    const bool active = bits[static_cast<std::size_t>(kInputBits - 1 - bit)] == activeLevel;
    const ui::Colour colour = active ? kActiveColour : kInactiveColour;
    InputControls(panels, bit).Show(colour);
    ShowOnCard(panels, bit, colour);
  }
}

bool StateDecoder::DecodeInputs(SensorPanels& panels, const std::string& answer) {
  MoveLifeSign(panels.IpShape1, panels.IpShape2);
  const bool isNew = IsNew(kInputs, answer);
  if (!IsGood(answer, kInputsLength)) {
    BlankInputs(panels);
    panels.PanelValid[kInputPanel] = false;
    return false;
  }
  if (isNew) ShowInputBits(panels, base::HexToBinary(answer.substr(1, 1) + answer.substr(3)));
  panels.ILabel1.Caption = "Slave Address =" + std::to_string(SlaveAddress(answer));
  if (!panels.PanelValid[kInputPanel]) EnableAll(panels, kInputBits, InputControls);
  panels.PanelValid[kInputPanel] = true;
  if (isNew) panels.Frame(kCardPanel).Refresh();
  return true;
}

void StateDecoder::ShowOutputBits(SensorPanels& panels, const std::string& bits) const {
  for (int output = 0; output < kOutputBits; ++output) {
    if (!OutputName(names_, output).Shown) continue;
    const bool active = bits[static_cast<std::size_t>(kOutputBits - 1 - output)] == '1';
    const ui::Colour colour = active ? kActiveColour : kInactiveColour;
    OutputControls(panels, output).Show(colour);
    ShowLamp(panels.GRShape1(config::kConnectors + output), colour);
  }
}

bool StateDecoder::DecodeOutputs(SensorPanels& panels, const std::string& answer) {
  MoveLifeSign(panels.OpShape1, panels.OpShape2);
  const bool isNew = IsNew(kOutputs, answer);
  if (!IsGood(answer, kOutputsLength)) {
    BlankOutputs(panels);
    panels.PanelValid[kOutputPanel] = false;
    return false;
  }
  if (isNew) ShowOutputBits(panels, base::HexToBinary(answer.substr(1)));
  panels.OLabel1.Caption = "";
  if (!panels.PanelValid[kOutputPanel]) EnableAll(panels, kOutputBits, OutputControls);
  panels.PanelValid[kOutputPanel] = true;
  if (isNew) panels.Frame(kCardPanel).Refresh();
  return true;
}

int StateDecoder::StatusOffset(const std::string& status) const {
  return !status.empty() && status[0] == 'B' && firmwareNumber_() <= kLastShiftedFirmware ? 1 : 0;
}

int StateDecoder::StatusErrorCount(const std::string& status) const {
  return static_cast<int>(
      base::LeadingHex(base::Mid(status + "0000", StatusOffset(status) + 2, 2)));
}

std::string StateDecoder::StatusErrors(const std::string& status) const {
  const int first = StatusOffset(status) + kFirstError;
  std::string text;
  for (int i = 0; i < StatusErrorCount(status); ++i) {
    const std::string code = base::Mid(status, first + kErrorLength * i, kErrorLength);
    text += code + errors_.ErrorText(code);
    text += base::kCrLf;
  }
  return text;
}

bool StateDecoder::DecodeStatus(SensorPanels& panels, const std::string& answer) {
  MoveLifeSign(panels.ErpShape1, panels.ErpShape2);
  const bool isNew = IsNew(kStatus, answer);
  const std::string count = std::to_string(StatusErrorCount(answer));
  const std::string first = base::Left(answer, 1);
  const bool busy = first == "B";
  const bool good = busy || first == "N" || first == "K" || first == "E";
  if (good) {
    panels.ErLabel1.Caption =
        (busy ? "Slave IS busy: errors = " : "Slave NO busy: errors = ") + count;
  } else {
    panels.ErLabel1.Caption = kInvalid;
    panels.ErText1.Text = "";
  }
  if (isNew && good) {
    panels.ErText1.Enabled = false;
    panels.ErText1.Text = StatusErrors(answer);
    panels.ErText1.Enabled = true;
  }
  if (isNew) panels.Frame(kStatusPanel).Refresh();
  return good;
}

}  // namespace tintbench::state
