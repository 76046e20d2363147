#include "shell/PlainWindows.h"

#include <array>

namespace tintbench::shell {

namespace {

constexpr std::array<const char*, 3> kTransferTitles{"Machine Link", "Configuration", "Firmware"};

}  // namespace

PlainWindow::PlainWindow(ui::Screen& screen, const std::string& name, const std::string& title)
    : ui::Form(name), screen_(screen) {
  Caption = title;
  LblPlain.Caption = "This window is still to come. The machine is held while it is open.";
  CmdClose.Caption = "&Close";
  CmdClose.Cancel = true;
  CmdClose.Click = [this] { screen_.Unload(*this); };
  screen.Register(*this);
}

PlainWindows::PlainWindows(ui::Screen& screen, commands::FormComm& formComm,
                           stats::FormStat& formStat, autotest::FormAuto& formAuto,
                           groups::FormGMon& formGMon)
    : formComm_(formComm),
      formStat_(formStat),
      formAuto_(formAuto),
      formGMon_(formGMon),
      formXmod_(screen, "FormXmod", kTransferTitles[0]),
      formGHst_(screen, "FormGHst", "Groups Monitoring History") {}

ui::Form& PlainWindows::Transfer(int mode) {
  formXmod_.Caption = kTransferTitles.at(static_cast<std::size_t>(mode));
  return formXmod_;
}

ui::Form& PlainWindows::Commands(int function) {
  formComm_.SetFormFunction(function);
  return formComm_;
}

ui::Form& PlainWindows::GroupMonitor(const std::string& address) {
  formGMon_.SetGroupAddress(address);
  return formGMon_;
}

ui::Form& PlainWindows::GroupHistory(const std::string& title) {
  formGHst_.Caption = title;
  return formGHst_;
}

}  // namespace tintbench::shell
