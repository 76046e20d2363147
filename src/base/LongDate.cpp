#include "base/LongDate.h"

#include <chrono>
#include <cstdint>
#include <ctime>
#include <iomanip>
#include <sstream>
#include <stdexcept>

#include "base/Numbers.h"

namespace tintbench::base {

namespace {

// One character, which is no surrogate.
std::string Utf8Of(std::uint32_t code) {
  const auto byte = [code](unsigned shift, std::uint32_t mask, std::uint32_t mark) {
    return static_cast<char>(mark | ((code >> shift) & mask));
  };
  if (code < 0x80U) return {byte(0, 0x7FU, 0)};
  if (code < 0x800U) return {byte(6, 0x1FU, 0xC0U), byte(0, 0x3FU, 0x80U)};
  if (code < 0x10000U) {
    return {byte(12, 0x0FU, 0xE0U), byte(6, 0x3FU, 0x80U), byte(0, 0x3FU, 0x80U)};
  }
  return {byte(18, 0x07U, 0xF0U), byte(12, 0x3FU, 0x80U), byte(6, 0x3FU, 0x80U),
          byte(0, 0x3FU, 0x80U)};
}

// Languages that write their months small get a capital letter, too.
std::string Name(const std::tm& day, const wchar_t* format, const std::locale& language) {
  std::wostringstream written;
  written.imbue(language);
  written << std::put_time(&day, format);
  const auto& letters = std::use_facet<std::ctype<wchar_t>>(language);
  std::string name;
  bool first = true;
  for (const wchar_t letter : written.str()) {
    const wchar_t cased = first ? letters.toupper(letter) : letters.tolower(letter);
    name += Utf8Of(static_cast<std::uint32_t>(cased));
    first = false;
  }
  return name;
}

}  // namespace

std::locale SystemLanguage() {
  try {
    return std::locale("");
  } catch (const std::runtime_error&) {  // a language that isn't installed
    return std::locale::classic();
  }
}

std::optional<std::string> LongDateText(int year, int month, int day, const std::locale& language) {
  if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1) return {};
  const std::chrono::year_month_day date(std::chrono::year(year),
                                         std::chrono::month(static_cast<unsigned>(month)),
                                         std::chrono::day(static_cast<unsigned>(day)));
  if (!date.ok()) return {};
  std::tm named{};
  named.tm_mon = month - 1;
  named.tm_wday = static_cast<int>(std::chrono::weekday(std::chrono::sys_days(date)).c_encoding());
  return Name(named, L"%A", language) + ",  " + Name(named, L"%B", language) + " " +
         PlainNumber(day) + ",  " + PlainNumber(year);
}

}  // namespace tintbench::base
