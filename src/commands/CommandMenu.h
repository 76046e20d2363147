// The Command Menu: sends any row of the command table with the argument that the operator types,
// and shows the answer decoded.
#pragma once

#include <string>

#include "commands/CommWindow.h"
#include "commands/ShelfAndValves.h"

namespace tintbench::commands {

class CommandMenu {
 public:
  CommandMenu(CommWindow& window, ShelfAndValves& shelf) : window_(window), shelf_(shelf) {}

  // The window has loaded for this menu.
  void Load();
  void CmbCtype_Click();
  void LstCsingle_Click(int group);
  void LstCsingle_GotFocus(int group);
  void LstCsingle_LostFocus(int group);
  void CmdExec_Click();
  void CmdStop_Click();
  // Typing a few letters of a description selects the first command that has them.
  void TxtFind_Change();
  // Takes one of the last commands of this window up again.
  void CmbRecent_Click();

 private:
  CommWindow& window_;
  ShelfAndValves& shelf_;
};

}  // namespace tintbench::commands
