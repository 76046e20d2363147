// The machine's timed test of all valves: it opens one after the other, and reports the bad ones.
#pragma once

#include <vector>

#include "simulator/Configuration.h"
#include "simulator/Elements.h"
#include "simulator/ErrorList.h"

namespace tintbench::simulator {

class ValveTest {
 public:
  ValveTest(const Configuration& configuration, const Elements& elements)
      : configuration_(configuration), elements_(elements) {}

  // Begins the test; the errors that it finds come up when their valve's turn has ended. False if
  // it runs already or there is nothing to test.
  bool Begin(double now, ErrorList& errors);

  // Ends it before its time.
  void Stop(double now, ErrorList& errors);

  bool Running(double now) const { return now < ends_; }

  struct Turn {
    int Valve;
    double Seconds;
    double Ends;
  };

  // The turns that have ended by `now` and were not taken before.
  std::vector<Turn> TakeEnded(double now);

 private:
  double SecondsFor(int valve) const;

  const Configuration& configuration_;
  const Elements& elements_;
  std::vector<Turn> turns_;  // that weren't taken yet
  double ends_ = 0.0;
};

}  // namespace tintbench::simulator
