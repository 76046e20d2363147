#include "simulator/Text.h"

#include <algorithm>
#include <charconv>

namespace tintbench::simulator {

namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

bool IsHex(char character) {
  return IsDigit(character) || (character >= 'A' && character <= 'F') ||
         (character >= 'a' && character <= 'f');
}

std::string InBase(std::uint64_t value, std::size_t width, unsigned base) {
  std::string text(width, '0');
  for (std::size_t place = width; place > 0; --place) {
    text[place - 1] = "0123456789ABCDEF"[value % base];
    value /= base;
  }
  return text;
}

}  // namespace

std::string UpperCase(std::string_view text) {
  std::string upper(text);
  for (char& character : upper) {
    if (character >= 'a' && character <= 'z') character = static_cast<char>(character - 'a' + 'A');
  }
  return upper;
}

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n\x1A";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::vector<std::string> Words(std::string_view text) {
  std::vector<std::string> words;
  for (std::string& piece : Split(text, ' ')) {
    if (const std::string_view word = Trim(piece); !word.empty()) words.emplace_back(word);
  }
  return words;
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  while (true) {
    const std::size_t place = text.find(separator);
    pieces.emplace_back(text.substr(0, place));
    if (place == std::string_view::npos) return pieces;
    text.remove_prefix(place + 1);
  }
}

bool AllDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); }

bool AllHex(std::string_view text) { return std::all_of(text.begin(), text.end(), IsHex); }

int LeadingNumber(std::string_view text) {
  text = Trim(text);
  int value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc{} ? value : 0;
}

std::optional<double> WholeNumber(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  if (!(value > -1e12 && value < 1e12)) return std::nullopt;
  return value;
}

std::optional<std::uint32_t> HexNumber(std::string_view text) {
  std::uint32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
  if (text.empty() || error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return value;
}

std::string Decimal(std::uint64_t value, std::size_t width) { return InBase(value, width, 10); }

std::string Hex(std::uint64_t value, std::size_t width) { return InBase(value, width, 16); }

}  // namespace tintbench::simulator
