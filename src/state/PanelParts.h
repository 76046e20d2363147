// What every window with sensor panels works with. All of it must outlive the window.
#pragma once

#include "state/SensorNames.h"
#include "state/SensorPanels.h"
#include "state/StateDecoder.h"

namespace tintbench::state {

struct PanelParts {
  const SensorNames& Names;
  StateDecoder& Decoder;
  PanelStyles& Styles;
};

}  // namespace tintbench::state
