// The main window: the menu bar that leads to every other window, the four sensor panels with the
// polling that feeds them, the state of the link, and the home of the serial port. It stays open
// all the time.
#pragma once

#include <functional>
#include <string>

#include "base/AppIdentity.h"
#include "config/MachineFacts.h"
#include "config/SelectorCatalogue.h"
#include "link/ComPort.h"
#include "link/LineParts.h"
#include "link/LineView.h"
#include "link/LinkTexts.h"
#include "link/LinkUp.h"
#include "shell/FormDbg.h"
#include "shell/LinkCare.h"
#include "shell/LinkSession.h"
#include "shell/MachineProcesses.h"
#include "shell/Polling.h"
#include "shell/SubWindows.h"
#include "state/DebugFrame.h"
#include "state/PanelParts.h"
#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::shell {

// What the window works with. All of it must outlive the window; the link, the windows that it
// leads to and the dialog may be made after it.
struct Form1Parts : link::LineParts, state::PanelParts {
  ui::Screen& Screen;
  const base::AppIdentity& Identity;
  link::ComPort& Ports;
  const config::MachineFacts& Facts;
  const config::SelectorCatalogue& Selectors;
  state::SensorNames& NewNames;  // the names again, to be built anew
  LinkSession& Link;
  SubWindows& Windows;
  FormDbg& LevelDialog;
};

struct Form1 : ui::Form, link::LinkView, link::LineView {
  explicit Form1(const Form1Parts& parts);

  ui::Menu MnuMachConf{*this, "MnuMachConf", "&Machine Setting"};
  ui::Menu MMnuGetconf{MnuMachConf, "MMnuGetconf", "Configuration"};
  ui::Menu MMnuLoadfirmw{MnuMachConf, "MMnuLoadfirmw", "Firmware"};
  ui::Menu MMnuGetstat{MnuMachConf, "MMnuGetstat", "Statistical Data"};
  ui::Menu MnuMaint{*this, "MnuMaint", "M&aintenance"};
  ui::Menu MMnuMaint{MnuMaint, "MMnuMaint", "Maintenance Menu"};
  ui::Menu MMnuCommand{MnuMaint, "MMnuCommand", "Command Menu"};
  // What this menu names is done by keys and by presses of the right button as well.
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

  // How far the link has come, in words; why not farther; and how to go on where the operator can
  // do something.
  ui::Label LblLink{*this, "LblLink"};
  ui::Label LblProblem{*this, "LblProblem"};
  ui::Label LblOn{*this, "LblOn"};  // what a window has left on at the machine
  ui::Label LblHint{*this, "LblHint"};
  // What link-up does at the moment, and how long it still waits for the machine.
  ui::Label LblLinkStep{*this, "LblLinkStep"};
  ui::Label LblLinkWait{*this, "LblLinkWait"};
  ui::Button CmdReconnect{*this, "CmdReconnect"};
  ui::Label LblQuality{*this, "LblQuality"};
  ui::Label LblLinkPort{*this, "LblLinkPort"};

  ui::ControlArray<ui::Button> CmdResize{*this, "CmdResize", state::kPanels};
  state::SensorPanels Panels{*this};
  ui::Image Picture1{*this, "Picture1"};

  state::DebugFrame Debug{*this};

  ui::Timer Timer1{*this, "Timer1"};
  ui::Timer TimerLink{*this, "TimerLink"};

  void Form_Load() override { parts_.Link.Start(); }
  void Form_Activate() override;
  void Form_Click() override { poll_.EventuallyRestartPolling(); }
  void Form_KeyDown(ui::KeyEvent& key) override;
  void Form_Resize() override;
  void Form_QueryUnload(bool& cancel) override;

  // Shows all four panels, or none, with the menus that go with that.
  void HideAll();
  void ViewAsBefore();
  void SetAllMenu(bool enabled);
  // Turns a panel between its own place and the whole window.
  void ToggleLargePanel(int panel);
  // A level that is set begins a new log; its menu marks it, and level 15 shows its frame.
  void SetDebugLevel(int level);

  // Switches off at the machine what is still on and lets its processes go on, without window, box
  // or event: for a program whose display is gone.
  void LetGoOfMachine();

  Polling& Poll() { return poll_; }

  link::LineView& Line() override { return *this; }
  void ShowStep(const std::string& step) override;
  void ShowPort(const std::string& caption) override;
  void LockPort() override { MMnuSerPort.Enabled = false; }
  void ShowVersions(const std::string& configuration, const std::string& firmware) override;
  double TextWidth(const std::string& text) const override;
  void BuildSensorNames(bool configured) override;
  void RebuildGroupsMenu() override;

  void ShowCountdown(std::span<const state::Panel> panels, const std::string& text) override;
  void ShowSent(const std::string& text) override { Debug.ShowSent(text); }
  void ShowReceived(const std::string& text) override { Debug.ShowReceived(text); }

 private:
  void ConnectMenus();
  void ConnectLevels();
  void EditDebugLevel();
  void ShowDebugLevel(int level);
  void ConnectPanels();
  void ConnectSensorMenu();
  void FirstActivation();
  void PlacePanel(int panel, bool small);
  void CmdResize_Click(int panel);
  void CmdResize_MouseDown(int panel, const ui::MouseEvent& event);
  void StepSensorStyle();
  void StepGraphicStyle();
  void ShowSensorStyle(int wanted);
  void ShowGraphicStyle(int wanted);
  void ShowStyle(state::StyleRecord& style, int wanted, std::initializer_list<int> panels);
  void TogglePanel(int panel);
  void MarkStyles();
  void OpenSubWindow(const std::function<ui::Form&()>& select, bool checksFirmware = false);
  void MMnuGrMon_Click(const ui::Menu& item);
  void LoadGroupItem(int index, const std::string& caption, int tag);
  void ShowLeftOn();
  void LoseLink();
  void Occupy(bool occupied);
  bool AnyLarge();
  void CmdReconnect_Click();

  Form1Parts parts_;
  Polling poll_;
  MachineProcesses processes_;
  LinkCare care_;
  bool activated_ = false;
  bool occupied_ = false;     // by link-up or by the way out
  bool closeWanted_ = false;  // meanwhile
};

}  // namespace tintbench::shell
