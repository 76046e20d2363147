// How the editor's boxes and marked rows stand for a parameter's text, and what text they make.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "config/SelectorCatalogue.h"

namespace tintbench::editor {

// A selector's rows, for a parameter that takes one of its values.
struct SelectorItem {
  std::string Text;
  int Value = 0;  // what a click on the row puts in as the new value
};
struct SelectorList {
  std::vector<SelectorItem> Items;
  int Selected = -1;  // the row with the parameter's value, from 0; -1 if none has it
};
SelectorList ReadSelectorList(const config::SelectorCatalogue& selectors, const std::string& key,
                              std::string_view value);

// A mask: four hexadecimal digits for 16 boxes, of which box 0 is the highest bit.
inline constexpr std::size_t kMaskBoxes = 16;
enum class MaskMark : char { kClear, kSet, kUnknown };
using Mask = std::array<MaskMark, kMaskBoxes>;

// What is no hexadecimal digit, or is missing, leaves its four boxes unknown.
Mask ShowMask(std::string_view value);
// Unknown boxes count as clear.
std::string ReadMask(const Mask& mask);
// The first box but `box` that is set, which the click on `box` clears where only one connection
// is allowed; -1 if there is none.
int OtherMarkedBox(const Mask& mask, int box);

// Group addresses 1 to 32, two hexadecimal digits each.
inline constexpr std::size_t kAddressRows = 32;
using AddressMarks = std::array<bool, kAddressRows>;  // address 1 first

// " 1) group address 01" and so on.
std::vector<std::string> AddressRowTexts();
// Pairs that are no such address, and an odd character at the end, are passed over.
AddressMarks ShowGroupAddresses(std::string_view value);
// In ascending order.
std::string ReadGroupAddresses(const AddressMarks& marks);

// Functionalities: "1" or "0" for each row of their selector list.
inline constexpr const char* kFunctionsKey = "X_FUN";
using FunctionMarks = std::vector<bool>;

std::vector<std::string> FunctionRowTexts(const config::SelectorCatalogue& selectors);
// A row without a name stands for nothing yet: the operator can't mark it.
bool IsReservedRow(std::string_view text);
// A value with more characters than there are rows marks nothing.
FunctionMarks ShowFunctionalities(std::string_view value, std::size_t rows);
std::string ReadFunctionalities(const FunctionMarks& marks);

}  // namespace tintbench::editor
