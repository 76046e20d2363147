// Numbers as texts, by the C locale whatever the user's: reading them, writing them, rounding, and
// hexadecimal digits. Nothing here overflows; what is too large becomes the largest value.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

namespace tintbench::base {

// The digits of hexadecimal numbers in the order of their values, lower case.
inline constexpr std::string_view kHexDigits = "0123456789abcdef";

// The number that `text` begins with: blanks, a sign, digits with a decimal point, an exponent.
// 0 if it begins with none.
double LeadingNumber(std::string_view text);

// The leading number as a whole number, a half going to the even neighbour.
std::int64_t LeadingWhole(std::string_view text);

// The same within the range of an int.
int LeadingInt(std::string_view text);

// True if the whole text is one number, with blanks allowed around it. An empty text is none.
bool IsNumeric(std::string_view text);

// The nearest whole number, a half going to the even neighbour.
double RoundHalfEven(double value);

// The same at the given number of decimals, 0 or more.
double RoundHalfEven(double value, int decimals);

// The number in as few digits as tell it from its neighbours, never with an exponent.
std::string PlainNumber(double value);
template <std::integral Number>
std::string PlainNumber(Number value) {
  return std::to_string(value);
}

// The plain form with one blank in front of a number that isn't negative.
std::string BlankNumber(double value);
template <std::integral Number>
std::string BlankNumber(Number value) {
  return value < 0 ? PlainNumber(value) : " " + PlainNumber(value);
}

// The last `digits` characters of zeros joined with the plain form: 7 gives "07", 123 gives "23".
std::string LastDigits(std::int64_t value, int digits);

// The same for a number that is a text already.
std::string LastDigits(std::string_view text, int digits);

// Value of one hexadecimal digit in either case, -1 for any other character.
int HexDigitValue(char digit);

// True if the text isn't empty and every character is a hexadecimal digit.
bool IsHexadecimal(std::string_view text);

// The hexadecimal number that `text` begins with; 0 if it begins with none.
std::int64_t LeadingHex(std::string_view text);

// `value` as `digits` upper-case hexadecimal digits, its higher digits cut off.
std::string ToHex(std::uint64_t value, int digits);

// Four characters "0" or "1" for each hexadecimal digit, highest bit first; "EEEE" for a character
// that is none.
std::string HexToBinary(std::string_view digits);

}  // namespace tintbench::base
