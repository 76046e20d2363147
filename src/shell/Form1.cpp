#include "shell/Form1.h"

#include <array>

#include "state/CardLayout.h"

namespace tintbench::shell {

namespace {

// What a panel's button and the card keep in their tags.
constexpr const char* kNormal = "0";
constexpr const char* kLarge = "1";

constexpr double kRelayPause = 0.4;      // seconds before a panel is laid out anew
constexpr double kTickTime = 0.8;        // seconds: a tick of the polling has ended by then
constexpr int kLinkCareInterval = 1000;  // milliseconds
constexpr int kSensorStyles = 3;
constexpr int kGraphicStyles = 2;

constexpr std::array<const char*, state::kPanels> kPanelTitles{"Input sensors", "Output sensors",
                                                               "Status", "Graphic I/O sensors"};

}  // namespace

Form1::Form1(const Form1Parts& parts)
    : ui::Form("Form1"),
      parts_(parts),
      poll_({*this, Timer1, CmdResize, Panels, LblHint, LblQuality}, parts.Screen, parts.Port,
            parts.Commands, parts.Decoder, parts.Status),
      processes_(parts.Commands, parts.Status),
      care_({LblLink, LblProblem, CmdReconnect}, parts.Port, parts.Ports, parts.Status,
            [this] { LoseLink(); }) {
  Caption =
      parts.Identity.AppTitle + "  v. " + parts.Identity.AppMajor + "." + parts.Identity.AppMinor;
  WindowState = ui::kMaximisedWindow;
  LblHint.Visible = false;
  LblLinkStep.Visible = LblLinkWait.Visible = false;
  CmdReconnect.Caption = "&Connect again";
  CmdReconnect.Visible = false;
  LblProblem.Visible = false;
  LblOn.Visible = false;
  Picture1.Picture = state::kCardPicture;
  Picture1.Visible = false;
  Debug.FrmDbg.Visible = false;
  ConnectMenus();
  ConnectPanels();
  ConnectSensorMenu();
  RebuildGroupsMenu();
  MarkStyles();
}

void Form1::ConnectPanels() {
  CmdResize.Prepare([this](ui::Button& button, int panel) {
    button.Caption = kPanelTitles.at(static_cast<std::size_t>(panel));
    button.Click = [this, panel] { CmdResize_Click(panel); };
    button.MouseDown = [this, panel](const ui::MouseEvent& event) {
      CmdResize_MouseDown(panel, event);
    };
  });
  Panels.GRPicIOcard.MouseMove = [this](const ui::MouseEvent& event) {
    state::ShowSensorUnderPointer(Panels, event.X, event.Y, parts_.Status.FirmwareVersion);
  };
  Timer1.Tick = [this] {
    poll_.Tick();
    care_.Silence(poll_.SilentSince());
  };
  // The card has the focus until the operator wants to read the errors, or goes about by Tab.
  Panels.ErText1.GotFocus = [this] { Panels.GRPicIOcard.Tag = ""; };
  Panels.GRPicIOcard.GotFocus = [this] { Panels.GRPicIOcard.Tag = kFocusWanted; };
  // A window in front may have the port closed and opened for reasons of its own.
  TimerLink.Tick = [this] {
    if (parts_.Screen.Front() == this && !occupied_) care_.Watch();
  };
  CmdReconnect.Click = [this] { CmdReconnect_Click(); };
}

void Form1::Form_Activate() {
  if (!activated_) FirstActivation();
  Panels.GRPicIOcard.Tag = kFocusWanted;
  Panels.GRPicIOcard.SetFocus();
}

void Form1::FirstActivation() {
  activated_ = true;
  TimerLink.Interval = kLinkCareInterval;
  Panels.GRPicIOcard.Picture = Picture1.Picture;
  for (int panel = 0; panel < state::kPanels; ++panel) {
    PlacePanel(panel, true);
    CmdResize(panel).Tag = kNormal;
  }
  state::RebuildAllPanels(Panels, parts_.Styles, parts_.Names);
  state::ShowSensorUnderPointer(Panels, -1, -1, parts_.Status.FirmwareVersion);
  poll_.Reset();
  poll_.EventuallyRestartPolling();
  MnuMaint.Enabled = parts_.Status.LinkState != link::kPortClosed;
  if (parts_.Link.SerialMode() == link::kMasterMode) MMnuLoadfirmw.Enabled = false;
}

void Form1::Form_KeyDown(ui::KeyEvent& key) {
  struct KeyAction {
    int Code;
    int Shift;
    std::function<void()> Do;
  };
  const std::array<KeyAction, 9> actions{{
      {'G', ui::kShift, [this] { StepGraphicStyle(); }},
      {'I', ui::kShift, [this] { StepSensorStyle(); }},
      {'O', ui::kShift, [this] { StepSensorStyle(); }},
      {'I', ui::kCtrl, [this] { TogglePanel(state::kInputPanel); }},
      {'O', ui::kCtrl, [this] { TogglePanel(state::kOutputPanel); }},
      {'S', ui::kCtrl, [this] { TogglePanel(state::kStatusPanel); }},
      {'G', ui::kCtrl, [this] { TogglePanel(state::kCardPanel); }},
      {'E', ui::kCtrl, [this] { Panels.ErText1.SetFocus(); }},
      {ui::kKeyEsc, 0, [this] { poll_.EventuallyRestartPolling(); }},
  }};
  if (key.Code == ui::kKeyTab) Panels.GRPicIOcard.Tag = "";
  for (const KeyAction& action : actions) {
    if (action.Code != key.Code || action.Shift != key.Shift) continue;
    action.Do();
    key.Code = 0;
    return;
  }
}

void Form1::Form_Resize() {
  if (WindowState == ui::kNormalWindow) WindowState = ui::kMaximisedWindow;
}

void Form1::Form_QueryUnload(bool& cancel) {
  // The way out serves events, as link-up does: a press of the close button finds it under way, or
  // has to wait for its end.
  if (occupied_) {
    closeWanted_ = true;
    cancel = true;
    return;
  }
  Occupy(true);
  poll_.EventuallyStopPolling();
  poll_.GiveUp();
  TimerLink.Enabled = false;
  parts_.Clock.Sleep(kTickTime);
  parts_.Link.End();
  parts_.Log.CloseDebugLog();
}

void Form1::HideAll() {
  for (int panel = 0; panel < state::kPanels; ++panel) {
    CmdResize(panel).Visible = false;
    Panels.Frame(panel).Visible = false;
  }
  SetAllMenu(false);
}

void Form1::ViewAsBefore() {
  for (int panel = 0; panel < state::kPanels; ++panel) {
    CmdResize(panel).Visible = true;
    Panels.Frame(panel).Visible = true;
  }
  SetAllMenu(true);
}

void Form1::PlacePanel(int panel, bool small) {
  state::ApplyFrameSize(Panels, panel, small);
  state::PlaceCmdResize(CmdResize(panel), Panels.Frame(panel));
}

void Form1::CmdResize_Click(int panel) {
  ui::Button& button = CmdResize(panel);
  button.Tag = button.Tag.Get() == kLarge ? kNormal : kLarge;
  poll_.EventuallyStopPolling();
  parts_.Clock.Sleep(kRelayPause);
  ToggleLargePanel(panel);
  if (button.Tag.Get() == kLarge) {
    button.SetFocus();
    return;
  }
  ui::PictureBox& card = Panels.GRPicIOcard;
  card.Tag = kFocusWanted;
  if (card.IsShown()) card.SetFocus();
}

void Form1::ToggleLargePanel(int panel) {
  const bool large = CmdResize(panel).Tag.Get() == kLarge;
  if (large) {
    HideAll();
  } else {
    ViewAsBefore();
  }
  PlacePanel(panel, !large);
  CmdResize(panel).Visible = true;
  state::ApplyPanelStyle(Panels, panel, parts_.Styles, parts_.Names);
  poll_.EventuallyRestartPolling();
}

void Form1::CmdResize_MouseDown(int panel, const ui::MouseEvent& event) {
  if (event.Button != ui::kRightButton) return;
  if (panel == state::kInputPanel || panel == state::kOutputPanel) StepSensorStyle();
  if (panel == state::kCardPanel) StepGraphicStyle();
}

void Form1::StepSensorStyle() { ShowSensorStyle(parts_.Styles.Sensor.Value() % kSensorStyles + 1); }

void Form1::StepGraphicStyle() {
  ShowGraphicStyle(parts_.Styles.Graphic.Value() % kGraphicStyles + 1);
}

void Form1::ShowSensorStyle(int wanted) {
  ShowStyle(parts_.Styles.Sensor, wanted, {state::kInputPanel, state::kOutputPanel});
}

void Form1::ShowGraphicStyle(int wanted) {
  ShowStyle(parts_.Styles.Graphic, wanted, {state::kCardPanel});
}

void Form1::ShowStyle(state::StyleRecord& style, int wanted, std::initializer_list<int> panels) {
  poll_.EventuallyStopPolling();
  parts_.Clock.Sleep(kRelayPause);
  style.Wanted = wanted;
  for (const int panel : panels) {
    state::ApplyPanelStyle(Panels, panel, parts_.Styles, parts_.Names);
  }
  MarkStyles();
  poll_.EventuallyRestartPolling();
}

// As by its button, where that can be pressed.
void Form1::TogglePanel(int panel) {
  if (CmdResize(panel).IsShown() && CmdResize(panel).IsUsable()) CmdResize(panel).Press();
}

void Form1::ShowVersions(const std::string& configuration, const std::string& firmware) {
  MMnuGetconf.Caption = configuration;
  MMnuLoadfirmw.Caption = firmware;
  care_.Show();
  LblLinkPort.Caption = MMnuSerPort.Caption;
  state::ShowSensorUnderPointer(Panels, -1, -1, parts_.Status.FirmwareVersion);
}

double Form1::TextWidth(const std::string& text) const {
  return parts_.Screen.TextWidth(*this, text);
}

void Form1::BuildSensorNames(bool configured) {
  parts_.NewNames = state::BuildSensorNames(configured, parts_.Facts, parts_.Selectors);
  state::RebuildAllPanels(Panels, parts_.Styles, parts_.Names);
}

void Form1::LoseLink() {
  poll_.GiveUp();
  poll_.ForgetLine();
  parts_.Decoder.DecodeInputs(Panels, {});
  parts_.Decoder.DecodeOutputs(Panels, {});
  parts_.Decoder.DecodeStatus(Panels, {});
  MnuMaint.Enabled = false;
  MMnuSerPort.Enabled = true;
}

// Nothing else may use the line, nor may the operator begin anything.
void Form1::Occupy(bool occupied) {
  occupied_ = occupied;
  Enabled = !occupied;
  poll_.Forbid(occupied);
}

bool Form1::AnyLarge() {
  bool large = false;
  for (int panel = 0; panel < state::kPanels; ++panel) {
    large = large || CmdResize(panel).Tag.Get() == kLarge;
  }
  return large;
}

void Form1::CmdReconnect_Click() {
  care_.Begin();
  Occupy(true);
  Refresh();
  parts_.Link.LinkAgain();
  Occupy(false);
  SetAllMenu(!AnyLarge());
  poll_.EventuallyRestartPolling();
  if (closeWanted_) parts_.Screen.Unload(*this);
}

}  // namespace tintbench::shell
