#include "shell/MachineProcesses.h"

#include "base/Text.h"

namespace tintbench::shell {

bool MachineProcesses::SendBoth(link::LineView& view, link::CommandId first,
                                link::CommandId second) {
  const auto accepted = [&](link::CommandId row) {
    return base::ToUpper(base::Left(commands_.SendCommand(view, row), 1)) == "A";
  };
  return status_.LinkState > link::kPortOpen && accepted(first) && accepted(second);
}

bool MachineProcesses::StopMachineProcesses(link::LineView& view) {
  held_ = true;
  return SendBoth(view, link::CommandId::StopTimed, link::CommandId::StopMaster);
}

bool MachineProcesses::RestartMachineProcesses(link::LineView& view) {
  held_ = false;
  return SendBoth(view, link::CommandId::RestartTimed, link::CommandId::RestartMaster);
}

}  // namespace tintbench::shell
