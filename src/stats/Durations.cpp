#include "stats/Durations.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::stats {

namespace {

constexpr double kDaySeconds = 86400;

struct Unit {
  std::int64_t Seconds;
  const char* Name;
};

constexpr Unit kUnits[] = {{86400, "days"}, {3600, "hours"}, {60, "minutes"}, {1, "seconds"}};

// Days since an arbitrary start in the Gregorian calendar. Years begin with March here, so that
// the leap day is a year's last.
int DayNumber(const base::LocalTime& time) {
  const int months = time.Month + 9;
  const int year = time.Year - 1 + months / 12;
  const int month = months % 12;
  return year * 365 + year / 4 - year / 100 + year / 400 + (month * 153 + 2) / 5 + time.Day;
}

double SecondOfDay(const base::LocalTime& time) {
  return time.Hour * 3600.0 + time.Minute * 60.0 + time.Second;
}

}  // namespace

std::string SecondsToText(std::int64_t seconds) {
  std::string text;
  for (const Unit& unit : kUnits) {
    const std::int64_t whole = seconds / unit.Seconds;
    if (whole <= 0) continue;
    seconds %= unit.Seconds;
    text += base::PlainNumber(whole) + " " + base::Bracketed(unit.Name) + ", ";
  }
  text = base::Trim(text);
  if (!text.empty()) text.pop_back();
  return base::Trim(text);
}

double DaysBetween(const base::LocalTime& from, const base::LocalTime& to) {
  return DayNumber(to) - DayNumber(from) + (SecondOfDay(to) - SecondOfDay(from)) / kDaySeconds;
}

}  // namespace tintbench::stats
