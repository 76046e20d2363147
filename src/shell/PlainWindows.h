// Stands in for the windows that are still to come: each opens as a plain modal window with its
// name and title, so that the menus already lead somewhere and the machine is held around it.
#pragma once

#include "autotest/FormAuto.h"
#include "commands/FormComm.h"
#include "groups/FormGMon.h"
#include "shell/SubWindows.h"
#include "stats/FormStat.h"
#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::shell {

struct PlainWindow : ui::Form {
  PlainWindow(ui::Screen& screen, const std::string& name, const std::string& title);

  ui::Label LblPlain{*this, "LblPlain"};
  ui::Button CmdClose{*this, "CmdClose"};

 private:
  ui::Screen& screen_;
};

class PlainWindows final : public SubWindows {
 public:
  // The windows that are given must outlive this; the rest are plain ones.
  PlainWindows(ui::Screen& screen, commands::FormComm& formComm, stats::FormStat& formStat,
               autotest::FormAuto& formAuto, groups::FormGMon& formGMon);

  ui::Form& Transfer(int mode) override;
  ui::Form& Statistics() override { return formStat_; }
  ui::Form& Autotest() override { return formAuto_; }
  ui::Form& Commands(int function) override;
  ui::Form& GroupMonitor(const std::string& address) override;
  ui::Form& GroupHistory(const std::string& title) override;
  std::string LeftOn() const override { return formComm_.On().Text(); }

 private:
  commands::FormComm& formComm_;
  stats::FormStat& formStat_;
  autotest::FormAuto& formAuto_;
  groups::FormGMon& formGMon_;
  PlainWindow formXmod_;
  PlainWindow formGHst_;
};

}  // namespace tintbench::shell
