#include "simulator/ValveTest.h"

#include <algorithm>
#include <cstdint>

namespace tintbench::simulator {

namespace {

constexpr int kFirstWithoutTest = 3;  // valve types 3 and 4 can't be tested
constexpr int kLongestSeconds = 600;

}  // namespace

double ValveTest::SecondsFor(int valve) const {
  const bool tested = configuration_.Number("@CIR", valve, 10, 1) == 1 &&
                      configuration_.Number("@CIR", valve, 2, 1) < kFirstWithoutTest;
  const int motor = configuration_.Number("@CIR", valve, 7, 1);
  return tested ? std::clamp(configuration_.Number("@MOT", motor, 23, 0), 0, kLongestSeconds) : 0;
}

bool ValveTest::Begin(double now, ErrorList& errors) {
  if (Running(now)) return false;
  turns_.clear();
  double at = now;
  for (const int valve : configuration_.Elements("@CIR")) {
    const double seconds = SecondsFor(valve);
    if (seconds <= 0) continue;
    at += seconds;
    turns_.push_back({valve, seconds, at});
    if (const std::uint32_t fault = elements_.ValveError(valve)) errors.Add(fault, at);
  }
  ends_ = at;
  return !turns_.empty();
}

void ValveTest::Stop(double now, ErrorList& errors) {
  if (!Running(now)) return;
  ends_ = now;
  std::erase_if(turns_, [now](const Turn& turn) { return turn.Ends > now; });
  errors.ForgetComing(now);
}

std::vector<ValveTest::Turn> ValveTest::TakeEnded(double now) {
  const auto coming = std::find_if(turns_.begin(), turns_.end(),
                                   [now](const Turn& turn) { return turn.Ends > now; });
  std::vector<Turn> ended(turns_.begin(), coming);
  turns_.erase(turns_.begin(), coming);
  return ended;
}

}  // namespace tintbench::simulator
