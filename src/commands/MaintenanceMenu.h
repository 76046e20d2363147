// The Maintenance Menu: takes the machine through tests with single keys, each option on a key of
// its own, and halts whatever runs.
#pragma once

#include <optional>
#include <string>

#include "commands/CommWindow.h"
#include "commands/MaintenanceWalk.h"
#include "commands/PurgeProcess.h"
#include "commands/ShelfAndValves.h"

namespace tintbench::commands {

class MaintenanceMenu {
 public:
  MaintenanceMenu(CommWindow& window, ShelfAndValves& shelf, PurgeProcess& purge)
      : window_(window), shelf_(shelf), purge_(purge), walk_(window) {}

  // The window has loaded for this menu.
  void Load();
  // A key of the window; sets its code to 0 if it was taken.
  void KeyDown(ui::KeyEvent& key);
  // Chooses what CmdMultExec runs.
  void Option1_Click(int option);
  void CmdMultExec_Click();
  // Halts what runs. A window that closes does it too, in either of its functions.
  void CmdMultStop_Click();

 private:
  static constexpr int kNoOption = -1;

  void Execute(int option);
  void StopRunning(int option);
  void RunAction(int option, bool another);
  void ReadInputs();
  void ReadOutputs();
  void ReadStatus();
  void MachineReset();
  std::optional<std::string> StopMachine(int option);
  std::optional<std::string> SwitchOffRest();

  CommWindow& window_;
  ShelfAndValves& shelf_;
  PurgeProcess& purge_;
  MaintenanceWalk walk_;
  int currentOption_ = kNoOption;  // the last one that ran
  int runningOption_ = kNoOption;  // of the innermost process
};

}  // namespace tintbench::commands
