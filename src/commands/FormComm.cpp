#include "commands/FormComm.h"

#include "state/CardLayout.h"

namespace tintbench::commands {

namespace {

constexpr const char* kExitHint = "  [ PUSH < ESC > FOR EXIT ]";

}  // namespace

FormComm::FormComm(const CommParts& parts) : CommWindow(parts) { ConnectControls(); }

void FormComm::ConnectControls() {
  CmbCtype.Click = [this] { single_.CmbCtype_Click(); };
  LstCsingle.Prepare([this](ui::ListBox& list, int group) {
    list.Click = [this, group] { single_.LstCsingle_Click(group); };
    list.DblClick = [this] { single_.CmdExec_Click(); };
    list.GotFocus = [this, group] { single_.LstCsingle_GotFocus(group); };
    list.LostFocus = [this, group] { single_.LstCsingle_LostFocus(group); };
  });
  CmdExec.Click = [this] { single_.CmdExec_Click(); };
  CmdStop.Click = [this] { single_.CmdStop_Click(); };
  TxtFind.Change = [this] { single_.TxtFind_Change(); };
  CmbRecent.Click = [this] { single_.CmbRecent_Click(); };
  Option1.Prepare([this](ui::OptionButton& button, int option) {
    button.Click = [this, option] { multi_.Option1_Click(option); };
  });
  Panels.GRPicIOcard.MouseMove = [this](const ui::MouseEvent& event) {
    state::ShowSensorUnderPointer(Panels, event.X, event.Y, Work.Status.FirmwareVersion);
  };
  CmdMultExec.Click = [this] { multi_.CmdMultExec_Click(); };
  CmdMultStop.Click = [this] { multi_.CmdMultStop_Click(); };
}

void FormComm::Form_Load() {
  Flags = {};
  Caption = Work.MainWindow.Caption.Get() +
            (function_ == kCommandMenu ? ".  Command Menu" : ".  Maintenance Menu") + kExitHint;
  Options.Load(Work.Facts);
  Work.Decoder.ClearLastAnswers();
  HidePanels();
  HideReportFrame();
  ShowReport("");
  ShowStatusLine("");
  state::RebuildAllPanels(Panels, Work.Styles, Work.Names);
  BlankPanels();
  Panels.GRPicIOcard.Picture = state::kCardPicture;
  state::ShowSensorUnderPointer(Panels, -1, -1, Work.Status.FirmwareVersion);
  Debug.FrmDbg.Visible = Work.Log.DebugLevel() == link::kDebugCommands;
  FrmSingle.Visible = function_ == kCommandMenu;
  FrmMulti.Visible = function_ == kMaintenanceMenu;
  if (function_ == kCommandMenu) {
    single_.Load();
  } else {
    multi_.Load();
  }
}

void FormComm::Form_KeyDown(ui::KeyEvent& key) {
  if (key.Code == ui::kKeyEsc && key.Shift == 0) {
    key.Code = 0;
    Work.Screen.Unload(*this);
  } else if (function_ == kMaintenanceMenu) {
    multi_.KeyDown(key);
  } else {
    single_.KeyDown(key);
  }
}

// The close button does what Esc does.
void FormComm::Form_QueryUnload(bool&) {
  if (Flags.Closing) return;
  Flags.Closing = true;
  HidePanels();
  multi_.CmdMultStop_Click();
}

}  // namespace tintbench::commands
