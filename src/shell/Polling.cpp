#include "shell/Polling.h"

#include <algorithm>

#include "base/Text.h"

namespace tintbench::shell {

namespace {

constexpr int kInterval = 800;  // milliseconds
// What a shorter pause leaves on show, in seconds, is as good as new.
constexpr double kShortPause = 1.0;
// The divider counts from here to 1: one tick in four asks for the status.
constexpr int kStatusAsked = -3;

}  // namespace

struct Polling::Question {
  link::CommandId Row;
  int Panel;  // that shows the answer
  bool (state::StateDecoder::*Decode)(state::SensorPanels&, const std::string&);
};

// In the order in which they are asked; the first one not at every tick.
const Polling::Question Polling::kQuestions[kQuestionCount] = {
    {link::CommandId::ReadStatus, state::kStatusPanel, &state::StateDecoder::DecodeStatus},
    {link::CommandId::ReadInputs, state::kInputPanel, &state::StateDecoder::DecodeInputs},
    {link::CommandId::ReadOutputs, state::kOutputPanel, &state::StateDecoder::DecodeOutputs},
};

void Polling::Announce(const std::string& text) {
  state::TellInPanels(view_.Panels, state::kAnsweredPanels, text);
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
  if (screen_.Time().Now() - pausedAt_ < kShortPause) FadePanels(false);
  Announce("[ STARTING POLLING ]");
  decoder_.ClearLastAnswers();
  SetCmdResize(true);
}

void Polling::EventuallyStopPolling() {
  if (status_.LinkState < link::kMachineHeard || !pollingOn_) return;
  Halt();
  pausedAt_ = screen_.Time().Now();
  FadePanels(true);
  TellAge("Polling is paused", ": press Esc or click in the window to go on.");
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
  FadePanels(false);
  SetCmdResize(true);
}

void Polling::ForgetLine() {
  quality_.Clear();
  hasData_ = {};
  view_.LblQuality.Caption = "";
}

void Polling::Halt() {
  Reset();
  next_ = kQuestionCount;
  view_.Timer1.Interval = 0;
  view_.Timer1.Enabled = false;
}

// A panel that shows nothing has nothing that could be old.
void Polling::FadePanels(bool faded) {
  ui::ControlArray<ui::Frame>& frames = view_.Panels.Frame;
  for (std::size_t panel = 0; panel < hasData_.size(); ++panel) {
    frames(static_cast<int>(panel)).Faded = faded && hasData_[panel];
  }
  FadeCard();
}

// The card shows what two of the panels show.
void Polling::FadeCard() {
  ui::ControlArray<ui::Frame>& frames = view_.Panels.Frame;
  frames(state::kCardPanel).Faded =
      frames(state::kInputPanel).Faded || frames(state::kOutputPanel).Faded;
}

// Tells of when it is what the panels show.
void Polling::TellAge(const std::string& why, const std::string& remedy) {
  const std::string& when = quality_.LastAnswered();
  view_.LblHint.Caption = why + (when.empty() ? "" : ", the panels show " + when) + remedy;
}

// A question without an answer leaves the other panels behind; an answer makes its own one new.
void Polling::ShowAge(int panel, bool answered, bool good) {
  hasData_.at(static_cast<std::size_t>(panel)) = good;
  if (answered) {
    view_.Panels.Frame(panel).Faded = false;
    FadeCard();
    view_.LblHint.Visible = false;
  } else {
    FadePanels(true);
    TellAge("No answer", "");
    view_.LblHint.Visible = std::count(hasData_.begin(), hasData_.end(), true) > 0;
  }
}

// False if there was no answer.
bool Polling::Ask(const Question& question) {
  // A port that has lost its device closes by itself; whoever cares for the link says so.
  if (!port_.PortOpen()) return true;
  base::Clock& clock = screen_.Time();
  const base::LocalTime asked = clock.Local();
  const double start = clock.Now();
  std::string answer = commands_.SendCommand(view_.Line, question.Row);
  const bool silent = answer.empty();
  if (question.Panel == state::kStatusPanel) answer = base::ToUpper(answer);
  const bool good = (decoder_.*question.Decode)(view_.Panels, answer);
  using Kind = LineQuality::Answer;
  const double now = clock.Now();
  quality_.Note(asked, now, now - start, silent ? Kind::Silent : good ? Kind::Good : Kind::Bad);
  ShowAge(question.Panel, !silent, good);
  return !silent;
}

void Polling::AskAll() {
  if (next_ == kQuestionCount) {
    const bool asksStatus = ++statusDivider_ >= 1;
    if (asksStatus) statusDivider_ = kStatusAsked;
    next_ = asksStatus ? 0 : 1;
  }
  while (next_ < kQuestionCount) {
    const bool answered = Ask(kQuestions[next_++]);
    if (!answered && screen_.OperatorMayWait()) return;
  }
}

// Drawn whole at once: the next tick may begin before anything else is.
void Polling::ShowQuality() {
  const std::string text = quality_.Text();
  if (view_.LblQuality.Caption.Get() == text) return;
  view_.LblQuality.Caption = text;
  view_.LblQuality.Refresh();
}

void Polling::Tick() {
  if (view_.Panels.Window.WindowState == ui::kMinimisedWindow || pollingPaused_) return;
  pollingPaused_ = true;
  AskAll();
  ShowQuality();
  ui::PictureBox& card = view_.Panels.GRPicIOcard;
  if (card.Tag.Get() == kFocusWanted && card.IsShown()) card.SetFocus();
  if (pollingOn_) pollingPaused_ = false;
}

}  // namespace tintbench::shell
