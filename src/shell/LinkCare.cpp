#include "shell/LinkCare.h"

#include <array>

namespace tintbench::shell {

namespace {

constexpr const char* kLost =
    "The line to the machine was lost. Check the adapter and its cable, then connect again.";
constexpr const char* kBack = "The line was lost, and its device is back. Connect again?";

constexpr std::array<const char*, 5> kStates{
    "Serial port not open", "Port open, no machine heard", "Machine heard, configuration not read",
    "Machine heard, its configuration is wrong", "Machine linked, configuration known"};

}  // namespace

std::string LinkCare::Words() const {
  if (isLost_) return port_.DevicePresent() ? kBack : kLost;
  if (silentSince_.empty()) return kStates.at(static_cast<std::size_t>(status_.LinkState));
  return "The machine has not answered since " + silentSince_ +
         ". Is it on, and is its cable plugged in?";
}

void LinkCare::Show() {
  view_.LblLink.Caption = Words();
  view_.LblProblem.Caption = status_.Problem;
  view_.LblProblem.Visible = !status_.Problem.empty();
  view_.CmdReconnect.Visible = status_.LinkState < link::kMachineHeard;
  view_.CmdReconnect.Enabled = true;
}

void LinkCare::Begin() {
  view_.LblLink.Caption = "Connecting to the machine ...";
  view_.LblProblem.Visible = false;
  view_.CmdReconnect.Enabled = false;
}

void LinkCare::Silence(const std::string& since) {
  if (silentSince_ == since) return;
  silentSince_ = since;
  Show();
  view_.LblLink.Refresh();
}

void LinkCare::Forget() {
  isLost_ = false;
  silentSince_.clear();
}

void LinkCare::TellLoss() {
  ports_.CloseComPort();
  Forget();
  isLost_ = true;
  lost_();
}

void LinkCare::Watch() {
  const bool linked = status_.LinkState != link::kPortClosed;
  if (linked && !port_.PortOpen()) TellLoss();
  if (isLost_) Show();
}

}  // namespace tintbench::shell
