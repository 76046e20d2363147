// The work that goes on without the tool: timed processes stir and let colorant circulate, and the
// master, the computer of the shop, orders a dispensing now and then.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <string_view>

#include "simulator/Configuration.h"
#include "simulator/Elements.h"
#include "simulator/Statistics.h"

namespace tintbench::simulator {

enum class ProcessGroup { Timed, Master };

class Processes {
 public:
  Processes(const Configuration& configuration, Statistics& statistics, Elements& elements)
      : configuration_(configuration), statistics_(statistics), elements_(elements) {}

  // All processes run again from `now` on, as after a reset that has switched everything off.
  void Begin(double now);

  // Holds the processes of a group, and ends what they have under way; or lets them run again.
  void Hold(ProcessGroup group, bool hold, double now);

  // Does what was due until `now`, each thing at its own time.
  void Settle(double now);

  // True while a process has something under way.
  bool Working() const;

  // Makes a process due at once: "stirring", "circulation" or "dispensing". A process that is held
  // stays so. False for any other word.
  bool Prompt(std::string_view name, double now);

 private:
  static constexpr std::size_t kKinds = 3;

  struct Progress {
    bool Held = false;
    double Due = 0.0;
    std::map<int, double> Working;  // until when, by element
  };

  double Interval(std::size_t kind) const;
  double NextEvent(std::size_t kind) const;
  void Step(std::size_t kind, double when);
  void Start(std::size_t kind, double when);
  void Dispense(double when);
  void Switch(std::size_t kind, int element, bool on, double when);

  const Configuration& configuration_;
  Statistics& statistics_;
  Elements& elements_;
  std::array<Progress, kKinds> progress_{};
};

}  // namespace tintbench::simulator
