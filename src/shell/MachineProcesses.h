// Holds the work that the machine does by itself while a window needs it quiet, and lets it go on.
#pragma once

#include "link/LinkStatus.h"
#include "link/Transaction.h"

namespace tintbench::shell {

class MachineProcesses {
 public:
  MachineProcesses(link::Transaction& commands, const link::LinkStatus& status)
      : commands_(commands), status_(status) {}

  // Timed processes first, the orders of the master behind them, and only if the machine has
  // accepted the first. True if it accepted both; without a machine nothing is sent.
  bool StopMachineProcesses(link::LineView& view);
  bool RestartMachineProcesses(link::LineView& view);
  // True from the one to the other.
  bool AreHeld() const { return held_; }

 private:
  bool SendBoth(link::LineView& view, link::CommandId first, link::CommandId second);

  link::Transaction& commands_;
  const link::LinkStatus& status_;
  bool held_ = false;
};

}  // namespace tintbench::shell
