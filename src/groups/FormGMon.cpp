#include "groups/FormGMon.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::groups {

namespace {

constexpr int kCloseInterval = 500;  // milliseconds from the end of the cycle

void StopTimer(ui::Timer& timer) {
  timer.Interval = 0;
  timer.Enabled = false;
}

}  // namespace

FormGMon::FormGMon(const MonitorParts& parts, const MonitorServices& services)
    : parts_(parts),
      work_{.Parts = parts_,
            .Window = *this,
            .TheGroup = group_,
            .Line = *this,
            .Record = services.Record,
            .Instruments = services.Instruments,
            .Readings = services.Readings},
      dialog_(parts.Screen) {
  parts.Screen.Register(dialog_);
  ConnectElements();
  ConnectInputs();
  ChkEnquire.Click = [this] { ChkEnquire_Click(); };
  ChkStopEnquire.Click = [this] { cycle_.ChkStopEnquire_Click(); };
  ChkMemo.Click = [this] {
    work_.Record.ChkMemo_Click();
    TxtEnqTime.SetFocus();
  };
  LblKb.DblClick = [this] { LblKb_DblClick(); };
  commands_.Done = [this] { CommandsDone(); };
  Timer1.Tick = [this] { Timer1_Tick(); };
  Timer2.Tick = [this] { commands_.Timer2_Tick(); };
}

void FormGMon::ConnectElements() {
  for (const Element element : {kCap, kValve, kStirring, kMotor}) {
    const Switch boxes = SwitchOf(element);
    boxes.On.Click = [this, element] { commands_.Switch_Click(element, true); };
    boxes.Off.Click = [this, element] { commands_.Switch_Click(element, false); };
  }
}

void FormGMon::ConnectInputs() {
  ChkIdiOff.Prepare([this](ui::CheckBox& box, int row) {
    box.Click = [this, row] { commands_.ChkIdiOff_Click(row); };
  });
  ChkIdiXOff.Prepare([this](ui::CheckBox& box, int row) {
    box.Click = [this, row] { commands_.ChkIdiXOff_Click(row); };
  });
  ChkIanOff.Prepare([this](ui::CheckBox& box, int row) {
    box.Click = [this, row] { commands_.ChkIanOff_Click(row); };
  });
  ChkIanXOff.Prepare([this](ui::CheckBox& box, int row) {
    box.Click = [this, row] { commands_.ChkIanXOff_Click(row); };
  });
  LblNCurr.Prepare([this](ui::Label& label, int row) {
    label.Click = [this, row] { work_.Instruments.LblNCurr_Click(row); };
  });
}

void FormGMon::Form_Load() {
  work_.Activated = work_.ExitRequested = startWanted_ = leaving_ = false;
  Enabled = true;
  StopTimer(Timer1);
  commands_.Reset();
  group_.DebugMode = work_.Parts.Log.DebugLevel() == link::kDebugCommands;
  work_.Parts.Log.EchoTransactions(false);
  StatusBar1.Text = "";
  work_.Record.Load();
  work_.Readings.Clear();
  Debug.FrmDbg.Visible = group_.DebugMode;
  setup_.ResolveGroupElements();
  cycle_.Reset();
  group_.BlinkIndex = 0;
  setup_.ResetGroupScreen();
  ShowGroup();
}

void FormGMon::ShowGroup() {
  const std::string number = base::BlankNumber(group_.Address);
  if (group_.Address != 0 && (group_.Address < 1 || group_.Address > config::kGroupAddresses)) {
    Caption = "UNKNOWN GROUP (" + number + " )";
    ShowError("Group address(" + number + " ) error!", "Please exit!");
    return;
  }
  Caption = "GROUP n. " + base::PlainNumber(group_.Address);
  if (!setup_.BuildGroupScreen()) {
    ShowError("Some data are incorrect!", "Please exit and check configuration parameters!");
  }
}

void FormGMon::ShowError(const std::string& title, const std::string& remedy) {
  work_.Parts.Screen.Ask({.Text = base::JoinLines({title, remedy})});
  StatusBar1.Text = "Generic error! " + StatusBar1.Text.Get();
}

void FormGMon::Form_Activate() {
  if (work_.Activated) return;
  work_.Instruments.Activate();
  work_.Record.BuildSymbols();
  TxtEnqTime.SetFocus();
  work_.Activated = true;
}

void FormGMon::ChkEnquire_Click() {
  if (!work_.Activated || ChkEnquire.Value != ui::kChecked || cycle_.IsUnderWay()) return;
  // The command's own outcome comes first, and with it the watch over the valve.
  if (commands_.IsUnderWay()) {
    startWanted_ = true;
  } else {
    StartEnquiry();
  }
}

void FormGMon::StartEnquiry() {
  cycle_.Start();
  if (work_.ExitRequested) CloseLater();
}

void FormGMon::CommandsDone() {
  if (!IsLoaded() || cycle_.IsUnderWay()) return;
  if (work_.ExitRequested) {
    startWanted_ = false;
    ChkEnquire.Value = ui::kUnchecked;
    CloseLater();
  } else if (std::exchange(startWanted_, false) && ChkEnquire.Value == ui::kChecked) {
    StartEnquiry();
  }
}

void FormGMon::CloseLater() {
  Timer1.Interval = kCloseInterval;
  Timer1.Enabled = true;
}

void FormGMon::Timer1_Tick() {
  StopTimer(Timer1);
  work_.Parts.Screen.DoEvents();
  work_.Parts.Screen.Unload(*this);
}

// What runs ends first; the window goes half a second behind it.
void FormGMon::Form_QueryUnload(bool& cancel) {
  cancel = leaving_ || cycle_.IsUnderWay() || commands_.IsUnderWay();
  if (leaving_) return;
  if (cancel) {
    work_.ExitRequested = true;
    if (cycle_.IsUnderWay()) cycle_.Stop();
    return;
  }
  leaving_ = true;
  Enabled = false;
  commands_.BeginLeaving();
  commands_.SwitchElementsOff();
}

void FormGMon::Form_Unload(bool&) {
  StopTimer(Timer1);
  work_.Record.Unload();
  Debug.FrmDbg.Visible = false;
  SetGroupAddress("0");
  work_.Instruments.Unload();
  work_.Parts.Log.EchoTransactions(true);
  work_.Activated = false;
}

void FormGMon::LblKb_DblClick() {
  if (commands_.IsUnderWay()) return;
  dialog_.DlgSetParms(work_.Record.Path(), work_.Record.LimitKb());
  work_.Parts.Screen.ShowModal(dialog_);
  if (dialog_.DlgFsizeModified()) work_.Record.SetLimitKb(dialog_.DlgMaxFileSizeKb());
}

}  // namespace tintbench::groups
