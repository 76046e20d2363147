#include "groups/RecordTexts.h"

#include <array>

#include "base/Numbers.h"

namespace tintbench::groups {

namespace {

constexpr std::size_t kRuleLength = 70;
constexpr const char* kEmpty = "'";

std::string Rule(char sign) { return kEmpty + std::string(kRuleLength, sign); }

// A symbol is explained without its dot.
std::string Told(const std::string& symbol, const std::string& meaning) {
  return kEmpty + symbol.substr(1) + " = " + meaning;
}

struct GeneralLine {
  Mark Symbol;
  const char* Meaning;
};

constexpr std::array<GeneralLine, 6> kGeneralLines{
    {{Mark::DispensingCheck, "Verify dispensing conditions"},
     {Mark::StartRecording, "Start recording"},
     {Mark::EndRecording, "End recording"},
     {Mark::EnquiryOn, "Enquire ON"},
     {Mark::EnquiryOff, "Enquire OFF"},
     {Mark::EnquiryTime, "Enquire time[ milliseconds ]"}}};

struct ElementLine {
  Mark Symbol;
  const char* Name;
  std::string ElementNames::*Element;
  const char* State;
};

constexpr std::array<ElementLine, 9> kElementLines{{
    {Mark::CapOpen, "Cap[ ", &ElementNames::Cap, " ] OPEN"},
    {Mark::CapClose, "Cap[ ", &ElementNames::Cap, " ] CLOSED"},
    {Mark::ValveOn, "Valve[ ", &ElementNames::Valve, " ] ON"},
    {Mark::ValveOff, "Valve[ ", &ElementNames::Valve, " ] OFF"},
    {Mark::StirringOn, "Stirring[ ", &ElementNames::Stirring, " ] ON"},
    {Mark::StirringOff, "Stirring[ ", &ElementNames::Stirring, " ] OFF"},
    {Mark::MotorOn, "Motor[ ", &ElementNames::Motor, " ] ON"},
    {Mark::MotorOff, "Motor[ ", &ElementNames::Motor, " ] OFF"},
    {Mark::MotorSpeed, "Motor[ ", &ElementNames::Motor, " ] speed"},
}};

void AddGeneral(const ElementNames& names, RecordLines& lines) {
  lines.insert(lines.end(), {kEmpty, "' General commands and data:"});
  for (const GeneralLine& line : kGeneralLines) {
    lines.push_back(Told(RecordSymbol(line.Symbol, names), line.Meaning));
  }
  for (const ElementLine& line : kElementLines) {
    lines.push_back(
        Told(RecordSymbol(line.Symbol, names), line.Name + names.*line.Element + line.State));
  }
}

struct InputLine {
  InputMark Symbol;
  const char* State;
};

constexpr std::array<InputLine, 5> kInputLines{{
    {InputMark::On, " ] enabled for enquiry"},
    {InputMark::Off, " ] disabled for enquiry"},
    {InputMark::Enquired, " ] enquired"},
    {InputMark::FunctionOn, " ] X_function set to 1"},
    {InputMark::FunctionOff, " ] X_function set to 0"},
}};

// How one family of inputs is told.
struct InputFamily {
  config::InputKind Kind;
  const char* Title;
  const char* Name;
  int FirstTold;  // the number in words of the first input, whose symbol has 1
};

constexpr InputFamily kDigitalFamily{config::kDigitalInput, "' Digital inputs:", "digital input[ ",
                                     0};
constexpr InputFamily kAnalogueFamily{config::kAnalogueInput,
                                      "' Analogical inputs:", "analogical input[ ", 1};

void AddInputs(const InputFamily& family, const std::vector<RecordedInput>& inputs,
               RecordLines& lines) {
  lines.insert(lines.end(), {kEmpty, family.Title, kEmpty});
  for (const RecordedInput& input : inputs) {
    lines.push_back("' " + input.Description + " on connector[ " + input.Connector + " ], " +
                    input.Sensor);
    const std::string name = family.Name + base::PlainNumber(input.Number - 1 + family.FirstTold);
    for (const InputLine& line : kInputLines) {
      lines.push_back(
          Told(InputRecordSymbol(family.Kind, input.Number, line.Symbol), name + line.State));
    }
    lines.emplace_back(kEmpty);
  }
}

}  // namespace

RecordLines HeaderLines(const RecordedGroup& group) {
  RecordLines lines{kEmpty,
                    Rule('*'),
                    kEmpty,
                    "' HEADER",
                    kEmpty,
                    "' MONITORING SESSION DESCRIPTION FOR GROUP[ " + group.Address + " ]",
                    kEmpty,
                    "' Symbols:",
                    "' 1) symbol[ >) ] = command to machine",
                    "' 2) symbol[ -) ] = enable/disable switch",
                    "' 3) symbol[ =) ] = data value"};
  AddGeneral(group.Names, lines);
  AddInputs(kDigitalFamily, group.Digital, lines);
  AddInputs(kAnalogueFamily, group.Analogue, lines);
  lines.emplace_back(kEmpty);
  return lines;
}

RecordLines StartLines(const std::string& time) {
  return {Rule('-'), kEmpty, time + RecordSymbol(Mark::StartRecording, {}), kEmpty};
}

RecordLines EndLines(const std::string& time, const std::string& reason) {
  return {kEmpty, time + RecordSymbol(Mark::EndRecording, {}) + reason, kEmpty, Rule('-'), kEmpty};
}

}  // namespace tintbench::groups
