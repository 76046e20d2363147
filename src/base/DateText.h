// Dates and times as the operator reads them and as files keep them, the same wherever the program
// runs.
#pragma once

#include <string>

#include "base/Clock.h"

namespace tintbench::base {

// "2026-01-31".
std::string DateText(const LocalTime& time);

// "09:15:02", by 24 hours.
std::string TimeText(const LocalTime& time);

}  // namespace tintbench::base
