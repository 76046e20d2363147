#include <array>

#include "simulator/Commands.h"
#include "simulator/Plant.h"

namespace tintbench::simulator {

namespace {

Reply GiveConfiguration(Plant& plant, const std::string&, double) {
  if (plant.FirmwareNumber() < Plant::kFirstWithConfiguration) return {};
  return {"A", Reply::kPromptSeconds, Task::SendConfiguration};
}

Reply TakeConfiguration(Plant& plant, const std::string&, double) {
  const bool answers = plant.FirmwareNumber() >= Plant::kFirstWithConfiguration;
  return {answers ? "A" : "", Reply::kPromptSeconds, Task::ReceiveConfiguration};
}

constexpr std::array kRows = {
    CommandRow{"CR", 0, 0, Characters::Any, GiveConfiguration},
    CommandRow{"CT", 0, 0, Characters::Any, TakeConfiguration},
};

}  // namespace

std::span<const CommandRow> SystemCommands() { return kRows; }

}  // namespace tintbench::simulator
