// Operator scripts. An input is a script, which is read and then played on two small windows.
#include <sstream>

#include "FuzzInput.h"
#include "Target.h"
#include "base/Clock.h"
#include "ui/OperatorScreen.h"

namespace tintbench::fuzz {
namespace {

// A script that waits longer takes the fuzzer too long.
constexpr double kLongestScript = 3600.0;
// What one step may take besides its own waiting: the patience for a box, or the busy button.
constexpr double kLongestStep = 3700.0;

struct Dialog : ui::Form {
  explicit Dialog(ui::Screen& screen) : Form("Dialog"), Shown(screen) {
    CmdOk.Default = true;
    CmdOk.Click = [this] { Shown.Unload(*this); };
    CmdHide.Cancel = true;
    CmdHide.Click = [this] { Shown.Hide(*this); };
  }
  ui::Screen& Shown;
  ui::Button CmdOk{*this, "CmdOk"};
  ui::Button CmdHide{*this, "CmdHide"};
};

// A window with a control of every kind, whose buttons ask and wait.
struct Desk : ui::Form {
  Desk(ui::Screen& screen, Dialog& dialog) : Form("Desk"), Shown(screen) {
    TxtLocked.Locked = true;
    TxtEntry.MaxLength = 8;
    TxtEntry.Change = [this] { LblState.Caption = TxtEntry.Text; };
    for (const char* row : {"one", "two", "three"}) {
      LstRows.AddItem(row);
      CmbRows.AddItem(row);
      TabPages.AddTab({row});
    }
    LstRows.DblClick = [this] { LstRows.RemoveItem(LstRows.ListIndex); };
    MnuDead.Enabled = false;
    MnuItem.Click = [this] { ChkOne.Value = ui::kGrayed; };
    CmdBox.Click = [this] { Shown.Ask(ui::Box{.Text = "a box\r\nof two lines"}); };
    CmdChoice.Click = [this] {
      const bool yes = Shown.Ask(ui::Box{"sure?", ui::BoxIcon::Question, ui::BoxButtons::YesNo}) ==
                       ui::Answer::Yes;
      FrmChoice.Visible = yes;
    };
    CmdEntry.Click = [this] { TxtEntry.Text = Shown.Ask(ui::Question{"text?"}).value_or("none"); };
    CmdFile.Click = [this] {
      LblState.Caption = Shown.Ask(ui::FileRequest{"Open", "All|*"}).value_or("none");
    };
    CmdDialog.Click = [this, &dialog] { Shown.ShowModal(dialog); };
    CmdBusy.Click = [this] {
      for (int i = 0; i < 100 && ChkOne.Value != ui::kChecked; ++i) Shown.Idle(0.1);
    };
    Tick.Tick = [this] { Cells(0).Text = std::to_string(++Ticks); };
    Tick.Interval = 500;
  }

  // The first try to close it fails.
  void Form_QueryUnload(bool& cancel) override { cancel = !std::exchange(Leaving, true); }

  ui::Screen& Shown;
  bool Leaving = false;
  int Ticks = 0;
  ui::Menu MnuTitle{*this, "MnuTitle", "&Title"};
  ui::Menu MnuItem{MnuTitle, "MnuItem", "Item"};
  ui::Menu MnuDead{MnuTitle, "MnuDead", "Dead"};
  ui::Label LblState{*this, "LblState"};
  ui::TextBox TxtEntry{*this, "TxtEntry"};
  ui::TextBox TxtLocked{*this, "TxtLocked"};
  ui::ControlArray<ui::TextBox> Cells{*this, "Cells", 2};
  ui::Button CmdBox{*this, "CmdBox"};
  ui::Button CmdChoice{*this, "CmdChoice"};
  ui::Button CmdEntry{*this, "CmdEntry"};
  ui::Button CmdFile{*this, "CmdFile"};
  ui::Button CmdDialog{*this, "CmdDialog"};
  ui::Button CmdBusy{*this, "CmdBusy"};
  ui::CheckBox ChkOne{*this, "ChkOne"};
  ui::Frame FrmChoice{*this, "FrmChoice"};
  ui::ControlArray<ui::OptionButton> OptChoice{FrmChoice, "OptChoice", 2};
  ui::ListBox LstRows{*this, "LstRows"};
  ui::ComboBox CmbRows{*this, "CmbRows"};
  ui::TabStrip TabPages{*this, "TabPages"};
  ui::ProgressBar Progress{*this, "Progress"};
  ui::StatusBar Status{*this, "Status"};
  ui::Timer Tick{*this, "Tick"};
};

void CheckSteps(const ui::OperatorScript& script) {
  int line = 0;
  for (const ui::Step& step : script.Steps) {
    Require(step.Line > line, "steps are in their order");
    line = step.Line;
    Require(step.Seconds >= 0, "time goes on");
    Require(step.Target.Names.size() <= 3, "a path has three names at the most");
  }
}

void Play(const ui::OperatorScript& script, double waiting) {
  base::VirtualClock clock;
  std::ostringstream transcript;
  std::ostringstream diagnostics;
  ui::OperatorScreen screen(clock, script, transcript, diagnostics,
                            [](const std::string& words) { return words == "go" ? "" : "what?"; });
  Dialog dialog(screen);
  Desk desk(screen, dialog);
  screen.Register(dialog);
  screen.Show(desk);
  screen.Run();
  Require(screen.Front() == nullptr, "all windows are closed at the end");
  using Outcome = ui::OperatorScreen::Outcome;
  const Outcome outcome = screen.Finish();
  Require((outcome == Outcome::ScriptWrong) == !diagnostics.str().empty(),
          "a wrong script has a diagnostic");
  const double longest = waiting + static_cast<double>(script.Steps.size() + 2) * kLongestStep;
  Require(clock.Now() <= longest, "a script ends in time");
}

}  // namespace
}  // namespace tintbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tintbench;
  const std::string text = fuzz::FuzzInput(data, size).Rest();
  ui::OperatorScript script;
  std::string error;
  if (!ui::ParseOperatorScript(text, "a script", script, error)) {
    fuzz::Require(error.starts_with("a script:") && error.find('\n') == std::string::npos,
                  "a fault is told in one line, with its place");
    return 0;
  }
  fuzz::CheckSteps(script);
  double waiting = 0;
  for (const ui::Step& step : script.Steps) waiting += step.Seconds;
  if (waiting <= fuzz::kLongestScript) fuzz::Play(script, waiting);
  return 0;
}
