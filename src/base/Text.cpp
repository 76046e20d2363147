#include "base/Text.h"

#include <algorithm>
#include <optional>

namespace tintbench::base {

namespace {

struct Span {
  std::size_t Start;
  std::size_t Length;
};

// Where the `number`-th field of `text` lies, the text being read with one more delimiter behind.
std::optional<Span> LocateField(int number, std::string_view text, std::string_view delimiter) {
  if (number < 1 || delimiter.empty()) return std::nullopt;
  std::size_t start = 0;
  for (int field = 1;; ++field) {
    const std::size_t found = text.find(delimiter, start);
    if (field == number) return Span{start, std::min(found, text.size()) - start};
    if (found == std::string_view::npos) return std::nullopt;
    start = found + delimiter.size();
  }
}

int CountOf(std::string_view text, std::string_view delimiter) {
  int count = 0;
  for (std::size_t at = text.find(delimiter); at != std::string_view::npos;
       at = text.find(delimiter, at + delimiter.size())) {
    ++count;
  }
  return count;
}

std::size_t Clamped(int count, std::size_t limit) {
  return count < 0 ? 0 : std::min(static_cast<std::size_t>(count), limit);
}

char UpperChar(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
char LowerChar(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

std::string Folded(std::string_view text, char (*fold)(char)) {
  std::string folded(text);
  std::transform(folded.begin(), folded.end(), folded.begin(), fold);
  return folded;
}

std::string_view WithoutLeft(std::string_view text, char character) {
  text.remove_prefix(std::min(text.find_first_not_of(character), text.size()));
  return text;
}

std::string_view WithoutRight(std::string_view text, char character) {
  return text.substr(0, text.find_last_not_of(character) + 1);
}

}  // namespace

std::string GetField(int number, std::string_view text, std::string_view delimiter) {
  const auto span = LocateField(number, text, delimiter);
  return span ? std::string(text.substr(span->Start, span->Length)) : std::string();
}

std::string SetField(int number, std::string_view value, std::string_view text,
                     std::string_view delimiter) {
  const auto span = LocateField(number, text, delimiter);
  if (!span) return {};
  return std::string(text).replace(span->Start, span->Length, value);
}

int CountFields(std::string_view text, std::string_view delimiter) {
  if (text.empty() || delimiter.empty()) return text.empty() ? 0 : 1;
  return CountOf(text, delimiter) + (text.ends_with(delimiter) ? 0 : 1);
}

int FindField(std::string_view value, std::string_view text, std::string_view delimiter) {
  if (delimiter.empty()) return 0;
  const auto wrapped = [delimiter](std::string_view inner) {
    return std::string(delimiter).append(inner).append(delimiter);
  };
  const std::string haystack = wrapped(text);
  const std::size_t found = haystack.find(wrapped(value));
  if (found == std::string::npos) return 0;
  return CountOf(std::string_view(haystack).substr(0, found), delimiter) + 1;
}

std::vector<std::string> SplitFields(std::string_view text, std::string_view delimiter) {
  std::vector<std::string> fields;
  if (delimiter.empty()) return fields;
  while (!text.empty()) {
    const std::size_t found = text.find(delimiter);
    fields.emplace_back(text.substr(0, found));
    if (found == std::string_view::npos) break;
    text.remove_prefix(found + delimiter.size());
  }
  return fields;
}

std::string Join(const std::vector<std::string>& pieces, std::string_view delimiter) {
  std::string joined;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    if (i > 0) joined += delimiter;
    joined += pieces[i];
  }
  return joined;
}

std::string JoinLines(std::initializer_list<std::string_view> lines) {
  return Join(std::vector<std::string>(lines.begin(), lines.end()), kCrLf);
}

void StripChar(std::string& text, char character) {
  text = std::string(WithoutRight(WithoutLeft(text, character), character));
}

std::string TrimLeft(std::string_view text) { return std::string(WithoutLeft(text, ' ')); }

std::string TrimRight(std::string_view text) { return std::string(WithoutRight(text, ' ')); }

std::string Trim(std::string_view text) {
  return std::string(WithoutRight(WithoutLeft(text, ' '), ' '));
}

std::string ToUpper(std::string_view text) { return Folded(text, UpperChar); }

std::string ToLower(std::string_view text) { return Folded(text, LowerChar); }

bool EqualFolded(std::string_view left, std::string_view right) {
  return left.size() == right.size() && ToLower(left) == ToLower(right);
}

std::string Left(std::string_view text, int count) {
  return std::string(text.substr(0, Clamped(count, text.size())));
}

std::string Right(std::string_view text, int count) {
  return std::string(text.substr(text.size() - Clamped(count, text.size())));
}

std::string Mid(std::string_view text, int position, int count) {
  return Left(Mid(text, position), count);
}

std::string Mid(std::string_view text, int position) {
  return std::string(text.substr(position < 1 ? 0 : Clamped(position - 1, text.size())));
}

std::string Behind(std::string_view text, char mark) {
  const std::size_t found = text.find(mark);
  return found == std::string_view::npos ? std::string() : std::string(text.substr(found + 1));
}

std::string Bracketed(std::string_view text) {
  return std::string("[ ").append(text).append(" ] ");
}

std::string Dashed(std::string_view text) { return std::string("- ").append(text).append(" -"); }

}  // namespace tintbench::base
