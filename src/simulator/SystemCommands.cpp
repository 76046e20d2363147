// Commands on the machine as a whole: its processes, its lines, its configuration.
#include <array>

#include "simulator/Commands.h"
#include "simulator/Plant.h"

namespace tintbench::simulator {

namespace {

constexpr double kAutoConfigurationSeconds = 5.0;

bool Exchanges(const Plant& plant) {
  return plant.FirmwareNumber() >= Plant::kFirstWithConfiguration;
}

template <ProcessGroup kGroup, bool kHold>
Reply HoldProcesses(Plant& plant, const std::string&, double now) {
  plant.TheProcesses.Hold(kGroup, kHold, now);
  return {"A"};
}

template <bool kEnabled>
Reply SwitchSpi(Plant& plant, const std::string&, double) {
  plant.SpiEnabled = kEnabled;
  return {"A"};
}

Reply AutoConfigure(Plant& plant, const std::string&, double now) {
  plant.BusyUntil = now + kAutoConfigurationSeconds;
  return {"A"};
}

Reply ReturnService(Plant&, const std::string&, double) {
  return {"A", Reply::kPromptSeconds, Task::ReturnMasterService};
}

// The "A" comes at once, the "K" when the machine is back.
Reply ResetMachine(Plant&, const std::string&, double) {
  return {"A", Reply::kPromptSeconds, Task::Reset};
}

Reply GiveConfiguration(Plant& plant, const std::string&, double) {
  if (!Exchanges(plant)) return {};
  return {"A", Reply::kPromptSeconds, Task::SendConfiguration};
}

Reply TakeConfiguration(Plant& plant, const std::string&, double) {
  return {Exchanges(plant) ? "A" : "", Reply::kPromptSeconds, Task::ReceiveConfiguration};
}

constexpr auto kAny = Characters::Any;

constexpr std::array kSystemRows = {
    CommandRow{"PB", 0, 0, kAny, HoldProcesses<ProcessGroup::Timed, true>},
    CommandRow{"PR", 0, 0, kAny, HoldProcesses<ProcessGroup::Timed, false>},
    CommandRow{"PM", 0, 0, kAny, HoldProcesses<ProcessGroup::Master, true>},
    CommandRow{"PS", 0, 0, kAny, HoldProcesses<ProcessGroup::Master, false>},
    CommandRow{"PY", 0, 0, kAny, ReturnService},
    CommandRow{"H", 0, 0, kAny, ResetMachine},
    CommandRow{"ND", 0, 0, kAny, SwitchSpi<false>},
    CommandRow{"NA", 0, 0, kAny, SwitchSpi<true>},
    CommandRow{"JA", 0, 0, kAny, AutoConfigure},
    CommandRow{"CR", 0, 0, kAny, GiveConfiguration},
    CommandRow{"CT", 0, 0, kAny, TakeConfiguration},
};

}  // namespace

std::span<const CommandRow> SystemCommands() { return kSystemRows; }

}  // namespace tintbench::simulator
