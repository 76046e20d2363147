// All that the machine is made of, apart from its serial line.
#pragma once

#include <string>

#include "simulator/Configuration.h"

namespace tintbench::simulator {

struct Plant {
  // Firmware before this version takes a configuration without a word and gives none.
  static constexpr int kFirstWithConfiguration = 4;

  Configuration Config;
  std::string Firmware;

  // The leading number of the firmware version, 0 if it has none.
  int FirmwareNumber() const;
};

}  // namespace tintbench::simulator
