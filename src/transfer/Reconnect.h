// What follows behind a new configuration or firmware: the machine restarts, its groups come up one
// by one, and then it is linked up anew.
#pragma once

#include <functional>

#include "transfer/TransferParts.h"
#include "transfer/XmodWindow.h"

namespace tintbench::transfer {

class Reconnection {
 public:
  // `connect` links up as the operator's button does.
  Reconnection(XmodWindow& window, const TransferParts& parts, std::function<void()> connect)
      : window_(window), parts_(parts), connect_(std::move(connect)) {}

  // Waits for so many groups, or as long as `Txtwait` says, and links up.
  void Reconnect(int groups);

  // Ends the wait: what is linked up then may not have come up yet.
  void SkipWait() { skipped_ = true; }

 private:
  int Seconds(int groups) const;
  void AwaitGroups(int groups, int seconds);

  XmodWindow& window_;
  const TransferParts& parts_;
  std::function<void()> connect_;
  bool skipped_ = false;
};

}  // namespace tintbench::transfer
