// What the window of transfers asks of whoever links up with the machine.
#pragma once

#include <string>

namespace tintbench::transfer {

class MachineLink {
 public:
  virtual ~MachineLink() = default;
  // Links up on the port ("001") with the settings ("19200,N,8,1"), or disconnects if both are
  // "-1". Boxes tell what was not reached, the machine facts follow, and so do the sensor panels.
  // Gives the link state that was reached.
  virtual int LinkMachine(const std::string& port, const std::string& settings) = 0;
};

}  // namespace tintbench::transfer
