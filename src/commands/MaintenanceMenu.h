// The Maintenance Menu: walks the machine's valves, caps, motors and stirrings one press at a time,
// each option on a key of its own, and halts whatever runs.
#pragma once

#include <string>

#include "commands/CommWindow.h"
#include "commands/PurgeProcess.h"
#include "commands/ShelfAndValves.h"

namespace tintbench::commands {

class MaintenanceMenu {
 public:
  MaintenanceMenu(CommWindow& window, ShelfAndValves& shelf, PurgeProcess& purge)
      : window_(window), shelf_(shelf), purge_(purge) {}

  // The window has loaded for this menu.
  void Load();
  // A key of the window; sets its code to 0 if it was taken.
  void KeyDown(ui::KeyEvent& key);
  void Option1_Click(int option);
  void CmdMultExec_Click();
  void CmdMultStop_Click();

 private:
  CommWindow& window_;
  ShelfAndValves& shelf_;
  PurgeProcess& purge_;
};

}  // namespace tintbench::commands
