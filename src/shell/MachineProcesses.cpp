#include "shell/MachineProcesses.h"

#include "base/Text.h"

namespace tintbench::shell {

namespace {

constexpr int kHoldTimed = 12;
constexpr int kReleaseTimed = 13;
constexpr int kHoldMaster = 14;
constexpr int kReleaseMaster = 15;

}  // namespace

bool MachineProcesses::SendBoth(link::LineView& view, int first, int second) {
  const auto accepted = [&](int row) {
    return base::ToUpper(base::Left(commands_.SendCommand(view, row), 1)) == "A";
  };
  return status_.LinkState > link::kPortOpen && accepted(first) && accepted(second);
}

bool MachineProcesses::StopMachineProcesses(link::LineView& view) {
  return SendBoth(view, kHoldTimed, kHoldMaster);
}

bool MachineProcesses::RestartMachineProcesses(link::LineView& view) {
  return SendBoth(view, kReleaseTimed, kReleaseMaster);
}

}  // namespace tintbench::shell
