#include "base/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/Text.h"

namespace tintbench::base {

namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
  while (at < text.size() && text[at] == ' ') ++at;
  return at;
}

std::size_t SkipDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

std::size_t SkipSign(std::string_view text, std::size_t at) {
  return at < text.size() && (text[at] == '+' || text[at] == '-') ? at + 1 : at;
}

// The end of the exponent that begins at `at`, or `at` itself if none does.
std::size_t SkipExponent(std::string_view text, std::size_t at) {
  if (at >= text.size() || (text[at] != 'e' && text[at] != 'E')) return at;
  const std::size_t digits = SkipSign(text, at + 1);
  const std::size_t end = SkipDigits(text, digits);
  return end > digits ? end : at;
}

// The end of the number that begins at `at`, or `at` itself if none does.
std::size_t SkipNumber(std::string_view text, std::size_t at) {
  const std::size_t whole = SkipSign(text, at);
  std::size_t end = SkipDigits(text, whole);
  std::size_t digits = end - whole;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fraction = SkipDigits(text, end + 1);
    digits += fraction - (end + 1);
    end = fraction;
  }
  return digits == 0 ? at : SkipExponent(text, end);
}

// An unsigned number that doesn't fit a double: 0 if it is too small, the largest double if it is
// too large. Which of them its first digit's place tells.
double OutOfRange(std::string_view digits) {
  const std::size_t mark = std::min(digits.find_first_of("eE"), digits.size());
  const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), mark));
  const auto first = static_cast<std::int64_t>(digits.find_first_of("123456789"));
  const std::int64_t exponent = mark < digits.size() ? LeadingWhole(digits.substr(mark + 1)) : 0;
  const std::int64_t place = point - first;
  return exponent > -place ? std::numeric_limits<double>::max() : 0.0;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  const std::size_t start = SkipBlanks(text, 0);
  const std::size_t end = SkipNumber(text, start);
  if (end == start) return 0.0;
  const std::string_view digits = text.substr(SkipSign(text, start), end - SkipSign(text, start));
  double value = 0.0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (result.ec == std::errc::result_out_of_range) value = OutOfRange(digits);
  return text[start] == '-' ? -value : value;
}

std::int64_t LeadingWhole(std::string_view text) {
  const double value = RoundHalfEven(LeadingNumber(text));
  // The largest 64-bit number isn't a double; its successor is.
  constexpr double kLimit = 9223372036854775808.0;
  if (value >= kLimit) return std::numeric_limits<std::int64_t>::max();
  if (value < -kLimit) return std::numeric_limits<std::int64_t>::min();
  return static_cast<std::int64_t>(value);
}

int LeadingInt(std::string_view text) {
  const std::int64_t value = LeadingWhole(text);
  constexpr std::int64_t kMin = std::numeric_limits<int>::min();
  constexpr std::int64_t kMax = std::numeric_limits<int>::max();
  return static_cast<int>(value < kMin ? kMin : value > kMax ? kMax : value);
}

bool IsNumeric(std::string_view text) {
  const std::size_t start = SkipBlanks(text, 0);
  const std::size_t end = SkipNumber(text, start);
  return end > start && SkipBlanks(text, end) == text.size();
}

double RoundHalfEven(double value) {
  return std::isfinite(value) ? value - std::remainder(value, 1.0) : value;
}

double RoundHalfEven(double value, int decimals) {
  const double scale = std::pow(10.0, decimals);
  const double scaled = value * scale;
  return std::isfinite(scaled) ? RoundHalfEven(scaled) / scale : value;
}

std::string PlainNumber(double value) {
  // A double has at most 309 digits before the point, or 1074 behind it.
  std::array<char, 1100> buffer{};
  const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                    value == 0.0 ? 0.0 : value, std::chars_format::fixed);
  return std::string(buffer.data(), result.ptr);
}

std::string BlankNumber(double value) {
  const std::string number = PlainNumber(value);
  return number.starts_with('-') ? number : " " + number;
}

std::string LastDigits(std::int64_t value, int digits) {
  return LastDigits(PlainNumber(value), digits);
}

std::string LastDigits(std::string_view text, int digits) {
  if (digits <= 0) return {};
  return Right(std::string(static_cast<std::size_t>(digits), '0').append(text), digits);
}

int HexDigitValue(char digit) {
  const char lower = digit >= 'A' && digit <= 'F' ? static_cast<char>(digit - 'A' + 'a') : digit;
  const std::size_t found = kHexDigits.find(lower);
  return found == std::string_view::npos ? -1 : static_cast<int>(found);
}

bool IsHexadecimal(std::string_view text) {
  for (const char digit : text) {
    if (HexDigitValue(digit) < 0) return false;
  }
  return !text.empty();
}

std::int64_t LeadingHex(std::string_view text) {
  constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
  std::int64_t value = 0;
  for (const char digit : text) {
    const int nibble = HexDigitValue(digit);
    if (nibble < 0) break;
    if (value > (kMax - nibble) / 16) return kMax;
    value = value * 16 + nibble;
  }
  return value;
}

std::string ToHex(std::uint64_t value, int digits) {
  std::string text(digits > 0 ? static_cast<std::size_t>(digits) : 0, '0');
  for (std::size_t i = text.size(); i > 0; --i) {
    text[i - 1] = ToUpper(kHexDigits.substr(value % 16, 1))[0];
    value /= 16;
  }
  return text;
}

std::string HexToBinary(std::string_view digits) {
  constexpr std::string_view kNibbles =
      "0000000100100011010001010110011110001001101010111100110111101111";
  std::string bits;
  for (const char digit : digits) {
    const int value = HexDigitValue(digit);
    bits += value < 0 ? "EEEE" : kNibbles.substr(static_cast<std::size_t>(value) * 4, 4);
  }
  return bits;
}

}  // namespace tintbench::base
