// Valves, stirrings and motors: what is on, how fast it turns, and what it adds to the counters.
#pragma once

#include <map>
#include <set>
#include <vector>

#include "simulator/Configuration.h"
#include "simulator/Statistics.h"

namespace tintbench::simulator {

class Elements {
 public:
  Elements(const Configuration& configuration, Statistics& statistics)
      : configuration_(configuration), statistics_(statistics) {}

  // Switches all these valves or stirrings. False, and nothing is switched, if one of them doesn't
  // exist or, for valves, if more would be open than the machine allows.
  bool Valves(const std::vector<int>& valves, bool open, double now);
  bool Stirrings(const std::vector<int>& stirrings, bool on, double now);

  // Starts a motor at a speed, or changes its speed; false if there is none.
  bool MotorOn(int motor, int speed, double now);
  bool MotorOff(int motor, double now);

  void AllOff(double now);

  bool IsOpen(int valve) const { return open_.contains(valve); }
  bool IsStirring(int stirring) const { return stirring_.contains(stirring); }
  bool AnyMotor() const { return !running_.empty(); }
  bool IsRunning(int motor) const { return running_.contains(motor); }

  // Revolutions of a motor in hundredths of one a minute, and milliseconds between two signals of
  // the pump's zero place; 0 at rest.
  int RpmHundredths(int motor, double now) const;
  int ZeroPumpMilliseconds(int motor, double now) const;

  // A broken motor doesn't turn.
  void BreakMotor(int motor, bool broken);
  bool IsBroken(int motor) const { return broken_.contains(motor); }

 private:
  struct Run {
    double From;  // rpm at the change of speed
    double To;
    double Began;
  };

  double Rpm(int motor, double now) const;
  void CountPumps(double now);

  const Configuration& configuration_;
  Statistics& statistics_;
  std::set<int> open_;
  std::set<int> stirring_;
  std::map<int, Run> running_;
  std::set<int> broken_;
};

}  // namespace tintbench::simulator
