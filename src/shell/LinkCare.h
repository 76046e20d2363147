// Tells in the main window how the link to the machine stands, and offers to connect again. Watches
// whether the port is still there: a lost one is told once. Nothing is sent without the operator's
// wish.
#pragma once

#include <functional>
#include <string>

#include "link/ComPort.h"
#include "link/LinkStatus.h"
#include "link/SerialPort.h"
#include "ui/Controls.h"

namespace tintbench::shell {

struct LinkCareView {
  ui::Label& LblLink;
  ui::Label& LblProblem;
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
  // The machine hasn't answered since that time of day; empty while it answers.
  void Silence(const std::string& since);
  // Link-up begins by the operator's wish.
  void Begin();
  // A loss is over once the operator has linked up anew, or wants no link.
  void Forget();
  // Tells the state that the link has now.
  void Show();

 private:
  void TellLoss();
  std::string Words() const;

  LinkCareView view_;
  link::SerialPort& port_;
  link::ComPort& ports_;
  const link::LinkStatus& status_;
  std::function<void()> lost_;
  bool isLost_ = false;
  std::string silentSince_;
};

}  // namespace tintbench::shell
