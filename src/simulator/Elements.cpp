#include "simulator/Elements.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr double kRpmPerSecond = 400.0;  // of a change of speed
constexpr double kEventsPerRevolution = 0.5;
constexpr int kMostValves = 64;
constexpr double kFastest = 999.0;
constexpr double kFindingSeconds = 0.3;  // until the machine finds what is wrong with an element

struct ValveCondition {
  std::string_view Word;
  std::uint32_t ErrorFamily;  // 0 for none
};

constexpr std::array kValveConditions = {
    ValveCondition{"good", 0}, ValveCondition{"shorted", 0x0700}, ValveCondition{"broken", 0x0800}};

constexpr std::uint32_t kEncoderDamaged = 0x1100;
constexpr std::uint32_t kNoZeroPump = 0x1200;

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
    if (open && ValveError(valve) != 0) errors_.Add(ValveError(valve), now + kFindingSeconds);
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
  const MotorWear& wear = Wear(motor);
  running_[motor] = {turning, wear.Speed.value_or(speed), now};
  if (wear.ErrorFamily != 0) {
    errors_.Add(wear.ErrorFamily + static_cast<std::uint32_t>(motor), now + kFindingSeconds);
  }
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

// Whatever is on goes off, known to the present configuration or not.
void Elements::AllOff(double now) {
  open_.clear();
  stirring_.clear();
  running_.clear();
  for (const char kind : Statistics::kElementKinds) {
    for (const int element : statistics_.Elements(kind)) statistics_.Find(kind, element)->Stop(now);
  }
}

std::vector<int> Elements::RunningMotors() const {
  std::vector<int> motors;
  for (const auto& [motor, run] : running_) motors.push_back(motor);
  return motors;
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
  if (!Wear(motor).GivesZero) return 0;
  return rpm < 1.0 ? 0 : static_cast<int>(std::lround(60000.0 / rpm / kEventsPerRevolution));
}

bool Elements::SetValve(int valve, const std::string& condition) {
  const auto found = std::find_if(kValveConditions.begin(), kValveConditions.end(),
                                  [&](const ValveCondition& row) { return row.Word == condition; });
  if (found == kValveConditions.end() || !configuration_.Has("@CIR", valve)) return false;
  valveFamilies_[valve] = found->ErrorFamily;
  return true;
}

std::uint32_t Elements::ValveError(int valve) const {
  const auto found = valveFamilies_.find(valve);
  const bool bad = found != valveFamilies_.end() && found->second != 0;
  return bad ? found->second + static_cast<std::uint32_t>(valve) : 0;
}

const Elements::MotorWear& Elements::Wear(int motor) const {
  static const MotorWear kNew;
  const auto found = wear_.find(motor);
  return found == wear_.end() ? kNew : found->second;
}

bool Elements::SetMotor(int motor, const std::string& condition) {
  if (!configuration_.Has("@MOT", motor)) return false;
  if (condition == "good") {
    wear_.erase(motor);
  } else if (condition == "broken") {
    wear_[motor] = {kEncoderDamaged, true, 0.0};
  } else if (condition == "no-zero") {
    wear_[motor] = {kNoZeroPump, false, std::nullopt};
  } else {
    const std::optional<double> speed = WholeNumber(condition);
    if (!speed || *speed < 0 || *speed > kFastest) return false;
    wear_[motor] = {0, true, speed};
  }
  return true;
}

}  // namespace tintbench::simulator
