// The small dialog in which the debug level is edited.
#pragma once

#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::shell {

struct FormDbg : ui::Form {
  explicit FormDbg(ui::Screen& screen);

  ui::Frame FrmDbgEdit{*this, "FrmDbgEdit"};
  ui::TextBox TxtDbgLev{FrmDbgEdit, "TxtDbgLev"};

  // Shows the level, and gives back the number that the text in the box begins with when the window
  // closes; 0 for none and for one of more than 16 bits.
  int Edit(int level);

  void Form_Activate() override { TxtDbgLev.SetFocus(); }
  void Form_KeyDown(ui::KeyEvent& key) override;

 private:
  ui::Screen& screen_;
  int level_ = 0;
};

// The number as a debug level; 0 if it is one of more than 16 bits.
int DebugLevelOf(int number);

}  // namespace tintbench::shell
