// What every window that speaks with the machine works with. All of it must outlive the window.
#pragma once

#include "base/Clock.h"
#include "link/CommandTable.h"
#include "link/DebugLog.h"
#include "link/LinkStatus.h"
#include "link/SerialPort.h"
#include "link/Transaction.h"

namespace tintbench::link {

struct LineParts {
  SerialPort& Port;
  base::Clock& Clock;
  CommandTable& Table;
  Transaction& Commands;
  DebugLog& Log;
  const LinkStatus& Status;
};

}  // namespace tintbench::link
