// Watches whether the port is still there. A lost one is told in the main window, once; when its
// device is back the operator may connect again. Nothing is sent without the operator's wish.
#pragma once

#include <functional>

#include "link/ComPort.h"
#include "link/LinkStatus.h"
#include "link/SerialPort.h"
#include "ui/Controls.h"

namespace tintbench::shell {

struct LinkCareView {
  ui::Label& LblLink;
  ui::Button& CmdReconnect;
};

class LinkCare {
 public:
  // `lost` is called once for each loss, with the port closed already.
  LinkCare(const LinkCareView& view, link::SerialPort& port, link::ComPort& ports,
           const link::LinkStatus& status, std::function<void()> lost)
      : view_(view), port_(port), ports_(ports), status_(status), lost_(std::move(lost)) {}

  // To be called again and again while the window is open.
  void Watch();
  // A loss is over once the operator has linked up anew, or wants no link.
  void Forget();

 private:
  void TellLoss();
  void Offer(bool deviceBack);

  LinkCareView view_;
  link::SerialPort& port_;
  link::ComPort& ports_;
  const link::LinkStatus& status_;
  std::function<void()> lost_;
  bool isLost_ = false;
};

}  // namespace tintbench::shell
