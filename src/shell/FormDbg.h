// The small dialog in which the debug level is edited.
#pragma once

#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::shell {

struct FormDbg : ui::Form {
  explicit FormDbg(ui::Screen& screen);

  ui::Frame FrmDbgEdit{*this, "FrmDbgEdit"};
  ui::TextBox TxtDbgLev{FrmDbgEdit, "TxtDbgLev"};

  // Shows the level, and gives back the one that stands in the box when the window closes: 0 for
  // what is no number of 16 bits.
  int Edit(int level);

  void Form_Activate() override { TxtDbgLev.SetFocus(); }
  void Form_KeyDown(ui::KeyEvent& key) override;

 private:
  ui::Screen& screen_;
  int level_ = 0;
};

// The debug level that a text names; 0 if it names none.
int DebugLevelOf(const std::string& text);

}  // namespace tintbench::shell
