#include "shell/LinkCare.h"

namespace tintbench::shell {

namespace {

constexpr const char* kLost =
    "The line to the machine was lost. Check the adapter and its cable, then connect again.";
constexpr const char* kBack = "The line was lost, and its device is back. Connect again?";

}  // namespace

void LinkCare::TellLoss() {
  ports_.CloseComPort();
  isLost_ = true;
  view_.LblLink.Caption = kLost;
  lost_();
}

void LinkCare::Forget() {
  isLost_ = false;
  view_.CmdReconnect.Visible = false;
}

void LinkCare::Offer(bool deviceBack) {
  if (view_.CmdReconnect.Visible == deviceBack) return;
  view_.CmdReconnect.Visible = deviceBack;
  view_.LblLink.Caption = deviceBack ? kBack : kLost;
}

void LinkCare::Watch() {
  const bool linked = status_.LinkState != link::kPortClosed;
  if (linked && !port_.PortOpen()) return TellLoss();
  if (isLost_) Offer(port_.DevicePresent());
}

}  // namespace tintbench::shell
