// Moves the machine's service between its master serial line and its service serial line.
#pragma once

#include <string>

#include "link/LineView.h"
#include "transfer/TransferParts.h"

namespace tintbench::transfer {

class ServiceLine {
 public:
  explicit ServiceLine(const TransferParts& parts) : parts_(parts) {}

  // Opens the port and asks for service on the master line. True if the machine agrees. Serves
  // events.
  bool StartMaster(const std::string& port, const std::string& settings);
  // Asks for service on the service line again. True if the machine agrees.
  bool ReturnToService(link::LineView& view);

 private:
  const TransferParts& parts_;
};

}  // namespace tintbench::transfer
