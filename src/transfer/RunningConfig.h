// Tells, after a restart, whether the machine runs the configuration that was sent to it: what it
// gave at link-up is compared with the file as it was when it was sent, parameter by parameter.
#pragma once

#include <string>

#include "editor/CompareConfig.h"
#include "transfer/TransferParts.h"
#include "transfer/XmodWindow.h"

namespace tintbench::transfer {

class RunningConfig {
 public:
  RunningConfig(XmodWindow& window, const TransferParts& parts) : window_(window), parts_(parts) {}

  // Nothing is known, and nothing shown.
  void Clear();
  // Keeps what is about to be sent.
  void Remember(const std::string& file);
  // Compares it with what the machine gave, and shows the outcome.
  void Compare();

 private:
  void Show(const std::string& words, ui::ListRows rows = {});
  std::string Place(const editor::Difference& difference, const editor::EditingModel& there) const;

  XmodWindow& window_;
  const TransferParts& parts_;
  editor::EditingModel sent_;
  std::string name_;
  bool known_ = false;
};

}  // namespace tintbench::transfer
