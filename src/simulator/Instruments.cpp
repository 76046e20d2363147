#include "simulator/Instruments.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tintbench::simulator {

namespace {

constexpr double kFullPressureSpeed = 400.0;  // rpm that moves the pressures all their way
constexpr double kSettlingSeconds = 2.0;      // in which a pressure goes most of its way
constexpr double kEmptyingSeconds = 800.0;
constexpr double kLowestLevel = -1.0;  // far below the alarm
constexpr double kRipple = 0.02;

// Where the pressures go at full speed, with the group's valve closed and open.
struct Pressures {
  double Suction;
  double Delivery;
};
constexpr Pressures kClosed{0.4, 0.8};
constexpr Pressures kOpen{0.2, 0.55};

// A smooth movement between -1 and 1, different for each instrument.
double Wave(int group, Quantity quantity, double now) {
  const double phase = group * 1.3 + static_cast<int>(quantity) * 0.7;
  const double turn = 2.0 * std::numbers::pi;
  return 0.7 * std::sin(turn * now / 97.0 + phase) + 0.3 * std::sin(turn * now / 11.0 + 2 * phase);
}

}  // namespace

int Instruments::Motor(int group) const {
  for (const int motor : configuration_.Elements("@MOT")) {
    if (configuration_.Number("@MOT", motor, 4, 0) == group) return motor;
  }
  return 0;
}

bool Instruments::AnyValveOpen(int group) const {
  const std::vector<int> open = elements_.OpenValves();
  return std::any_of(open.begin(), open.end(), [&](int valve) {
    return configuration_.Number("@CIR", valve, 5, 0) == group;
  });
}

// Each pressure comes nearer to where it goes by the same share in equal times, so that it doesn't
// matter how often anyone looks.
void Instruments::Settle(double now) {
  const double passed = now - settled_;
  settled_ = now;
  const double left = std::exp(-passed / kSettlingSeconds);
  for (const int motor : configuration_.Elements("@MOT")) {
    const int group = configuration_.Number("@MOT", motor, 4, 0);
    const bool moved = states_.contains(group);
    if (group < 1 || (!moved && !elements_.IsRunning(motor))) continue;
    const double drive =
        std::min(elements_.RpmHundredths(motor, now) / 100.0 / kFullPressureSpeed, 1.0);
    const bool open = AnyValveOpen(group);
    const Pressures& full = open ? kOpen : kClosed;
    State& state = states_[group];
    const auto approach = [left](double& value, double aim) { value = aim + (value - aim) * left; };
    approach(state.Suction, std::lerp(kRestingSuction, full.Suction, drive));
    approach(state.Delivery, std::lerp(kRestingDelivery, full.Delivery, drive));
    if (open) {
      state.Level = std::max(state.Level - drive * passed / kEmptyingSeconds, kLowestLevel);
    }
  }
}

double Instruments::Share(int group, Quantity quantity, double now) const {
  const auto found = states_.find(group);
  const State state = found == states_.end() ? State{} : found->second;
  const double wave = Wave(group, quantity, now);
  switch (quantity) {
    case Quantity::SuctionPressure:
      return state.Suction + kRipple * wave;
    case Quantity::DeliveryPressure:
      return state.Delivery + kRipple * wave;
    case Quantity::Level:
      return state.Level;
    case Quantity::Temperature:
      return 0.5 + 0.3 * wave;
  }
  return 0.5;
}

}  // namespace tintbench::simulator
