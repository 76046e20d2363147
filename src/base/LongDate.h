// Dates in words, as the user's language has them.
#pragma once

#include <locale>
#include <optional>
#include <string>

namespace tintbench::base {

// The language that the user's system is set to; plain English if it can't be had.
std::locale SystemLanguage();

// "Sunday,  November 15,  2026", in UTF-8, with the names of weekday and month in that language and
// a capital letter in front of each. Nothing if the calendar has no such day.
std::optional<std::string> LongDateText(int year, int month, int day, const std::locale& language);

}  // namespace tintbench::base
