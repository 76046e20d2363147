// Link-up: finds out, after each opening of a port, what stands at the other end of the line. It
// opens the port, reads the firmware version, receives the machine's configuration and draws the
// machine facts from it, and tells the operator how far it came.
#pragma once

#include <string>

#include "base/AppPaths.h"
#include "base/Files.h"
#include "config/MachineFacts.h"
#include "link/ComPort.h"
#include "link/LinkStatus.h"
#include "link/Transaction.h"
#include "link/Xmodem.h"

namespace tintbench::link {

// What link-up needs of the main window.
class LinkView {
 public:
  virtual ~LinkView() = default;
  // Shows the commands of link-up.
  virtual LineView& Line() = 0;
  // What link-up does from now on, in words. Empty once it is over.
  virtual void ShowStep(const std::string& step) = 0;
  // `caption` names the port and its settings.
  virtual void ShowPort(const std::string& caption) = 0;
  // On the master line a good link can't be changed.
  virtual void LockPort() = 0;
  virtual void ShowVersions(const std::string& configuration, const std::string& firmware) = 0;
  // The drawn width of a menu's text.
  virtual double TextWidth(const std::string& text) const = 0;
  // The machine facts and the link's state are settled; `configured` if there is a configuration.
  virtual void BuildSensorNames(bool configured) = 0;
  virtual void RebuildGroupsMenu() = 0;
};

struct LinkUpParts {
  SerialPort& Port;
  base::Clock& Clock;
  base::FileSystem& Files;
  ui::Screen& Screen;
  ComPort& Ports;
  Transaction& Commands;
  Xmodem& Transfer;
  config::MachineFacts& Facts;
  LinkStatus& Status;
  LinkView& View;
};

class LinkUp {
 public:
  // `serialMode` is "MASTER" or another text; `portKey` the value of the PORT key of the command
  // line, perhaps empty.
  LinkUp(const LinkUpParts& parts, const base::AppPaths& paths, std::string serialMode,
         std::string portKey);

  // Links up on `port` ("001") with `settings`, and gives the link state that was reached. Both
  // empty: on the command line's port, or on the first of all ports where a machine answers. Both
  // "-1": disconnects. The arguments tell afterwards what was used.
  LinkStateValue LinkMachine(std::string& port, std::string& settings);

  // Links up once more as it was asked for last, and on the very port if a machine was heard there.
  LinkStateValue LinkAgain();

  // The menu lines on the configuration and the firmware in use.
  void ShowCurrentVersions();

 private:
  void Connect(std::string& port, std::string& settings);
  bool TakePortKey(std::string& port, std::string& settings) const;
  void WalkPorts(const std::string& firstPort, const std::string& settings);
  void TryPort(const std::string& port, const std::string& settings);
  void LinkMachineLoop(const std::string& port, const std::string& settings);
  void TellStep(const std::string& port, const std::string& step);
  bool OpenAndStartService(const std::string& port, const std::string& settings);
  bool StartMasterService(const std::string& port);
  bool ReadMachineVersion();
  bool ExecuteConfigRead();
  void TellUnkeptFile(const std::string& reason);
  void SettleConfiguration();
  void TellOperator();
  bool IsMaster() const;

  LinkUpParts parts_;
  base::AppPaths paths_;
  std::string serialMode_;
  std::string portKey_;
  // The arguments of the next LinkAgain.
  std::string againPort_;
  std::string againSettings_;
};

}  // namespace tintbench::link
