#include "simulator/ValveTest.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

namespace tintbench::simulator {

namespace {

constexpr int kFirstWithoutTest = 3;  // valve types 3 and 4 can't be tested
constexpr int kLongestSeconds = 600;

struct Condition {
  std::string_view Word;
  int ErrorFamily;  // 0 for none
};

constexpr std::array kConditions = {Condition{"good", 0}, Condition{"shorted", 0x0700},
                                    Condition{"broken", 0x0800}};

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
    if (const auto fault = faults_.find(valve); fault != faults_.end()) {
      errors.Add(static_cast<std::uint32_t>(fault->second + valve), at);
    }
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

bool ValveTest::SetCondition(int valve, const std::string& condition) {
  const auto found = std::find_if(kConditions.begin(), kConditions.end(),
                                  [&](const Condition& row) { return row.Word == condition; });
  if (found == kConditions.end() || !configuration_.Has("@CIR", valve)) return false;
  faults_.erase(valve);
  if (found->ErrorFamily != 0) faults_[valve] = found->ErrorFamily;
  return true;
}

}  // namespace tintbench::simulator
