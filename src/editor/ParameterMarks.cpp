#include "editor/ParameterMarks.h"

#include <algorithm>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::editor {

namespace {

constexpr std::size_t kBitsOfDigit = 4;
constexpr std::size_t kDigitsOfAddress = 2;

struct SelectorRow {
  std::string Text;
  std::string Value;
};

std::vector<SelectorRow> RowsOf(const config::SelectorCatalogue& selectors,
                                const std::string& key) {
  std::vector<SelectorRow> rows;
  config::SelectorWalk walk(selectors);
  std::string value;
  for (std::string text = walk.NextSelectorItem(key, value); text != config::SelectorEnd();
       text = walk.NextSelectorItem("", value)) {
    rows.push_back({text, value});
  }
  return rows;
}

MaskMark MarkOf(char bit) {
  if (bit == 'E') return MaskMark::kUnknown;
  return bit == '1' ? MaskMark::kSet : MaskMark::kClear;
}

std::string AddressText(std::size_t row) { return base::ToHex(row + 1, kDigitsOfAddress); }

}  // namespace

SelectorList ReadSelectorList(const config::SelectorCatalogue& selectors, const std::string& key,
                              std::string_view value) {
  SelectorList list;
  for (const SelectorRow& row : RowsOf(selectors, key)) {
    if (row.Value == value) list.Selected = static_cast<int>(list.Items.size());
    list.Items.push_back({row.Text, base::LeadingInt(row.Value)});
  }
  return list;
}

Mask ShowMask(std::string_view value) {
  std::string bits = base::HexToBinary(value.substr(0, kMaskBoxes / kBitsOfDigit));
  bits.resize(kMaskBoxes, 'E');
  Mask mask{};
  std::transform(bits.begin(), bits.end(), mask.begin(), MarkOf);
  return mask;
}

std::string ReadMask(const Mask& mask) {
  std::uint64_t value = 0;
  for (const MaskMark mark : mask) value = value * 2 + (mark == MaskMark::kSet ? 1 : 0);
  return base::ToHex(value, kMaskBoxes / kBitsOfDigit);
}

int OtherMarkedBox(const Mask& mask, int box) {
  for (int other = 0; other < static_cast<int>(mask.size()); ++other) {
    if (other != box && mask[static_cast<std::size_t>(other)] == MaskMark::kSet) return other;
  }
  return -1;
}

std::vector<std::string> AddressRowTexts() {
  std::vector<std::string> texts;
  for (std::size_t row = 0; row < kAddressRows; ++row) {
    const std::string number = base::Right(" " + base::PlainNumber(row + 1), 2);
    texts.push_back(number + ") group address " + AddressText(row));
  }
  return texts;
}

AddressMarks ShowGroupAddresses(std::string_view value) {
  AddressMarks marks{};
  for (std::size_t at = 0; at + kDigitsOfAddress <= value.size(); at += kDigitsOfAddress) {
    const std::string_view pair = value.substr(at, kDigitsOfAddress);
    const auto address = base::IsHexadecimal(pair) ? base::LeadingHex(pair) : 0;
    if (address >= 1 && address <= static_cast<std::int64_t>(kAddressRows)) {
      marks[static_cast<std::size_t>(address) - 1] = true;
    }
  }
  return marks;
}

std::string ReadGroupAddresses(const AddressMarks& marks) {
  std::string value;
  for (std::size_t row = 0; row < marks.size(); ++row) {
    if (marks[row]) value += AddressText(row);
  }
  return value;
}

std::vector<std::string> FunctionRowTexts(const config::SelectorCatalogue& selectors) {
  std::vector<std::string> texts;
  for (SelectorRow& row : RowsOf(selectors, kFunctionsKey)) texts.push_back(std::move(row.Text));
  return texts;
}

bool IsReservedRow(std::string_view text) { return base::TrimRight(text).ends_with(']'); }

FunctionMarks ShowFunctionalities(std::string_view value, std::size_t rows) {
  FunctionMarks marks(rows, false);
  if (value.size() > rows) return marks;
  for (std::size_t row = 0; row < value.size(); ++row) marks[row] = value[row] == '1';
  return marks;
}

std::string ReadFunctionalities(const FunctionMarks& marks) {
  std::string value;
  for (const bool mark : marks) value += mark ? '1' : '0';
  return value;
}

}  // namespace tintbench::editor
