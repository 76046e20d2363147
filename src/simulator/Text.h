// The machine's own small helpers for digits and words.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::simulator {

std::string UpperCase(std::string_view text);
std::string_view Trim(std::string_view text);

// The pieces between blanks, none of them empty.
std::vector<std::string> Words(std::string_view text);

// The pieces between separators; one empty piece for an empty text.
std::vector<std::string> Split(std::string_view text, char separator);

bool AllDigits(std::string_view text);
bool AllHex(std::string_view text);

// The leading whole number of a text, 0 if it has none.
int LeadingNumber(std::string_view text);

// The whole text as a number; nothing if it isn't one.
std::optional<double> WholeNumber(std::string_view text);

// The whole text as hexadecimal digits, eight at the most; nothing if it isn't.
std::optional<std::uint32_t> HexNumber(std::string_view text);

// A number with leading zeros, its last `width` digits.
std::string Decimal(std::uint64_t value, std::size_t width);
std::string Hex(std::uint64_t value, std::size_t width);

}  // namespace tintbench::simulator
