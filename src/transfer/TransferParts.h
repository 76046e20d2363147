// What the window of transfers and the jobs behind it work with. All of it must outlive the window.
#pragma once

#include <functional>
#include <string>

#include "base/AppPaths.h"
#include "base/Files.h"
#include "config/MachineFacts.h"
#include "config/ParameterCatalogue.h"
#include "link/ComPort.h"
#include "link/DebugLog.h"
#include "link/LinkStatus.h"
#include "link/SerialPort.h"
#include "link/Transaction.h"
#include "link/Xmodem.h"
#include "transfer/MachineLink.h"
#include "ui/Screen.h"

namespace tintbench::transfer {

struct TransferParts {
  ui::Screen& Screen;
  base::FileSystem& Files;
  const base::AppPaths& Paths;
  link::SerialPort& Port;
  link::ComPort& Ports;
  link::Transaction& Commands;
  link::Xmodem& Engine;
  link::DebugLog& Log;
  const config::MachineFacts& Facts;
  const link::LinkStatus& Status;
  const config::ParameterCatalogue& Catalogue;
  MachineLink& Link;
  // Lets the operator edit a configuration: folder with its separator, stem and extension.
  std::function<void(const std::string& folder, const std::string& stem,
                     const std::string& extension)>
      Edit;
};

// A box on something that went as it should, or did not.
inline constexpr ui::BoxIcon kTransferIcon = ui::BoxIcon::Exclamation;

}  // namespace tintbench::transfer
