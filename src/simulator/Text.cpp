#include "simulator/Text.h"

#include <algorithm>
#include <charconv>

namespace tintbench::simulator {

namespace {

bool IsDigit(char character) { return character >= '0' && character <= '9'; }

}  // namespace

std::string_view Trim(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r\n\x1A";
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view WithoutPadding(std::string_view text) {
  while (!text.empty() && text.back() == '\x1A') text.remove_suffix(1);
  return text;
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

std::string Join(std::span<const std::string> pieces, std::string_view separator) {
  std::string text;
  for (const std::string& piece : pieces) {
    if (&piece != pieces.data()) text += separator;
    text += piece;
  }
  return text;
}

bool AllDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), IsDigit); }

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

}  // namespace tintbench::simulator
