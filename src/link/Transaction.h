// The one transaction of the line: a command of the table goes out, an answer comes back. All
// ordinary traffic with the machine goes through here.
#pragma once

#include <string>

#include "base/Clock.h"
#include "link/CommandTable.h"
#include "link/DebugLog.h"
#include "link/LineView.h"
#include "link/SerialPort.h"
#include "ui/Screen.h"

namespace tintbench::link {

class Transaction {
 public:
  Transaction(SerialPort& port, base::Clock& clock, CommandTable& commands, ui::Screen& screen,
              DebugLog& log)
      : port_(port), clock_(clock), commands_(commands), screen_(screen), log_(log) {}

  // Sends the command of a row as it stands in the table and gives back what the
  // machine answered until the answer was whole or the row's time was over: perhaps a part, or
  // nothing. Serves no window event; `view` shows it. Gives nothing, and sends
  // nothing, while another transaction runs or when the port is closed, which a box then says.
  std::string SendCommand(LineView& view, CommandId row);

  bool IsSerialBusy() const { return busy_; }
  void ClearSerialBusy() { busy_ = false; }

 private:
  void AwaitAnswer(LineView& view, CommandId row);
  void EchoCommand(LineView& view, const std::string& command);
  void EchoAnswer(LineView& view, const std::string& command, const std::string& answer);

  SerialPort& port_;
  base::Clock& clock_;
  CommandTable& commands_;
  ui::Screen& screen_;
  DebugLog& log_;
  bool busy_ = false;
};

}  // namespace tintbench::link
