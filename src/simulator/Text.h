// Small helpers for words and digits that only the machine needs.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::simulator {

// Without blanks, line ends and the padding of a transfer at both ends.
std::string_view Trim(std::string_view text);

// Without the padding that a transfer leaves behind a text.
std::string_view WithoutPadding(std::string_view text);

// The pieces between blanks, none of them empty.
std::vector<std::string> Words(std::string_view text);

// The pieces between separators; one empty piece for an empty text.
std::vector<std::string> Split(std::string_view text, char separator);

// The pieces with a separator between them.
std::string Join(std::span<const std::string> pieces, std::string_view separator);

bool AllDigits(std::string_view text);

// The whole text as a number; nothing if it isn't one.
std::optional<double> WholeNumber(std::string_view text);

// The whole text as hexadecimal digits, eight at the most; nothing if it isn't.
std::optional<std::uint32_t> HexNumber(std::string_view text);

}  // namespace tintbench::simulator
