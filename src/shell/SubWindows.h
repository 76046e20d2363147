// The windows that the main window's menus lead to. Each call tells a window what it is wanted
// for, and gives it back to be shown modally.
#pragma once

#include <string>

#include "ui/Form.h"

namespace tintbench::shell {

enum TransferMode : int { kPortSettings = 0, kConfigTransfer = 1, kFirmwareTransfer = 2 };

class SubWindows {
 public:
  virtual ~SubWindows() = default;
  virtual ui::Form& Transfer(int mode) = 0;
  virtual ui::Form& Statistics() = 0;
  virtual ui::Form& Autotest() = 0;
  virtual ui::Form& Commands(int function) = 0;  // one of commands::FormFunction
  virtual ui::Form& GroupMonitor(const std::string& address) = 0;
  virtual ui::Form& GroupHistory(const std::string& title) = 0;
  // What the windows have switched on at the machine and could not switch off again, in words.
  virtual std::string LeftOn() const = 0;
};

}  // namespace tintbench::shell
