// The link with the machine from the program's start to its end: link-up on one of the ports, again
// when the operator wishes so, and the way out.
#pragma once

#include <string>

#include "base/AppPaths.h"
#include "link/ComPort.h"
#include "link/LinkUp.h"
#include "transfer/MachineLink.h"

namespace tintbench::shell {

class LinkSession final : public transfer::MachineLink {
 public:
  // `portKey` is the value of the PORT key of the command line, perhaps empty. The reference to the
  // view is only kept, so the view may still be to come.
  LinkSession(const link::LinkUpParts& parts, const base::AppPaths& paths, std::string serialMode,
              std::string portKey);

  // Looks for the ports, and links up for the first time. If there is no port, a box says so.
  void Start();
  bool HasPort() const { return hasPort_; }
  // True within Start, while no other window stands.
  bool IsStarting() const { return starting_; }

  int LinkMachine(const std::string& port, const std::string& settings) override;
  // Links up as it was asked for last, and on the same port if a machine was heard there.
  void LinkAgain() { linkUp_.LinkAgain(); }

  // Gives the service on the master line back, and closes the port.
  void End();

  // "MASTER" or another text: which of the machine's lines the tool is on.
  const std::string& SerialMode() const { return serialMode_; }
  link::LinkUp& Linker() { return linkUp_; }

 private:
  void ReturnService();

  link::LinkUpParts parts_;
  base::AppPaths paths_;
  std::string serialMode_;
  link::LinkUp linkUp_;
  bool hasPort_ = false;
  bool starting_ = false;
};

}  // namespace tintbench::shell
