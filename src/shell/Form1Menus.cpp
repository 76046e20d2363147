// The menus of the main window and the way to the windows that they lead to.
#include <array>

#include "base/Numbers.h"
#include "base/Text.h"
#include "shell/Form1.h"

namespace tintbench::shell {

namespace {

constexpr int kSeparatorTag = -1;
constexpr int kHistoryTag = 0;
constexpr const char* kEditLevelCaption = "Edit Level[ - ]";

// The part of a caption before its bracket.
std::string BeforeBracket(const std::string& caption) {
  return caption.substr(0, caption.find('['));
}

}  // namespace

void Form1::ConnectMenus() {
  for (ui::Menu* title :
       {&MnuMachConf, &MnuMaint, &MnuPar, &MnuAutotest, &MnuGroupsMonitor, &MnuKsvdbg}) {
    title->Click = [this] { poll_.EventuallyStopPolling(); };
  }
  SubWindows& windows = parts_.Windows;
  const auto leadsTo = [this](ui::Menu& item, std::function<ui::Form&()> select,
                              bool checksFirmware = false) {
    item.Click = [this, select = std::move(select), checksFirmware] {
      OpenSubWindow(select, checksFirmware);
    };
  };
  leadsTo(MMnuGetconf,
          [&windows]() -> ui::Form& { return windows.Transfer(transfer::kConfigFace); });
  leadsTo(MMnuLoadfirmw,
          [&windows]() -> ui::Form& { return windows.Transfer(transfer::kFirmwareFace); });
  leadsTo(MMnuSerPort, [&windows]() -> ui::Form& { return windows.Transfer(transfer::kPortFace); });
  leadsTo(MMnuGetstat, [&windows]() -> ui::Form& { return windows.Statistics(); });
  leadsTo(MnuAutotest, [&windows]() -> ui::Form& { return windows.Autotest(); });
  leadsTo(
      MMnuMaint, [&windows]() -> ui::Form& { return windows.Commands(commands::kMaintenanceMenu); },
      true);
  leadsTo(MMnuCommand,
          [&windows]() -> ui::Form& { return windows.Commands(commands::kCommandMenu); });
  MMnuGrMon.Prepare(
      [this](ui::Menu& item, int) { item.Click = [this, &item] { MMnuGrMon_Click(item); }; });
  ConnectLevels();
}

void Form1::ConnectLevels() {
  const auto setsLevel = [this](ui::Menu& item, int level) {
    item.Click = [this, level] {
      SetDebugLevel(level);
      poll_.EventuallyRestartPolling();
    };
  };
  setsLevel(MMnuksvdbg03, link::kDebugTransfers);
  setsLevel(MMnuksvdbg07, link::kDebugXmodem);
  setsLevel(MMnuksvdbg15, link::kDebugCommands);
  MMnuksvdbgEdit.Click = [this] {
    EditDebugLevel();
    poll_.EventuallyRestartPolling();
  };
}

void Form1::SetDebugLevel(int level) {
  parts_.Log.DebugLevel(level);
  parts_.Log.ApplyDebugLevel();
  ShowDebugLevel(level);
}

// What was given up is not set.
void Form1::EditDebugLevel() {
  if (const auto level = parts_.LevelDialog.Edit(parts_.Log.DebugLevel())) SetDebugLevel(*level);
}

void Form1::ConnectSensorMenu() {
  struct Item {
    ui::Menu& Entry;
    const char* Key;
    void (Form1::*Do)(int);
    int Wanted;  // style or panel
  };
  for (const Item& item : std::initializer_list<Item>{
           {WButton, "Shift+I", &Form1::ShowSensorStyle, state::kButtonStyle},
           {WCircleBox, "Shift+I", &Form1::ShowSensorStyle, state::kLampStyle},
           {WSquareBox, "Shift+I", &Form1::ShowSensorStyle, state::kSquareStyle},
           {GSquareLed, "Shift+G", &Form1::ShowGraphicStyle, state::kSquareLamps},
           {GCircleLed, "Shift+G", &Form1::ShowGraphicStyle, state::kRoundLamps},
           {IMax, "Ctrl+I", &Form1::TogglePanel, state::kInputPanel},
           {OMax, "Ctrl+O", &Form1::TogglePanel, state::kOutputPanel},
           {EMax, "Ctrl+S", &Form1::TogglePanel, state::kStatusPanel},
           {GMax, "Ctrl+G", &Form1::TogglePanel, state::kCardPanel}}) {
    item.Entry.KeyName = item.Key;
    item.Entry.Click = [this, act = item.Do, wanted = item.Wanted] { (this->*act)(wanted); };
  }
}

void Form1::SetAllMenu(bool enabled) {
  for (ui::Menu* title : {&MnuMachConf, &MnuPar, &MnuAutotest, &MnuGroupsMonitor}) {
    title->Enabled = enabled;
  }
  MnuKsvdbg.Enabled = enabled && MnuKsvdbg.Visible;
  MnuMaint.Enabled = enabled && parts_.Status.LinkState != link::kPortClosed;
}

void Form1::OpenSubWindow(const std::function<ui::Form&()>& select, bool checksFirmware) {
  poll_.EventuallyStopPolling();
  care_.Watch();
  processes_.StopMachineProcesses(*this);
  HideAll();
  Refresh();
  if (checksFirmware) {
    const auto warning = link::FirmwareWarning(parts_.Status.FirmwareNumber());
    if (warning) parts_.Screen.Ask(*warning);
  }
  parts_.Screen.ShowModal(select());
  ShowLeftOn();
  care_.Watch();
  processes_.RestartMachineProcesses(*this);
  ViewAsBefore();
  poll_.EventuallyRestartPolling();
}

// A window that could not switch off what it had switched on is closed by now.
void Form1::ShowLeftOn() {
  const std::string on = parts_.Windows.LeftOn();
  LblOn.Caption = "Perhaps still switched on at the machine: " + on;
  LblOn.Visible = !on.empty();
}

void Form1::LetGoOfMachine() {
  if (!parts_.Port.PortOpen()) return;
  parts_.Commands.ClearSerialBusy();
  link::LineView nowhere;
  if (!parts_.Windows.LeftOn().empty()) {
    parts_.Commands.SendCommand(nowhere, link::CommandId::AllOff);
  }
  if (processes_.AreHeld()) processes_.RestartMachineProcesses(nowhere);
}

void Form1::MMnuGrMon_Click(const ui::Menu& item) {
  const std::string tag = item.Tag;
  const std::string caption = item.Caption;
  OpenSubWindow([this, tag, caption]() -> ui::Form& {
    return base::LeadingInt(tag) > 0 ? parts_.Windows.GroupMonitor(tag)
                                     : parts_.Windows.GroupHistory(caption);
  });
}

void Form1::MarkStyles() {
  const int sensor = parts_.Styles.Sensor.Value();
  WButton.Checked = sensor == state::kButtonStyle;
  WCircleBox.Checked = sensor == state::kLampStyle;
  WSquareBox.Checked = sensor == state::kSquareStyle;
  const int graphic = parts_.Styles.Graphic.Value();
  GSquareLed.Checked = graphic == state::kSquareLamps;
  GCircleLed.Checked = graphic == state::kRoundLamps;
}

void Form1::ShowDebugLevel(int level) {
  struct LevelItem {
    int Level;
    ui::Menu& Item;
  };
  const std::array<LevelItem, 3> items{{{link::kDebugTransfers, MMnuksvdbg03},
                                        {link::kDebugXmodem, MMnuksvdbg07},
                                        {link::kDebugCommands, MMnuksvdbg15}}};
  const std::string shown = base::Bracketed(std::to_string(level));
  bool marked = false;
  for (const LevelItem& item : items) {
    item.Item.Checked = item.Level == level;
    marked = marked || item.Item.Checked;
  }
  MMnuksvdbgEdit.Checked = !marked;
  MMnuksvdbgEdit.Caption =
      marked ? kEditLevelCaption : BeforeBracket(MMnuksvdbgEdit.Caption) + shown;
  MnuKsvdbg.Caption = BeforeBracket(MnuKsvdbg.Caption) + shown;
  Debug.FrmDbg.Visible = level == link::kDebugCommands;
}

// While link-up has a step on show, it is that which waits.
void Form1::ShowCountdown(std::span<const state::Panel> panels, const std::string& text) {
  state::TellInPanels(Panels, panels, text);
  if (!LblLinkWait.Visible) return;
  LblLinkWait.Caption = text;
  LblLinkWait.Refresh();
}

void Form1::ShowStep(const std::string& step) {
  LblLinkWait.Caption = "";
  LblLinkStep.Caption = step;
  LblLinkStep.Visible = LblLinkWait.Visible = !step.empty();
  Refresh();
}

void Form1::ShowPort(const std::string& caption) {
  care_.Forget();
  poll_.ForgetLine();
  MMnuSerPort.Caption = caption;
  MnuPar.Caption = "&Port Connection ( " +
                   (caption == link::kNoPortCaption ? std::string("none") : caption) + " )";
}

void Form1::LoadGroupItem(int index, const std::string& caption, int tag) {
  ui::Menu& item = MMnuGrMon.Load(index);
  item.Caption = caption;
  item.Tag = std::to_string(tag);
  item.Enabled = true;
  item.Visible = true;
}

void Form1::RebuildGroupsMenu() {
  for (int index = MMnuGrMon.Count() - 1; index > 0; --index) MMnuGrMon.Unload(index);
  int next = 0;
  for (int address = 1; address <= config::kGroupAddresses; ++address) {
    const auto at = static_cast<std::size_t>(address);
    if (parts_.Facts.GroupInputs[config::kDigitalInput][at].empty() &&
        parts_.Facts.GroupInputs[config::kAnalogueInput][at].empty()) {
      continue;
    }
    LoadGroupItem(next++, "Group" + base::BlankNumber(address), address);
  }
  if (next > 0) LoadGroupItem(next++, "-", kSeparatorTag);
  LoadGroupItem(next, "Groups Monitoring History", kHistoryTag);
}

}  // namespace tintbench::shell
