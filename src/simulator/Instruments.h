// What the instruments of the external groups would read: the pressures follow motor and valve, the
// level falls while a group dispenses, the temperature drifts.
#pragma once

#include <map>

#include "simulator/Configuration.h"
#include "simulator/Elements.h"

namespace tintbench::simulator {

enum class Quantity { SuctionPressure, DeliveryPressure, Level, Temperature };

class Instruments {
 public:
  Instruments(const Configuration& configuration, const Elements& elements)
      : configuration_(configuration), elements_(elements) {}

  // What has happened until `now` with the elements as they are. To be called before one changes.
  void Settle(double now);

  // The reading as a share of the alarm band: 0 at its low edge, 1 at its high edge.
  double Share(int group, Quantity quantity, double now) const;

  // The tank of the group is full again.
  void Fill(int group) { states_[group].Level = kFull; }

  // The motor that works for a group, 0 if there is none; false if it stands.
  int Motor(int group) const;
  bool Runs(int group) const { return elements_.IsRunning(Motor(group)); }

 private:
  static constexpr double kFull = 0.8;
  static constexpr double kRestingSuction = 0.6;
  static constexpr double kRestingDelivery = 0.2;

  // All as shares of their bands.
  struct State {
    double Suction = kRestingSuction;
    double Delivery = kRestingDelivery;
    double Level = kFull;
  };

  bool AnyValveOpen(int group) const;

  const Configuration& configuration_;
  const Elements& elements_;
  std::map<int, State> states_;  // of those that have moved
  double settled_ = 0.0;
};

}  // namespace tintbench::simulator
