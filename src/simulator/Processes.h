// The work that goes on without the tool: timed processes stir and let colorant circulate, and the
// master, the computer of the shop, orders a dispensing now and then.
#pragma once

#include <array>
#include <cstddef>

#include "simulator/Configuration.h"
#include "simulator/Statistics.h"

namespace tintbench::simulator {

enum class ProcessGroup { Timed, Master };

class Processes {
 public:
  Processes(const Configuration& configuration, Statistics& statistics)
      : configuration_(configuration), statistics_(statistics) {}

  // All processes run again from `now` on, as after a reset.
  void Begin(double now);

  // Holds the processes of a group, or lets them run again.
  void Hold(ProcessGroup group, bool hold, double now);

  // Books what has been done until `now`.
  void Settle(double now);

 private:
  static constexpr std::size_t kKinds = 3;

  struct Progress {
    bool Held = false;
    double Due = 0.0;
  };

  double Interval(std::size_t kind) const;
  void Book(std::size_t kind, double times);

  const Configuration& configuration_;
  Statistics& statistics_;
  std::array<Progress, kKinds> progress_{};
};

}  // namespace tintbench::simulator
