// The caps under the nozzles: they take seconds to move, and can be stuck.
#pragma once

#include <map>
#include <optional>

#include "simulator/Configuration.h"

namespace tintbench::simulator {

enum class CapPosition { Between, Closed, Middle, Open };

class Caps {
 public:
  explicit Caps(const Configuration& configuration) : configuration_(configuration) {}

  struct Move {
    double Seconds;  // until it has ended
    bool Good;       // it gets there; otherwise it stays where it was
  };

  // Begins to move a cap. Nothing if there is no such cap, it is moving already, it is moved by
  // hand only, or has no middle position.
  std::optional<Move> Begin(int cap, CapPosition target, double now);

  // Where a cap stands; Between while it moves and for a cap that doesn't exist.
  CapPosition At(int cap, double now) const;

  // 1 while it opens, -1 while it closes, 0 otherwise.
  int Direction(int cap, double now) const;

  bool AnyMoving(double now) const;

  // True if a cap lets colorant through, or if no cap is driven by the machine.
  bool AnyPassage(double now) const;

  // What a hand does to a cap. False if there is no such cap.
  bool Put(int cap, CapPosition position);
  bool Stick(int cap, bool stuck);

 private:
  struct Cap {
    CapPosition From = CapPosition::Closed;
    CapPosition To = CapPosition::Closed;
    double Began = 0.0;
    double Ends = 0.0;
    bool Stuck = false;
  };

  const Cap* Find(int cap) const;
  int Type(int cap) const { return configuration_.Number("@TAP", cap, 2, 0); }

  const Configuration& configuration_;
  std::map<int, Cap> caps_;  // those that were ever moved
};

}  // namespace tintbench::simulator
