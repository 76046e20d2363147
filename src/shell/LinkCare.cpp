#include "shell/LinkCare.h"

namespace tintbench::shell {

void LinkCare::TellLoss() {
  ports_.CloseComPort();
  isLost_ = true;
  view_.LblLink.Caption =
      "The line to the machine was lost. Check the adapter and its cable, then connect again.";
  lost_();
}

void LinkCare::Offer(bool deviceBack) {
  if (view_.CmdReconnect.Visible == deviceBack) return;
  view_.CmdReconnect.Visible = deviceBack;
  if (deviceBack) {
    view_.LblLink.Caption = "The line was lost, and its device is back. Connect again?";
  }
}

void LinkCare::Watch() {
  const bool linked = status_.LinkState != link::kPortClosed;
  if (linked && !port_.PortOpen()) return TellLoss();
  if (linked) isLost_ = false;
  Offer(isLost_ && port_.DevicePresent());
}

}  // namespace tintbench::shell
