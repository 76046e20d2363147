#include "groups/RecordSymbols.h"

#include <array>

#include "base/Numbers.h"

namespace tintbench::groups {

namespace {

struct SymbolParts {
  const char* Front;
  std::string ElementNames::*Element;  // null for a symbol that names no element
  const char* Back;
};

// In the order of Mark.
constexpr std::array<SymbolParts, 15> kSymbols{{{". >) Disp_cond", nullptr, ""},
                                                {". -) START_REC", nullptr, ""},
                                                {". -) END_REC", nullptr, ""},
                                                {". -) ENQ_ON", nullptr, ""},
                                                {". -) ENQ_OFF", nullptr, ""},
                                                {". =) Enq_time[ msec. ]", nullptr, ""},
                                                {". >) C_", &ElementNames::Cap, "_OPEN"},
                                                {". >) C_", &ElementNames::Cap, "_CLOSE"},
                                                {". >) V_", &ElementNames::Valve, "_ON"},
                                                {". >) V_", &ElementNames::Valve, "_OFF"},
                                                {". >) S_", &ElementNames::Stirring, "_ON"},
                                                {". >) S_", &ElementNames::Stirring, "_OFF"},
                                                {". >) M_", &ElementNames::Motor, "_ON"},
                                                {". >) M_", &ElementNames::Motor, "_OFF"},
                                                {". =) M_", &ElementNames::Motor, "_speed"}}};

struct InputParts {
  const char* Front;
  const char* Back;
};

// In the order of InputMark.
constexpr std::array<InputParts, 5> kInputSymbols{{{". -) ", "_ON"},
                                                   {". -) ", "_OFF"},
                                                   {". >) ", "_ENQ"},
                                                   {". >) ", "_Xfun(1)"},
                                                   {". >) ", "_Xfun(0)"}}};

}  // namespace

std::string RecordSymbol(Mark mark, const ElementNames& names) {
  const SymbolParts& parts = kSymbols.at(static_cast<std::size_t>(mark));
  std::string symbol = parts.Front;
  if (parts.Element != nullptr) symbol += names.*parts.Element;
  return symbol + parts.Back;
}

std::string InputRecordSymbol(config::InputKind kind, int number, InputMark mark) {
  const InputParts& parts = kInputSymbols.at(static_cast<std::size_t>(mark));
  return parts.Front + std::string(kind == config::kDigitalInput ? "IDI_" : "IAN_") +
         base::PlainNumber(number) + parts.Back;
}

}  // namespace tintbench::groups
