// The window of the machine's self-test: asks for its record, lists the cycles that it has done and
// tells the errors of the one that is picked in words.
#pragma once

#include <string>

#include "autotest/AutotestRecord.h"
#include "link/DebugLog.h"
#include "link/LineView.h"
#include "link/Transaction.h"
#include "state/DebugFrame.h"
#include "state/ErrorCatalogue.h"
#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::autotest {

// What the window works with. All of it must outlive the window.
struct AutoParts {
  ui::Screen& Screen;
  link::Transaction& Commands;
  const link::DebugLog& Log;
  const state::ErrorTable& Errors;
};

// What an item of the list says about its cycle, so that a view can give it a sign.
enum CycleKind : int { kGoodCycle = 0, kCycleWithErrors = 1, kBrokenCycle = 2 };

struct FormAuto final : ui::Form, private link::LineView {
  explicit FormAuto(const AutoParts& parts);

  ui::Button CmdAutotest{*this, "CmdAutotest"};
  ui::Label LblCdoneTitle{*this, "LblCdoneTitle"};
  ui::Label LblCdone{*this, "LblCdone"};
  ui::Label LblCtotalTitle{*this, "LblCtotalTitle"};
  ui::Label LblCtotal{*this, "LblCtotal"};
  ui::Label LblErrInfo{*this, "LblErrInfo"};
  ui::Label LblListTitle{*this, "LblListTitle"};
  ui::ListBox LstCycles{*this, "LstCycles"};
  ui::Label LblCyclesTitle{*this, "LblCyclesTitle"};
  ui::Label LblCycles{*this, "LblCycles"};
  ui::Label LblErrorsTitle{*this, "LblErrorsTitle"};
  ui::Label LblErrors{*this, "LblErrors"};
  ui::Label LblTextTitle{*this, "LblTextTitle"};
  ui::TextBox ErText1{*this, "ErText1"};
  state::DebugFrame Debug{*this};

  void Form_Load() override;
  void Form_KeyDown(ui::KeyEvent& key) override;

 private:
  void ShowSent(const std::string& text) override { Debug.ShowSent(text); }
  void ShowReceived(const std::string& text) override { Debug.ShowReceived(text); }
  void CmdAutotest_Click();
  void LstCycles_Click();
  void Clear();
  void Show(AutotestRecord record);
  std::string ErrorLines(const std::string& codes) const;

  AutoParts parts_;
  AutotestRecord record_;
};

}  // namespace tintbench::autotest
