#include "base/DateText.h"

#include "base/Numbers.h"

namespace tintbench::base {

std::string DateText(const LocalTime& time) {
  return LastDigits(time.Year, 4) + "-" + LastDigits(time.Month, 2) + "-" + LastDigits(time.Day, 2);
}

std::string TimeText(const LocalTime& time) {
  return LastDigits(time.Hour, 2) + ":" + LastDigits(time.Minute, 2) + ":" +
         LastDigits(time.Second, 2);
}

}  // namespace tintbench::base
