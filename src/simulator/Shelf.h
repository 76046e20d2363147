// The moving shelf with its can, the can photocell above it, and the puncher.
#pragma once

#include "simulator/Configuration.h"

namespace tintbench::simulator {

class Shelf {
 public:
  explicit Shelf(const Configuration& configuration) : configuration_(configuration) {}

  bool Exists() const { return configuration_.Number("@GEN", 6, 0) == 1; }
  bool HasPuncher() const { return configuration_.Number("@SGA", 10, 0) == 1; }

  // Moves the shelf up or down until its end, or stops it if it moves that way already. Up, a can
  // on it stops it as soon as the can hides the photocell. True if a movement began.
  bool Up(double now);
  bool Down(double now);
  void Stop(double now);

  // Millimetres above the lowest place, and the same in encoder steps.
  double Height(double now) const;
  int Steps(double now) const;

  // 1 while it rises, -1 while it sinks, 0 otherwise.
  int Direction(double now) const;
  bool IsHigh(double now) const;
  bool IsLow(double now) const;

  bool CanThere() const { return can_; }
  void PutCan(bool there, double now);

  // True while a can stands in front of the photocell.
  bool PhotocellHidden(double now) const;

  // A stuck shelf stays where it is while it is driven, until the machine gives it up.
  void Stick(bool stuck, double now);
  bool GivenUp(double now) const;

  // Moves the shelf by hand, in millimetres from 0 to the top.
  void Put(double height, double now);
  double Top() const;

  // Begins to punch. False if there is no puncher, or it is at work.
  bool Punch(double now);
  bool Punching(double now) const { return now < punchEnds_; }

 private:
  void Move(double target, double now);
  double Speed() const;
  double UpperStop() const;

  const Configuration& configuration_;
  double from_ = 0.0;
  double to_ = 0.0;
  double began_ = 0.0;
  bool can_ = false;
  bool stuck_ = false;
  double punchEnds_ = 0.0;
};

}  // namespace tintbench::simulator
