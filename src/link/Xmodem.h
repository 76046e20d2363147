// The Xmodem engine: carries one file at a time between this program and the machine, in either
// direction, on the line of the commands. It knows nothing of what it carries.
#pragma once

#include <functional>
#include <string>

#include "base/Clock.h"
#include "base/Files.h"
#include "link/SerialPort.h"
#include "link/XmodemProtocol.h"
#include "link/XmodemReport.h"
#include "link/XmodemSession.h"

namespace tintbench::link {

// What the engine needs of the program around it.
struct XmodemSetup {
  std::string AppPath;                // holds the scratch file and the trace
  std::function<void()> ServeEvents;  // lets the windows react: at each block, and in waits
  std::function<int()> DebugLevel;    // a transfer is traced at level 7
};

// A port as the operator has chosen it.
struct PortSelection {
  int CommPort = 1;
  std::string Settings;
};

class Xmodem {
 public:
  Xmodem(SerialPort& port, base::Clock& clock, base::FileSystem& files, XmodemSetup setup);

  // Prepares the engine for the transfers of a window: the retry table and the scratch file.
  void XmodemInit();

  // Binds the port and the controls that show the transfers. `selection` tells on which port and
  // settings the port is reopened after an operator's abort; without it, on its present ones.
  void XmodemBind(const XmodemDisplay& display, std::function<PortSelection()> selection = {});

  // Binds the port alone, for a transfer without any display.
  void XmodemBind(std::function<PortSelection()> selection = {});

  // Sends or receives the file in blocks of `size` bytes, 128 or 1024; a receiver takes
  // what size the sender chooses. Gives an XmodemStatus: 0 if all went well, -1 if no port is
  // bound, it isn't open, or a transfer is running already.
  int XmodemTransfer(XmodemDirection direction, int size, const std::string& file);

  // For link-up: receives `file` without any display, and leaves the port unbound.
  int XmodemReceiveQuiet(const std::string& file);

  // Asks the running transfer to end; it is heard at the next block, and in any wait for the line.
  void XmodemAbort() { session_.State.XmodemAbortFlag = true; }

  // The state of the transfer that runs or ran last.
  const XmodemState& State() const { return session_.State; }

 private:
  void StartTrace();
  int Run(XmodemDirection direction);
  void ReopenPort();

  SerialPort& port_;
  XmodemSetup setup_;
  XmodemSession session_;
  std::function<PortSelection()> selection_;
  bool bound_ = false;
  bool running_ = false;
};

}  // namespace tintbench::link
