#include "shell/FormDbg.h"

#include "base/Numbers.h"

namespace tintbench::shell {

namespace {

constexpr int kLowest = -32768;
constexpr int kHighest = 32767;

}  // namespace

int DebugLevelOf(int number) { return number < kLowest || number > kHighest ? 0 : number; }

FormDbg::FormDbg(ui::Screen& screen) : ui::Form("FormDbg"), screen_(screen) {
  Caption = "EDIT DEBUG LEVEL (0=null)";
  FrmDbgEdit.Caption = "Debug Level";
}

int FormDbg::Edit(int level) {
  level_ = level;
  TxtDbgLev.Text = std::to_string(level);
  screen_.ShowModal(*this);
  return DebugLevelOf(base::LeadingInt(TxtDbgLev.Text.Get()));
}

void FormDbg::Form_KeyDown(ui::KeyEvent& key) {
  if (key.Code != ui::kKeyEnter && key.Code != ui::kKeyEsc) return;
  if (key.Code == ui::kKeyEsc) TxtDbgLev.Text = std::to_string(level_);
  key.Code = 0;
  screen_.Unload(*this);
}

}  // namespace tintbench::shell
