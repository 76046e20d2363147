// The decoders of the machine's answers, on the panels of a window. An input is the number of the
// firmware, and steps: a letter, the length of the bytes that belong to it, and these bytes. i, o
// and s: an answer on inputs, outputs or status; e: an error's code; h: hexadecimal digits; c: the
// last answers are forgotten. Anything else means nothing.
#include <algorithm>
#include <array>
#include <string>

#include "FuzzInput.h"
#include "Target.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "config/MachineFacts.h"
#include "state/StateDecoder.h"

namespace tintbench::fuzz {
namespace {

using Bits = std::string;  // from bit 0: 1 active, 0 not, - no data

constexpr int kHighestFirmware = 9;
constexpr int kLongestAnswer = 1100;
constexpr std::size_t kMostSteps = 100;
constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr const char* kInvalid = "[ INVALID DATA ]";
constexpr int kConnectors = 20;
constexpr int kFirstSwitch = 24;

// Place among the digits; 16 for what is none.
std::size_t DigitOf(char character) {
  return std::min(kDigits.find(base::ToUpper(std::string(1, character))), kDigits.size());
}

// One bit of a text of hexadecimal digits, the lowest bit being the last digit's: '0', '1', or 'x'
// where there is no digit.
char BitOf(const std::string& digits, std::size_t bit) {
  const std::size_t digit = DigitOf(digits[digits.size() - 1 - bit / 4]);
  if (digit == kDigits.size()) return 'x';
  return ((digit >> (bit % 4)) & 1U) != 0 ? '1' : '0';
}

Bits InputsIn(const std::string& answer) {
  if (answer.size() != 9 || (answer[0] != 'A' && answer[0] != 'a')) {
    return Bits(state::kInputBits, '-');
  }
  const std::string digits = answer[1] + answer.substr(3);
  Bits bits;
  for (std::size_t bit = 0; bit < state::kInputBits; ++bit) {
    bits += BitOf(digits, bit) == (bit < kConnectors ? '0' : '1') ? '1' : '0';
  }
  return bits;
}

Bits OutputsIn(const std::string& answer) {
  if (answer.size() != 5 || (answer[0] != 'A' && answer[0] != 'a')) {
    return Bits(state::kOutputBits, '-');
  }
  Bits bits;
  for (std::size_t bit = 0; bit < state::kOutputBits; ++bit) {
    bits += BitOf(answer.substr(1, 2), bit) == '1' ? '1' : '0';
  }
  return bits;
}

ui::Colour ColourOf(char bit) {
  if (bit == '-') return state::kNoDataColour;
  return bit == '1' ? state::kActiveColour : state::kInactiveColour;
}

char Opposite(char bit) { return bit == '-' ? '-' : bit == '1' ? '0' : '1'; }

struct LifeSign {
  ui::Shape& One;
  ui::Shape& Other;
  bool Lit = One.Visible;
  int Moves = 0;
};

// Of a machine whose connectors 1, 7 and 20 are named. Built once, for every run is the same.
const state::SensorNames& Names() {
  static const state::SensorNames kNames = [] {
    config::MachineFacts facts;
    for (const std::size_t connector : {1U, 7U, 20U}) facts.ConnectorSensors[connector] = 1;
    return state::BuildSensorNames(true, facts, config::SelectorCatalogue());
  }();
  return kNames;
}

const state::ErrorTable& Errors() {
  static const state::ErrorTable kErrors;
  return kErrors;
}

class Bench {
 public:
  explicit Bench(int firmware) : firmware_(firmware) {
    state::PanelStyles styles;
    state::RebuildAllPanels(panels_, styles, Names());
  }

  void Step(char what, const std::string& bytes) {
    if (what == 'i') Inputs(bytes);
    if (what == 'o') Outputs(bytes);
    if (what == 's') Status(base::ToUpper(bytes));
    if (what == 'e') CheckErrorText(bytes);
    if (what == 'h') CheckBinary(bytes);
    if (what == 'c') decoder_.ClearLastAnswers();
    CheckLifeSigns();
    if (!inputs_.empty()) CheckInputs();
    if (!outputs_.empty()) CheckOutputs();
  }

 private:
  void Inputs(const std::string& answer) {
    inputs_ = InputsIn(answer);
    const bool good = inputs_[0] != '-';
    Require(decoder_.DecodeInputs(panels_, answer) == good, "inputs are good by their form");
    ++lifeSigns_[0].Moves;
    const std::string& words = panels_.ILabel1.Caption;
    if (!good) return Require(words == kInvalid, "bad inputs are told");
    const std::size_t slave = DigitOf(answer[2]) == 0 ? kDigits.size() : DigitOf(answer[2]);
    Require(words.starts_with("Slave Address =") && words.ends_with(std::to_string(slave)),
            "the slave's address is told");
  }

  void Outputs(const std::string& answer) {
    outputs_ = OutputsIn(answer);
    const bool good = outputs_[0] != '-';
    Require(decoder_.DecodeOutputs(panels_, answer) == good, "outputs are good by their form");
    ++lifeSigns_[1].Moves;
    Require(panels_.OLabel1.Caption.Get() == (good ? "" : kInvalid), "bad outputs are told");
  }

  void Status(const std::string& answer) {
    const bool good =
        !answer.empty() && std::string_view("NKEB").find(answer[0]) != std::string_view::npos;
    Require(decoder_.DecodeStatus(panels_, answer) == good, "a status is good by its first letter");
    ++lifeSigns_[2].Moves;
    const std::string& words = panels_.ErLabel1.Caption;
    const std::string& text = panels_.ErText1.Text;
    Require(panels_.ErText1.Enabled, "the errors can be read");
    if (!good) return Require(words == kInvalid && text.empty(), "a bad status tells no errors");
    const bool busy = answer[0] == 'B';
    const std::size_t offset = busy && firmware_ <= 3 ? 1 : 0;
    const int count = ErrorCount((answer + "0000").substr(offset + 1, 2));
    Require(words == (busy ? "Slave IS busy: errors = " : "Slave NO busy: errors = ") +
                         std::to_string(count),
            "the errors are counted");
    if (answer.find('\n') == std::string::npos) {
      Require(std::count(text.begin(), text.end(), '\n') == count, "each error has a line");
    }
    Require(text.empty() || text.starts_with(base::Mid(answer, static_cast<int>(offset) + 4, 4)),
            "a line begins with its code");
  }

  // The number that the two characters begin with.
  static int ErrorCount(const std::string& characters) {
    std::size_t count = 0;
    for (const char character : characters) {
      if (DigitOf(character) == kDigits.size()) break;
      count = count * kDigits.size() + DigitOf(character);
    }
    return static_cast<int>(count);
  }

  static void CheckErrorText(const std::string& code) {
    constexpr std::string_view kUnknown = "  unknown";
    const std::string text = Errors().ErrorText(code);
    const bool isCode = code.size() == 4 && code.find_first_not_of(kDigits) == std::string::npos;
    Require(isCode || text == kUnknown, "what is no code is unknown");
    Require(text == kUnknown || (text.size() > 2 && text[0] == ' ' && text[1] != ' '),
            "a code has a text");
  }

  static void CheckBinary(const std::string& digits) {
    const std::string binary = base::HexToBinary(digits);
    Require(binary.size() == 4 * digits.size(), "four characters for each digit");
    for (std::size_t bit = 0; bit < binary.size(); ++bit) {
      const char expected = BitOf(digits, bit);
      Require(binary[binary.size() - 1 - bit] == (expected == 'x' ? 'E' : expected),
              "each digit has its bits, what is none has letters");
    }
  }

  void CheckLifeSigns() const {
    for (const LifeSign& sign : lifeSigns_) {
      Require(sign.One.Visible == (sign.Lit != (sign.Moves % 2 == 1)) &&
                  sign.Other.Visible != sign.One.Visible,
              "a life sign moves with each answer of its own");
    }
  }

  struct Row {
    const ui::CheckBox& Button;
    const ui::CheckBox& Square;
    const ui::Shape& Lamp;
    const ui::Label& Name;
  };

  // Gives what the card must show for the bit.
  static char CheckRow(const Row& row, bool shown, char bit) {
    for (const ui::CheckBox* box : {&row.Button, &row.Square}) {
      Require(box->Value == (shown && bit == '1' ? ui::kChecked : ui::kUnchecked),
              "a box is checked by its bit");
      Require(box->BackColor == ColourOf(shown ? bit : '-'), "a box has its bit's colour");
      Require(!shown || box->Enabled == (bit != '-'), "a box without data is disabled");
    }
    Require(!shown || row.Name.Enabled == (bit != '-'), "so is its name");
    CheckLamp(row.Lamp, shown ? bit : '-');
    return shown ? bit : '-';
  }

  static void CheckLamp(const ui::Shape& lamp, char bit) {
    Require(lamp.Sign.Get() == (bit == '-' ? std::string() : std::string(1, bit)),
            "a lamp has its sign");
    const bool coloured =
        lamp.FillColor == state::kActiveColour || lamp.FillColor == state::kInactiveColour;
    Require(bit == '-' ? !coloured : lamp.FillColor == ColourOf(bit), "a lamp has its colour");
  }

  void CheckInputs() {
    for (int bit = 0; bit < state::kInputBits; ++bit) {
      const char value = CheckRow(
          {panels_.ICheck1(bit), panels_.ICheck2(bit), panels_.IShape3(bit), panels_.ILabel3(bit)},
          state::InputName(Names(), bit).Shown, inputs_[static_cast<std::size_t>(bit)]);
      if (bit < kConnectors) CheckLamp(panels_.GRShape1(bit), value);
      if (bit < kFirstSwitch) continue;
      CheckLamp(panels_.GRShape2(2 * (bit - kFirstSwitch) + 1), value);
      CheckLamp(panels_.GRShape2(2 * (bit - kFirstSwitch)), Opposite(value));
    }
  }

  void CheckOutputs() {
    for (int output = 0; output < state::kOutputBits; ++output) {
      const char value = CheckRow({panels_.OCheck1(output), panels_.OCheck2(output),
                                   panels_.OShape3(output), panels_.OLabel3(output)},
                                  state::OutputName(Names(), output).Shown,
                                  outputs_[static_cast<std::size_t>(output)]);
      CheckLamp(panels_.GRShape1(kConnectors + output), value);
    }
  }

  int firmware_;
  ui::Form form_{"Form1"};
  state::SensorPanels panels_{form_};
  state::StateDecoder decoder_{Names(), Errors(), [this] { return firmware_; }};
  std::array<LifeSign, 3> lifeSigns_{{{panels_.IpShape1, panels_.IpShape2},
                                      {panels_.OpShape1, panels_.OpShape2},
                                      {panels_.ErpShape1, panels_.ErpShape2}}};
  Bits inputs_;  // what the last answer told; nothing before the first
  Bits outputs_;
};

}  // namespace
}  // namespace tintbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tintbench;
  fuzz::FuzzInput input(data, size);
  fuzz::Bench bench(input.Number(fuzz::kHighestFirmware));
  for (std::size_t step = 0; step < fuzz::kMostSteps && !input.AtEnd(); ++step) {
    const auto what = static_cast<char>(input.Byte());
    const auto length = static_cast<std::size_t>(input.Number(fuzz::kLongestAnswer));
    bench.Step(what, input.Take(length));
  }
  return 0;
}
