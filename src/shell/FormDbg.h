// The small dialog in which the debug level is edited.
#pragma once

#include <optional>

#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::shell {

struct FormDbg : ui::Form {
  explicit FormDbg(ui::Screen& screen);

  ui::Frame FrmDbgEdit{*this, "FrmDbgEdit"};
  ui::TextBox TxtDbgLev{FrmDbgEdit, "TxtDbgLev"};
  ui::Label LblRefused{*this, "LblRefused"};
  ui::Button CmdOk{*this, "CmdOk"};
  ui::Button CmdCancel{*this, "CmdCancel"};

  // Shows the level, and gives the number that the text in the box begins with when the window
  // closes, 0 for none. Nothing if the operator gave it up or closed the window on a number that is
  // no level.
  std::optional<int> Edit(int level);

  void Form_Activate() override { TxtDbgLev.SetFocus(); }

 private:
  void CmdOk_Click();

  ui::Screen& screen_;
  bool givenUp_ = false;
};

// The number as a debug level; nothing if it is one of more than 16 bits.
std::optional<int> DebugLevelOf(int number);

}  // namespace tintbench::shell
