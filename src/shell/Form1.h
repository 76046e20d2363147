// The main window: the menu bar that leads to every other window, the state of the link, and the
// home of the serial port. It stays open all the time.
#pragma once

#include <string>

#include "config/MachineFacts.h"
#include "link/LinkTexts.h"
#include "link/LinkUp.h"
#include "shell/AppIdentity.h"
#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::shell {

// What the main window does at its load and at its end. The program gives it these steps, since
// they reach beyond the window.
class MainWindowOwner {
 public:
  virtual ~MainWindowOwner() = default;
  virtual void LoadMainWindow() = 0;
  virtual void EndMainWindow() = 0;
  virtual void BuildSensorNames(bool configured) = 0;
};

struct Form1 : ui::Form, link::LinkView {
  Form1(ui::Screen& screen, const AppIdentity& identity, MainWindowOwner& owner,
        const config::MachineFacts& facts, const link::LinkStatus& status);

  ui::Menu MnuMachConf{*this, "MnuMachConf", "&Machine Setting"};
  ui::Menu MMnuGetconf{MnuMachConf, "MMnuGetconf", "Configuration"};
  ui::Menu MMnuLoadfirmw{MnuMachConf, "MMnuLoadfirmw", "Firmware"};
  ui::Menu MMnuGetstat{MnuMachConf, "MMnuGetstat", "Statistical Data"};
  ui::Menu MnuMaint{*this, "MnuMaint", "M&aintenance"};
  ui::Menu MMnuMaint{MnuMaint, "MMnuMaint", "Maintenance Menu"};
  ui::Menu MMnuCommand{MnuMaint, "MMnuCommand", "Command Menu"};
  ui::Menu MnuIOmonitor{*this, "MnuIOmonitor", "&Sensor Monitoring"};
  ui::Menu WIOmode{MnuIOmonitor, "WIOmode", "Sensor display mode"};
  ui::Menu WButton{WIOmode, "WButton", "Button"};
  ui::Menu WCircleBox{WIOmode, "WCircleBox", "Circle box"};
  ui::Menu WSquareBox{WIOmode, "WSquareBox", "Square box"};
  ui::Menu GRIOmode{MnuIOmonitor, "GRIOmode", "Sensor Graphic mode"};
  ui::Menu GSquareLed{GRIOmode, "GSquareLed", "Square led"};
  ui::Menu GCircleLed{GRIOmode, "GCircleLed", "Circle Led"};
  ui::Menu IMax{MnuIOmonitor, "IMax", "Input sensors"};
  ui::Menu OMax{MnuIOmonitor, "OMax", "Output sensors"};
  ui::Menu EMax{MnuIOmonitor, "EMax", "Status"};
  ui::Menu GMax{MnuIOmonitor, "GMax", "Graphic I/O sensors"};
  ui::Menu MnuPar{*this, "MnuPar", "&Port Connection ( none )"};
  ui::Menu MMnuSerPort{MnuPar, "MMnuSerPort", link::kNoPortCaption};
  ui::Menu MnuAutotest{*this, "MnuAutotest", "Autotes&t Info"};
  ui::Menu MnuGroupsMonitor{*this, "MnuGroupsMonitor", "G&roups Monitoring"};
  ui::ControlArray<ui::Menu> MMnuGrMon{MnuGroupsMonitor, "MMnuGrMon", 1};
  ui::Menu MnuKsvdbg{*this, "MnuKsvdbg", "&Debug Level [ - ]"};
  ui::Menu MMnuksvdbg03{MnuKsvdbg, "MMnuksvdbg03", "Xmodem_Init[ 3 ]"};
  ui::Menu MMnuksvdbg07{MnuKsvdbg, "MMnuksvdbg07", "Xmodem[ 7 ]"};
  ui::Menu MMnuksvdbg15{MnuKsvdbg, "MMnuksvdbg15", "Commands[ 15 ]"};
  ui::Menu MMnuksvdbgEdit{MnuKsvdbg, "MMnuksvdbgEdit", "Edit Level[ - ]"};

  // Input sensors, output sensors, status, and the graphic view of the CPU card.
  ui::ControlArray<ui::Frame> Frame{*this, "Frame", 4};
  ui::Label ILabel1{Frame(0), "ILabel1"};
  ui::Label OLabel1{Frame(1), "OLabel1"};
  ui::Label ErLabel1{Frame(2), "ErLabel1"};
  // How far the link has come, in words.
  ui::Label LblLink{*this, "LblLink"};
  ui::Label LblLinkPort{*this, "LblLinkPort"};

  ui::Frame FrmDbg{*this, "FrmDbg"};
  ui::ControlArray<ui::TextBox> TxtDbgIO{FrmDbg, "TxtDbgIO", 2};

  ui::Timer Timer1{*this, "Timer1"};

  void Form_Load() override { owner_.LoadMainWindow(); }
  void Form_Activate() override;
  void Form_QueryUnload(bool& cancel) override;

  // Marks the debug level in its menu and shows the frame of level 15.
  void ShowDebugLevel(int level);

  ui::Form& LinkForm() override { return *this; }
  void ShowPort(const std::string& caption) override;
  void LockPort() override { MMnuSerPort.Enabled = false; }
  void ShowVersions(const std::string& configuration, const std::string& firmware) override;
  double TextWidth(const std::string& text) const override;
  void BuildSensorNames(bool configured) override { owner_.BuildSensorNames(configured); }
  void RebuildGroupsMenu() override;

 private:
  void LoadGroupItem(int index, const std::string& caption, int tag);

  ui::Screen& screen_;
  MainWindowOwner& owner_;
  const config::MachineFacts& facts_;
  const link::LinkStatus& status_;
  bool ending_ = false;
};

}  // namespace tintbench::shell
