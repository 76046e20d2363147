// Valves, stirrings and motors: what is on, how fast it turns, what is wrong with it, and what it
// adds to the counters.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "simulator/Configuration.h"
#include "simulator/ErrorList.h"
#include "simulator/Statistics.h"

namespace tintbench::simulator {

class Elements {
 public:
  Elements(const Configuration& configuration, Statistics& statistics, ErrorList& errors)
      : configuration_(configuration), statistics_(statistics), errors_(errors) {}

  // Switches all these valves or stirrings. False, and nothing is switched, if one of them doesn't
  // exist or, for valves, if more would be open than the machine allows. A bad valve that is
  // opened is found a moment later.
  bool Valves(const std::vector<int>& valves, bool open, double now);
  bool Stirrings(const std::vector<int>& stirrings, bool on, double now);

  // Starts a motor at a speed, or changes its speed; false if there is none. What is wrong with it
  // is found a moment later.
  bool MotorOn(int motor, int speed, double now);
  bool MotorOff(int motor, double now);

  void AllOff(double now);

  bool IsOpen(int valve) const { return open_.contains(valve); }
  bool AnyMotor() const { return !running_.empty(); }
  bool IsRunning(int motor) const { return running_.contains(motor); }

  // The numbers of what is on, in rising order.
  std::vector<int> OpenValves() const { return {open_.begin(), open_.end()}; }
  std::vector<int> WorkingStirrings() const { return {stirring_.begin(), stirring_.end()}; }
  std::vector<int> RunningMotors() const;

  // Revolutions of a motor in hundredths of one a minute, and milliseconds between two signals of
  // the pump's zero place; 0 at rest.
  int RpmHundredths(int motor, double now) const;
  int ZeroPumpMilliseconds(int motor, double now) const;

  // What is wrong with a valve: "good", "broken" (disconnected) or "shorted". False for any other
  // word or valve.
  bool SetValve(int valve, const std::string& condition);

  // The error code of a bad valve, 0 for a good one.
  std::uint32_t ValveError(int valve) const;

  // What is wrong with a motor: "good", "broken" (doesn't turn), "no-zero" (gives no zero signal),
  // or a speed that it turns at whatever it is told. False for any other word or motor.
  bool SetMotor(int motor, const std::string& condition);

 private:
  struct Run {
    double From;  // rpm at the change of speed
    double To;
    double Began;
  };

  struct MotorWear {
    std::uint32_t ErrorFamily = 0;
    bool GivesZero = true;
    std::optional<double> Speed;  // its own, whatever it is told
  };

  double Rpm(int motor, double now) const;
  const MotorWear& Wear(int motor) const;
  void CountPumps(double now);

  const Configuration& configuration_;
  Statistics& statistics_;
  ErrorList& errors_;
  std::set<int> open_;
  std::set<int> stirring_;
  std::map<int, Run> running_;
  std::map<int, std::uint32_t> valveFamilies_;  // of the errors of bad valves
  std::map<int, MotorWear> wear_;
};

}  // namespace tintbench::simulator
