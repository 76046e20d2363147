// Owns the windows behind the main window's menus, and tells each what it is wanted for.
#pragma once

#include "autotest/FormAuto.h"
#include "commands/FormComm.h"
#include "config/ParameterCatalogue.h"
#include "editor/FormCfg.h"
#include "groups/FormGHst.h"
#include "groups/FormGMon.h"
#include "groups/Instruments.h"
#include "groups/Recording.h"
#include "link/LineParts.h"
#include "state/PanelParts.h"
#include "stats/FormStat.h"
#include "transfer/FormXmod.h"
#include "ui/Screen.h"

namespace tintbench::shell {

// What the windows work with. All of it must outlive them.
struct SubWindowsParts {
  ui::Screen& Screen;
  base::FileSystem& Files;
  const base::AppPaths& Paths;
  const base::AppIdentity& Identity;
  link::LineParts Line;
  state::PanelParts Panels;
  const config::MachineFacts& Facts;
  const state::ErrorTable& Errors;
  const config::SelectorCatalogue& Selectors;
  const config::ParameterCatalogue& Parameters;
  link::ComPort& Ports;
  link::Xmodem& Engine;
  transfer::MachineLink& Link;
  const ui::Form& MainWindow;  // gives its title
};

// Each call that gives a window has told it what it is wanted for; it is to be shown modally.
class SubWindows {
 public:
  explicit SubWindows(const SubWindowsParts& parts);

  ui::Form& Transfer(transfer::XmodemModeValue mode);
  ui::Form& Statistics() { return formStat_; }
  ui::Form& Autotest() { return formAuto_; }
  ui::Form& Commands(commands::FormFunction function);
  ui::Form& GroupMonitor(const std::string& address);
  ui::Form& GroupHistory(const std::string& title);
  // What the windows have switched on at the machine and could not switch off again, in words.
  std::string LeftOn() const { return formComm_.On().Text(); }

 private:
  void EditConfiguration(const std::string& folder, const std::string& stem,
                         const std::string& extension);

  ui::Screen& screen_;
  commands::FormComm formComm_;
  stats::StatCatalogue statCatalogue_;
  stats::FormStat formStat_;
  autotest::FormAuto formAuto_;
  editor::FormEdit formEdit_;
  editor::FormCfg formCfg_;
  transfer::FormXmod formXmod_;
  groups::ReadingsLog groupReadings_;
  groups::FormGMon formGMon_;
  groups::Recording groupRecord_;
  groups::Instruments groupInstruments_;
  groups::FormGHst formGHst_;
};

}  // namespace tintbench::shell
