// The Command Menu: sends any row of the command table with the argument that the operator types,
// and shows the answer decoded.
#pragma once

#include <optional>
#include <string>
#include <vector>

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
  // Typing a few letters of a description selects the first command that has them, of all groups;
  // none is selected if none has them.
  void TxtFind_Change();
  // A key of the window; sets its code to 0 if it was taken. In TxtFind, Down and Up go from hit to
  // hit, and Enter, which sends elsewhere, does no more than select.
  void KeyDown(ui::KeyEvent& key);
  // Takes one of the last commands of this window up again.
  void CmbRecent_Click();

 private:
  // A command that was sent.
  struct Recent {
    CommandId Row;
    std::string Argument;
    friend bool operator==(const Recent&, const Recent&) = default;
  };

  void FillLists();
  // The selection that a group's list remembers; -1 if there is none.
  int Remembered(int group) const;
  // The row of the command table that is selected, if there is one.
  std::optional<CommandId> SelectedRow() const;
  // A row of a list, by its group and index.
  struct Place {
    int Group;
    int Index;
  };
  // The rows, in the lists' order, that `fits(list, index)` says are meant.
  template <typename Fits>
  std::vector<Place> Places(Fits fits) const;
  void SelectRow(Place place);
  void SelectNone();
  void ShowFound(const std::string& text);
  void SelectHit(std::size_t hit);
  void LoadComOnButton(int group, int listIndex);
  void ShowPanels(CommandId row);
  // The argument of a row, empty for one that takes none. Nothing if the operator gave it up.
  std::optional<std::string> ArgumentOf(CommandId row);
  std::string Transmit(CommandId row, const std::string& argument);
  void Remember(CommandId row, const std::string& argument);

  CommWindow& window_;
  ShelfAndValves& shelf_;
  std::optional<CommandId> shownRow_;  // whose panels are shown
  std::optional<CommandId> lastRow_;   // of the last typed argument
  std::string lastArgument_;           // the next default of that row
  std::vector<Recent> recent_;
  std::vector<Place> hits_;  // of what was looked for
  std::size_t hit_ = 0;      // the one selected
};

}  // namespace tintbench::commands
