// The lists of the port and its settings: from the port to the lists, and from what the operator
// has chosen there back to a port and its settings.
#pragma once

#include <string>

#include "link/Xmodem.h"
#include "transfer/TransferParts.h"
#include "transfer/XmodWindow.h"

namespace tintbench::transfer {

class PortSettings {
 public:
  PortSettings(XmodWindow& window, const TransferParts& parts);

  // Fills the lists and selects what the port has at present.
  void Fill();
  // Looks the ports up anew; what is selected stays.
  void LookUpPorts();
  // Says which port is connected.
  void ShowState();

  bool HasSelection() const { return window_.CmbCom.ListIndex >= 0; }
  // The port selected, "001".
  std::string Port() const;
  // The settings selected. Where no row is, because a list doesn't have it, the port's own stays.
  std::string Settings() const;
  // Both, or the port's own if none is selected.
  link::PortSelection Selection() const;

 private:
  void FillPorts(int selected);
  void ShowDevice();

  XmodWindow& window_;
  const TransferParts& parts_;
};

}  // namespace tintbench::transfer
