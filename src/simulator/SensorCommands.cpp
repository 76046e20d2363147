#include <array>

#include "simulator/Commands.h"
#include "simulator/Plant.h"

namespace tintbench::simulator {

namespace {

constexpr std::size_t kVersionLength = 3;

Reply FirmwareVersion(Plant& plant, const std::string&, double) {
  std::string version = plant.Firmware;
  version.resize(kVersionLength, ' ');
  return {"A V " + version};
}

constexpr std::array kRows = {
    CommandRow{"JF", 0, 0, Characters::Any, FirmwareVersion},
};

}  // namespace

std::span<const CommandRow> SensorCommands() { return kRows; }

}  // namespace tintbench::simulator
