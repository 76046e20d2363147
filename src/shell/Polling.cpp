#include "shell/Polling.h"

#include "base/Text.h"

namespace tintbench::shell {

namespace {

constexpr int kInterval = 800;  // milliseconds
constexpr int kInputsRow = 0;
constexpr int kOutputsRow = 1;
constexpr int kStatusRow = 3;
// The divider counts from here to 1: one tick in four asks for the status.
constexpr int kStatusAsked = -3;
constexpr const char* kFocusWanted = "1";

}  // namespace

void Polling::Announce(const std::string& text) {
  state::SensorPanels& panels = view_.Panels;
  for (ui::Label* label : {&panels.ILabel1, &panels.OLabel1, &panels.ErLabel1}) {
    label->Caption = text;
    label->Refresh();
  }
}

void Polling::SetCmdResize(bool enabled) {
  for (int panel = 0; panel < state::kPanels; ++panel) view_.CmdResize(panel).Enabled = enabled;
}

void Polling::EventuallyRestartPolling() {
  view_.LblHint.Visible = false;
  if (forbidden_) return;
  if (status_.LinkState < link::kMachineHeard || pollingOn_) return;
  pollingOn_ = true;
  pollingPaused_ = false;
  view_.Timer1.Interval = kInterval;
  view_.Timer1.Enabled = true;
  Announce("[ STARTING POLLING ]");
  decoder_.ClearLastAnswers();
  SetCmdResize(true);
}

void Polling::EventuallyStopPolling() {
  if (status_.LinkState < link::kMachineHeard || !pollingOn_) return;
  Halt();
  view_.LblHint.Visible = true;
  Announce("[ PAUSING POLLING ]");
  decoder_.ClearLastAnswers();
  SetCmdResize(false);
}

void Polling::Reset() {
  pollingOn_ = false;
  pollingPaused_ = true;
}

void Polling::GiveUp() {
  Halt();
  view_.LblHint.Visible = false;
  SetCmdResize(true);
}

void Polling::Halt() {
  Reset();
  view_.Timer1.Interval = 0;
  view_.Timer1.Enabled = false;
}

void Polling::Ask(int row, Decode decode) {
  // A port that has lost its device closes by itself; whoever cares for the link says so.
  if (!port_.PortOpen()) return;
  const double start = clock_.Now();
  std::string answer = commands_.SendCommand(view_.Panels.Window, row);
  const bool silent = answer.empty();
  if (row == kStatusRow) answer = base::ToUpper(answer);
  const bool good = (decoder_.*decode)(view_.Panels, answer);
  using Kind = LineQuality::Answer;
  const double now = clock_.Now();
  quality_.Note(now, now - start, silent ? Kind::Silent : good ? Kind::Good : Kind::Bad);
}

void Polling::AskAll() {
  if (++statusDivider_ >= 1) {
    statusDivider_ = kStatusAsked;
    Ask(kStatusRow, &state::StateDecoder::DecodeStatus);
  }
  Ask(kInputsRow, &state::StateDecoder::DecodeInputs);
  Ask(kOutputsRow, &state::StateDecoder::DecodeOutputs);
}

void Polling::Tick() {
  if (view_.Panels.Window.WindowState == ui::kMinimisedWindow || pollingPaused_) return;
  pollingPaused_ = true;
  AskAll();
  view_.LblQuality.Caption = quality_.Text();
  ui::PictureBox& card = view_.Panels.GRPicIOcard;
  if (card.Tag.Get() == kFocusWanted && card.IsShown()) card.SetFocus();
  if (pollingOn_) pollingPaused_ = false;
}

}  // namespace tintbench::shell
