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

constexpr int kHighestFirmware = 9;
constexpr int kLongestAnswer = 1100;
constexpr std::size_t kMostSteps = 100;
constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr const char* kInvalid = "[ INVALID DATA ]";
constexpr int kConnectors = 20;

bool IsAccepted(const std::string& answer, std::size_t length) {
  return answer.size() == length && base::ToUpper(answer)[0] == 'A';
}

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
  }

 private:
  void Inputs(const std::string& answer) {
    const bool good = decoder_.DecodeInputs(panels_, answer);
    Require(good == IsAccepted(answer, 9), "inputs are good by their form");
    ++lifeSigns_[0].Moves;
    const std::string& words = panels_.ILabel1.Caption;
    Require(good ? words.starts_with("Slave Address =") : words == kInvalid, "inputs are told");
    for (int bit = 0; bit < state::kInputBits; ++bit) {
      CheckRow({panels_.ICheck1(bit), panels_.ICheck2(bit), panels_.IShape3(bit)},
               good && state::InputName(Names(), bit).Shown);
      if (bit < kConnectors) CheckSame(panels_.GRShape1(bit), panels_.IShape3(bit));
    }
  }

  void Outputs(const std::string& answer) {
    const bool good = decoder_.DecodeOutputs(panels_, answer);
    Require(good == IsAccepted(answer, 5), "outputs are good by their form");
    ++lifeSigns_[1].Moves;
    Require(panels_.OLabel1.Caption.Get() == (good ? "" : kInvalid), "bad outputs are told");
    for (int output = 0; output < state::kOutputBits; ++output) {
      CheckRow({panels_.OCheck1(output), panels_.OCheck2(output), panels_.OShape3(output)},
               good && state::OutputName(Names(), output).Shown);
      CheckSame(panels_.GRShape1(kConnectors + output), panels_.OShape3(output));
    }
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
    Require(words.starts_with(answer[0] == 'B' ? "Slave IS busy: errors = "
                                               : "Slave NO busy: errors = "),
            "the machine's state is told");
    const auto lines = std::count(text.begin(), text.end(), '\n');
    Require(answer.find('\n') != std::string::npos || words.ends_with(" " + std::to_string(lines)),
            "each error that is counted has a line");
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
    Require(binary.find_first_not_of("01E") == std::string::npos, "bits, or letters for no digit");
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
  };

  // All faces of a bit tell the same, and nothing without data.
  static void CheckRow(const Row& row, bool known) {
    const std::string sign = row.Lamp.Sign;
    Require(sign == "1" || sign == "0" || sign.empty(), "a lamp has its sign");
    Require(known != sign.empty(), "there is a sign where there is data");
    const int value = sign == "1" ? ui::kChecked : ui::kUnchecked;
    const ui::Colour colour = sign.empty()  ? state::kNoDataColour
                              : sign == "1" ? state::kActiveColour
                                            : state::kInactiveColour;
    for (const ui::CheckBox* box : {&row.Button, &row.Square}) {
      Require(box->Value == value && box->BackColor == colour, "a box tells what its lamp does");
    }
    Require(sign.empty() || row.Lamp.FillColor == colour, "a lamp has its colour");
  }

  static void CheckSame(const ui::Shape& onCard, const ui::Shape& lamp) {
    Require(onCard.Sign.Get() == lamp.Sign.Get(), "the card shows what the list does");
  }

  int firmware_;
  ui::Form form_{"Form1"};
  state::SensorPanels panels_{form_};
  state::StateDecoder decoder_{Names(), Errors(), [this] { return firmware_; }};
  std::array<LifeSign, 3> lifeSigns_{{{panels_.IpShape1, panels_.IpShape2},
                                      {panels_.OpShape1, panels_.OpShape2},
                                      {panels_.ErpShape1, panels_.ErpShape2}}};
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
