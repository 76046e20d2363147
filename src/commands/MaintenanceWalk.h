// Walks the machine's valves, caps, motors or stirrings, one element at a press: what the press
// before has switched on goes off, the next element goes on, and its answer is judged.
#pragma once

#include <optional>
#include <string>

#include "commands/CommWindow.h"

namespace tintbench::commands {

class MaintenanceWalk {
 public:
  explicit MaintenanceWalk(CommWindow& window) : window_(window) {}

  // The next step begins with the first element, and nothing is taken to be on.
  void Restart();
  // Moves one element on in the list of `option`. True if the next element follows at once.
  bool Step(int option);
  // A window that opens anew has no last speed to offer.
  void ForgetSpeed() { lastSpeed_.clear(); }

 private:
  struct Walk;

  // nullptr for an option that doesn't walk.
  static const Walk* WalkOf(int option);
  // The next element that the walk takes; empty behind the last.
  std::string TakeNext(const Walk& walk);
  bool IsAtLast(const Walk& walk) const;
  bool StepMotor(const std::string& motor, bool last);

  void SwitchOff(CommandId row, const std::string& element);
  bool SwitchOn(CommandId row, const std::string& element, const std::string& speed);
  bool CheckEcho(const std::string& answer, const std::string& argument, CommandId row);
  std::optional<std::string> SpeedPrompt(const std::string& motor);
  // True if it was halted, if the window closes, or if the line is lost.
  bool MotorSpeedWatch(const std::string& motor);

  CommWindow& window_;
  int position_ = 0;     // of the element taken last, from 1
  std::string element_;  // the one now on; empty: none
  bool motorOffDone_ = false;
  std::string lastSpeed_;
};

}  // namespace tintbench::commands
