// Times as the operator reads them: seconds in days, hours, minutes and seconds, and what passed
// between two dates.
#pragma once

#include <cstdint>
#include <string>

#include "base/Clock.h"

namespace tintbench::stats {

// "1 [ days ] , 1 [ hours ] , 1 [ seconds ]", units of which there are none left out. Empty for no
// seconds.
std::string SecondsToText(std::int64_t seconds);

// Days with fractions from one point of calendar time to another, below 0 if it lies before.
double DaysBetween(const base::LocalTime& from, const base::LocalTime& to);

}  // namespace tintbench::stats
