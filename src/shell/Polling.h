// Asks the machine for its state while nothing else uses the line: inputs and outputs at each tick
// of the main window's timer, the status at the first tick and every fourth after it. Behind a
// question that isn't answered the operator's hand comes before the rest of the tick.
#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "link/LinkStatus.h"
#include "link/SerialPort.h"
#include "link/Transaction.h"
#include "shell/LineQuality.h"
#include "state/SensorPanels.h"
#include "state/StateDecoder.h"
#include "ui/Controls.h"
#include "ui/Screen.h"

namespace tintbench::shell {

// The card's tag from its press on: the next tick gives it the keyboard focus.
inline constexpr const char* kFocusWanted = "1";

// What polling shows itself in.
struct PollingView {
  link::LineView& Line;
  ui::Timer& Timer1;
  ui::ControlArray<ui::Button>& CmdResize;
  state::SensorPanels& Panels;
  ui::Label& LblHint;     // that what the panels show is old, and how to go on
  ui::Label& LblQuality;  // how well the line does
};

class Polling {
 public:
  Polling(const PollingView& view, ui::Screen& screen, const link::SerialPort& port,
          link::Transaction& commands, state::StateDecoder& decoder, const link::LinkStatus& status)
      : view_(view),
        screen_(screen),
        port_(port),
        commands_(commands),
        decoder_(decoder),
        status_(status) {}

  // Both do nothing without a machine, or if polling is in that state already.
  void EventuallyRestartPolling();
  void EventuallyStopPolling();
  // Polling has never run and waits to be started.
  void Reset();
  // Stops without a word to the operator: there is nothing at the other end any more.
  void GiveUp();
  // While it is forbidden nothing starts polling.
  void Forbid(bool forbidden) { forbidden_ = forbidden; }
  // Another line begins, of which nothing is known yet.
  void ForgetLine();

  bool PollingOn() const { return pollingOn_; }
  bool PollingPaused() const { return pollingPaused_; }
  // The time of day since which nothing has been answered; empty while the machine answers.
  std::string SilentSince() const { return quality_.SilentSince(); }

  // One tick of the timer, or what an earlier one has left to ask.
  void Tick();

 private:
  struct Question;
  static const Question kQuestions[];
  static constexpr std::size_t kQuestionCount = 3;

  void Halt();
  void Announce(const std::string& text);
  void SetCmdResize(bool enabled);
  bool Ask(const Question& question);
  void AskAll();
  void ShowQuality();
  void ShowAge(int panel, bool answered, bool good);
  void FadePanels(bool faded);
  void FadeCard();
  void TellAge(const std::string& why, const std::string& remedy);

  PollingView view_;
  ui::Screen& screen_;
  const link::SerialPort& port_;
  link::Transaction& commands_;
  state::StateDecoder& decoder_;
  const link::LinkStatus& status_;
  LineQuality quality_;
  bool pollingOn_ = false;
  bool pollingPaused_ = true;
  bool forbidden_ = false;
  int statusDivider_ = 0;
  std::size_t next_ = kQuestionCount;  // the next question of the tick under way
  double pausedAt_ = 0;
  std::array<bool, state::kCardPanel> hasData_{};  // inputs, outputs, status
};

}  // namespace tintbench::shell
