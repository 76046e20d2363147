#include "simulator/Plant.h"

#include "simulator/Text.h"

namespace tintbench::simulator {

int Plant::FirmwareNumber() const { return LeadingNumber(Firmware); }

}  // namespace tintbench::simulator
