// The helpers for texts, numbers and paths. An input is a field's number, a position, and what
// stands on three lines: a delimiter, of which the first character counts, a value and the text.
#include <cmath>

#include "FuzzInput.h"
#include "Target.h"
#include "base/Files.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"

namespace tintbench::fuzz {
namespace {

using base::GetField;

bool Holds(const std::string& text, const std::string& piece) {
  return text.find(piece) != std::string::npos;
}

void CheckFields(int number, const std::string& value, const std::string& text,
                 const std::string& delimiter) {
  const int count = base::CountFields(text, delimiter);
  const std::string field = GetField(number, text, delimiter);
  Require(!Holds(field, delimiter), "a field has no delimiter");
  Require(number <= count || field.empty(), "behind the last field there is none");
  const auto fields = base::SplitFields(text, delimiter);
  Require(static_cast<int>(fields.size()) == count, "a split gives all fields");
  const std::string joined = base::Join(fields, delimiter);
  Require(text == joined || text == joined + delimiter, "joined they are the text");
  if (number >= 1 && number <= count) {
    Require(field == fields[static_cast<std::size_t>(number) - 1], "in their order");
  }
  const int found = base::FindField(field, text, delimiter);
  Require(number < 1 || number > count || (found >= 1 && found <= number), "a field is found");
  const std::string set = base::SetField(number, value, text, delimiter);
  if (Holds(value, delimiter)) return;
  Require(number < 1 || number > count || GetField(number, set, delimiter) == value,
          "a field that was set is there");
  Require(
      set.empty() || GetField(number + 1, set, delimiter) == GetField(number + 1, text, delimiter),
      "its neighbour stays");
}

void CheckTrims(const std::string& text, char character) {
  std::string stripped = text;
  base::StripChar(stripped, character);
  std::string again = stripped;
  base::StripChar(again, character);
  Require(again == stripped && Holds(text, stripped), "stripping takes all at both ends");
  const std::string trimmed = base::Trim(text);
  Require(trimmed == base::TrimLeft(base::TrimRight(text)), "a trim is two trims");
  Require(base::ToUpper(base::ToLower(text)) == base::ToUpper(text), "folding is by character");
  Require(base::EqualFolded(text, base::ToUpper(text)), "folded texts are equal");
}

void CheckCuts(int position, const std::string& text) {
  const std::string left = base::Left(text, position);
  const std::string rest = base::Mid(text, position + 1);
  if (position >= 0) Require(left + rest == text, "the parts are the whole");
  Require(left.size() + base::Right(text, static_cast<int>(text.size() - left.size())).size() ==
              text.size(),
          "from either end");
  Require(base::Mid(text, position, 1).size() <= 1, "one character is one");
}

void CheckNumbers(const std::string& text) {
  const double number = base::LeadingNumber(text);
  Require(std::isfinite(number), "a number is finite");
  Require(base::LeadingNumber(base::PlainNumber(number)) == number, "a number survives its text");
  Require(base::IsNumeric(base::BlankNumber(number)), "a number's text is numeric");
  Require(std::abs(base::RoundHalfEven(number) - number) <= 0.5, "rounding goes to the nearest");
  Require(std::isfinite(base::RoundHalfEven(number, 3)), "at any decimals");
  const std::int64_t whole = base::LeadingWhole(text);
  Require(base::LeadingWhole(base::PlainNumber(whole)) == whole || std::abs(number) > 1e15,
          "a whole number survives its text");
  Require(base::LastDigits(text, 2).size() == 2, "two digits are two");
  const std::int64_t hex = base::LeadingHex(text);
  Require(hex >= 0, "hexadecimal digits have no sign");
  Require(base::LeadingHex(base::ToHex(static_cast<std::uint64_t>(hex), 16)) == hex,
          "a hexadecimal number survives its text");
  if (base::IsNumeric(text)) {
    Require(base::LeadingNumber(text + " x") == number, "what follows doesn't count");
  }
}

void CheckPaths(const std::string& text) {
  Require(base::FilePath(text) + base::FileName(text) == text, "folder and name are the path");
  const std::string name = base::FileName(text);
  const std::string stem = base::FileStem(text);
  const std::string extension = base::FileExtension(text);
  Require(name == stem || name == stem + "." + extension, "stem and extension are the name");
  Require(base::JoinPath("", text) == text, "an empty folder adds nothing");
}

void CheckPatterns(const std::string& name, const std::string& pattern) {
  const bool literal = pattern.find_first_of("*?") == std::string::npos;
  const bool matches = base::MatchesPattern(name, pattern);
  Require(!literal || matches == base::EqualFolded(name, pattern), "a plain pattern is a name");
  Require(base::MatchesPattern(name, "*"), "all match an asterisk");
  Require(!matches || base::MatchesPattern(name + name, pattern + "*"), "an asterisk takes more");
  Require(!matches || base::MatchesPattern("x" + name, "?" + pattern), "a mark takes one more");
}

}  // namespace
}  // namespace tintbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tintbench;
  fuzz::FuzzInput input(data, size);
  const int number = input.Number(20) - 2;
  const int position = input.Number(40) - 2;
  const std::string delimiter = input.Line().substr(0, 1);
  const std::string value = input.Line();
  const std::string text = input.Rest();
  if (!delimiter.empty()) fuzz::CheckFields(number, value, text, delimiter);
  fuzz::CheckTrims(text, delimiter.empty() ? '"' : delimiter[0]);
  fuzz::CheckCuts(position, text);
  fuzz::CheckNumbers(text);
  fuzz::CheckPaths(text);
  fuzz::CheckPatterns(text, value);
  return 0;
}
