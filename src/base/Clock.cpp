#include "base/Clock.h"

#include <chrono>
#include <cmath>
#include <ctime>
#include <thread>

namespace tintbench::base {

namespace {

constexpr long kSecondsPerDay = 86400;

// Days since 1970-01-01 of a civil date, and back, by the proleptic Gregorian calendar.
std::chrono::sys_days ToDays(const LocalTime& time) {
  return std::chrono::year{time.Year} / std::chrono::month{static_cast<unsigned>(time.Month)} /
         std::chrono::day{static_cast<unsigned>(time.Day)};
}

}  // namespace

double RealClock::Now() const {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return std::chrono::duration<double>(now).count();
}

void RealClock::Sleep(double seconds) {
  if (seconds > 0) std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
}

void RealClock::SleepUntil(double when) { Sleep(when - Now()); }

LocalTime RealClock::Local() const {
  // std::localtime shares one buffer; the program has one thread, so nothing can overwrite it.
  const std::time_t now = std::time(nullptr);
  const std::tm* local = std::localtime(&now);
  if (local == nullptr) return {};
  return {local->tm_year + 1900, local->tm_mon + 1, local->tm_mday,
          local->tm_hour,        local->tm_min,     local->tm_sec};
}

void VirtualClock::Sleep(double seconds) {
  if (seconds > 0) now_ += seconds;
}

void VirtualClock::SleepUntil(double when) {
  if (when > now_) now_ = when;
}

LocalTime VirtualClock::Local() const {
  const long elapsed = static_cast<long>(std::floor(now_)) + turned_;
  const long ofDay =
      start_.Hour * 3600L + start_.Minute * 60L + static_cast<long>(start_.Second) + elapsed;
  const auto days = std::chrono::floor<std::chrono::days>(std::chrono::seconds{ofDay});
  const std::chrono::year_month_day date{ToDays(start_) + days};
  const long second = ofDay - days.count() * kSecondsPerDay;
  return {static_cast<int>(date.year()),
          static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())),
          static_cast<int>(second / 3600),
          static_cast<int>(second / 60 % 60),
          static_cast<int>(second % 60)};
}

}  // namespace tintbench::base
