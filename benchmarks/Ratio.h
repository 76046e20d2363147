// How the measuring programs print what they found: every figure beside the limit or peer that it
// is compared with, taken in the same run.
#pragma once

#include <cstdio>
#include <string>

namespace tintbench::bench {

// "link-up                      2.345 s /    2.300 s = 1.020   (aim: under 1.05)".
inline void PrintRatio(const std::string& what, double measured, double limit,
                       const std::string& unit, const std::string& aim) {
  std::printf("%-44s %10.3f %-4s / %10.3f %-4s = %6.3f   (%s)\n", what.c_str(), measured,
              unit.c_str(), limit, unit.c_str(), measured / limit, aim.c_str());
}

}  // namespace tintbench::bench
