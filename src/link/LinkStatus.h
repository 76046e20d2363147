// What stands at the other end of the line, as far as link-up has found out.
#pragma once

#include <algorithm>
#include <string>

#include "base/Numbers.h"

namespace tintbench::link {

// Steps of link-up, each of which rests on the one before.
enum LinkStateValue : int {
  kPortClosed = 0,
  kPortOpen = 1,        // no machine heard
  kMachineHeard = 2,    // it told its firmware version
  kConfigReceived = 3,  // its configuration file has arrived
  kConfigKnown = 4,     // and the machine facts have been drawn from it
};

enum ConfigSourceValue : int {
  kNoConfig = 0,
  kDefaultConfig = 1,  // the default configuration file
  kMachineConfig = 2,  // the machine's own
};

inline constexpr const char* kNoFirmware = "-1";

struct LinkStatus {
  LinkStateValue LinkState = kPortClosed;
  ConfigSourceValue ConfigSource = kNoConfig;
  // What link-up was stopped by, and what to do about it, if more is known than the state tells.
  std::string Problem;
  std::string ConfigFileName;                 // the configuration in use; empty: none
  std::string FirmwareVersion = kNoFirmware;  // as the machine told it

  // The whole part of the firmware version's number; below 1 if it isn't known.
  int FirmwareNumber() const {
    constexpr double kLargest = 1e9;
    return static_cast<int>(std::clamp(base::LeadingNumber(FirmwareVersion), -kLargest, kLargest));
  }
};

}  // namespace tintbench::link
