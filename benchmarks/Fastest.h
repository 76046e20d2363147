// How long a piece of work takes at its best, in processor time.
#pragma once

#include <algorithm>
#include <ctime>
#include <limits>

namespace tintbench::bench {

inline double ProcessorSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

// Seconds of the fastest of as many rounds as go into a second; negative if one fails.
template <typename Work>
double Fastest(Work work) {
  constexpr double kLeastSeconds = 1.0;
  double best = std::numeric_limits<double>::infinity();
  for (const double start = ProcessorSeconds(); ProcessorSeconds() - start < kLeastSeconds;) {
    const double before = ProcessorSeconds();
    if (!work()) return -1;
    best = std::min(best, ProcessorSeconds() - before);
  }
  return best;
}

}  // namespace tintbench::bench
