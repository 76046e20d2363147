#include "simulator/Elements.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace tintbench::simulator {

namespace {

constexpr double kRpmPerSecond = 400.0;  // of a change of speed
constexpr double kEventsPerRevolution = 0.5;
constexpr int kMostValves = 64;

}  // namespace

bool Elements::Valves(const std::vector<int>& valves, bool open, double now) {
  std::set<int> wished = open_;
  for (const int valve : valves) {
    if (!configuration_.Has("@CIR", valve)) return false;
    if (open) {
      wished.insert(valve);
    } else {
      wished.erase(valve);
    }
  }
  const int most = configuration_.Number("@GEN", 9, kMostValves);
  if (open && wished.size() > static_cast<std::size_t>(std::max(most, 1))) return false;
  for (const int valve : valves) {
    Counter& counter = *statistics_.Find('C', valve);
    if (open && !counter.Running()) counter.Add(0.0, 1.0);
    open ? counter.Start(now) : counter.Stop(now);
  }
  open_ = std::move(wished);
  CountPumps(now);
  return true;
}

bool Elements::Stirrings(const std::vector<int>& stirrings, bool on, double now) {
  const bool known = std::all_of(stirrings.begin(), stirrings.end(), [this](int stirring) {
    return configuration_.Has("@AGI", stirring);
  });
  if (!known) return false;
  for (const int stirring : stirrings) {
    Counter& counter = *statistics_.Find('A', stirring);
    if (on && !counter.Running()) counter.Add(0.0, 1.0);
    on ? counter.Start(now) : counter.Stop(now);
    if (on) {
      stirring_.insert(stirring);
    } else {
      stirring_.erase(stirring);
    }
  }
  return true;
}

bool Elements::MotorOn(int motor, int speed, double now) {
  if (!configuration_.Has("@MOT", motor)) return false;
  const double turning = Rpm(motor, now);
  running_[motor] = {turning, IsBroken(motor) ? 0.0 : double(speed), now};
  Counter& counter = *statistics_.Find('M', motor);
  counter.Stop(now);
  counter.Start(now, running_[motor].To / 60.0 * kEventsPerRevolution);
  CountPumps(now);
  return true;
}

bool Elements::MotorOff(int motor, double now) {
  if (!configuration_.Has("@MOT", motor)) return false;
  statistics_.Find('M', motor)->Stop(now);
  running_.erase(motor);
  CountPumps(now);
  return true;
}

void Elements::AllOff(double now) {
  Valves({open_.begin(), open_.end()}, false, now);
  Stirrings({stirring_.begin(), stirring_.end()}, false, now);
  while (!running_.empty()) MotorOff(running_.begin()->first, now);
}

// A circuit's pump works while its valve is open and its motor turns.
void Elements::CountPumps(double now) {
  for (const int circuit : configuration_.Elements("@CIR")) {
    const auto motor = running_.find(configuration_.Number("@CIR", circuit, 7, 1));
    const bool works = IsOpen(circuit) && motor != running_.end();
    Counter& counter = *statistics_.Find('B', circuit);
    if (!works) {
      counter.Stop(now);
    } else {
      counter.Start(now, motor->second.To / 60.0 * kEventsPerRevolution);
    }
  }
}

double Elements::Rpm(int motor, double now) const {
  const auto found = running_.find(motor);
  if (found == running_.end()) return 0.0;
  const Run& run = found->second;
  const double change = kRpmPerSecond * (now - run.Began);
  return run.To >= run.From ? std::min(run.From + change, run.To)
                            : std::max(run.From - change, run.To);
}

int Elements::RpmHundredths(int motor, double now) const {
  const double rpm = Rpm(motor, now);
  const double ripple = rpm * 0.002 * std::sin(now * 1.7 + motor);
  return static_cast<int>(std::lround((rpm + ripple) * 100.0));
}

int Elements::ZeroPumpMilliseconds(int motor, double now) const {
  const double rpm = Rpm(motor, now);
  return rpm < 1.0 ? 0 : static_cast<int>(std::lround(60000.0 / rpm / kEventsPerRevolution));
}

void Elements::BreakMotor(int motor, bool broken) {
  if (broken) {
    broken_.insert(motor);
  } else {
    broken_.erase(motor);
  }
}

}  // namespace tintbench::simulator
