// Text helpers that the whole program shares: delimited fields, trims, ASCII case folding and
// the two report styles. Field numbers and positions count from 1.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::base {

inline constexpr std::string_view kCrLf = "\r\n";

// The `number`-th field of `text` without its delimiters. Empty if there are fewer fields, if
// `number` is below 1 or if text or delimiter is empty.
std::string GetField(int number, std::string_view text, std::string_view delimiter);

// `text` with its `number`-th field replaced by `value`. The text is read as if one more delimiter
// stood at its end, so the empty field behind a last delimiter can be set, and an empty text has
// one field. Empty if there is no such field or the delimiter is empty.
std::string SetField(int number, std::string_view value, std::string_view text,
                     std::string_view delimiter);

// Number of fields: 0 for an empty text, and a last delimiter adds none ("a,b" and "a,b," have 2).
int CountFields(std::string_view text, std::string_view delimiter);

// Number of the first whole field that equals `value`; 0 if none does.
int FindField(std::string_view value, std::string_view text, std::string_view delimiter);

// All fields in order, as many as CountFields says.
std::vector<std::string> SplitFields(std::string_view text, std::string_view delimiter);

// The pieces with `delimiter` between them.
std::string Join(const std::vector<std::string>& pieces, std::string_view delimiter);

// The lines with CR LF between them and none behind the last.
std::string JoinLines(std::initializer_list<std::string_view> lines);

// Removes all occurrences of `character` that stand at the front and at the end of `text`.
void StripChar(std::string& text, char character);

// Without the blanks at the left, at the right, at both ends. Only the character 32 is a blank.
std::string TrimLeft(std::string_view text);
std::string TrimRight(std::string_view text);
std::string Trim(std::string_view text);

// ASCII letters folded; every other byte stays as it is.
std::string ToUpper(std::string_view text);
std::string ToLower(std::string_view text);

// True if the two differ in nothing but the case of ASCII letters.
bool EqualFolded(std::string_view left, std::string_view right);

// Parts of a text that never reach beyond it: the first or the last `count` characters, or
// `count` characters from `position`. A count below 0 counts as 0.
std::string Left(std::string_view text, int count);
std::string Right(std::string_view text, int count);
std::string Mid(std::string_view text, int position, int count);
// All from `position` on.
std::string Mid(std::string_view text, int position);

// What stands behind the first occurrence of `mark`; empty if it doesn't occur.
std::string Behind(std::string_view text, char mark);

// "[ text ] ", with a blank at the end.
std::string Bracketed(std::string_view text);

// "- text -".
std::string Dashed(std::string_view text);

}  // namespace tintbench::base
