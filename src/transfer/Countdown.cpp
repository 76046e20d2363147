#include "transfer/Countdown.h"

#include <algorithm>

namespace tintbench::transfer {

namespace {

// How long the operator waits to be served, in seconds.
constexpr double kServeInterval = 0.1;

}  // namespace

void CountDown(ui::Screen& screen, int seconds, const std::function<void(int)>& show,
               const std::function<bool()>& givenUp) {
  const base::Clock& clock = screen.Time();
  double second = clock.Now();
  for (int left = seconds; left > 0 && !givenUp(); --left) {
    show(left);
    second += 1.0;
    while (clock.Now() < second && !givenUp()) {
      screen.Time().SleepUntil(std::min(second, clock.Now() + kServeInterval));
      screen.CatchUp();
    }
  }
}

}  // namespace tintbench::transfer
