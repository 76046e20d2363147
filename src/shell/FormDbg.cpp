#include "shell/FormDbg.h"

#include "base/Numbers.h"

namespace tintbench::shell {

namespace {

constexpr int kLowest = -32768;
constexpr int kHighest = 32767;

std::optional<int> LevelIn(const std::string& text) { return DebugLevelOf(base::LeadingInt(text)); }

}  // namespace

std::optional<int> DebugLevelOf(int number) {
  return number < kLowest || number > kHighest ? std::nullopt : std::optional(number);
}

FormDbg::FormDbg(ui::Screen& screen) : ui::Form("FormDbg"), screen_(screen) {
  Caption = "EDIT DEBUG LEVEL (0=null)";
  FrmDbgEdit.Caption = "Debug Level";
  LblRefused.Caption =
      "Levels go from " + std::to_string(kLowest) + " to " + std::to_string(kHighest) + ".";
  CmdOk.Caption = "OK";
  CmdOk.Default = true;
  CmdOk.Click = [this] { CmdOk_Click(); };
  CmdCancel.Caption = "Cancel";
  CmdCancel.Cancel = true;
  CmdCancel.Click = [this] {
    givenUp_ = true;
    screen_.Unload(*this);
  };
}

std::optional<int> FormDbg::Edit(int level) {
  givenUp_ = false;
  LblRefused.Visible = false;
  TxtDbgLev.Text = std::to_string(level);
  screen_.ShowModal(*this);
  // A program that is told to end closes the dialog, too, and keeps its level and its log.
  return givenUp_ || screen_.IsClosingAll() ? std::nullopt : LevelIn(TxtDbgLev.Text);
}

void FormDbg::CmdOk_Click() {
  LblRefused.Visible = !LevelIn(TxtDbgLev.Text);
  if (LblRefused.Visible) {
    TxtDbgLev.SetFocus();
  } else {
    screen_.Unload(*this);
  }
}

}  // namespace tintbench::shell
