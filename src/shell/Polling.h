// Asks the machine for its state while nothing else uses the line: inputs and outputs at each tick
// of the main window's timer, the status at the first tick and every fourth after it.
#pragma once

#include <functional>
#include <string>

#include "link/LinkStatus.h"
#include "link/SerialPort.h"
#include "link/Transaction.h"
#include "shell/LineQuality.h"
#include "state/SensorPanels.h"
#include "state/StateDecoder.h"
#include "ui/Controls.h"

namespace tintbench::shell {

// What polling shows itself in.
struct PollingView {
  ui::Timer& Timer1;
  ui::ControlArray<ui::Button>& CmdResize;
  state::SensorPanels& Panels;
  ui::Label& LblHint;     // how to go on, while polling is paused
  ui::Label& LblQuality;  // how well the line does
};

class Polling {
 public:
  Polling(const PollingView& view, base::Clock& clock, const link::SerialPort& port,
          link::Transaction& commands, state::StateDecoder& decoder, const link::LinkStatus& status)
      : view_(view),
        clock_(clock),
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

  bool PollingOn() const { return pollingOn_; }
  bool PollingPaused() const { return pollingPaused_; }

  // One tick of the timer.
  void Tick();

 private:
  using Decode = bool (state::StateDecoder::*)(state::SensorPanels&, const std::string&);

  void Halt();
  void Announce(const std::string& text);
  void SetCmdResize(bool enabled);
  void Ask(int row, Decode decode);
  void AskAll();

  PollingView view_;
  base::Clock& clock_;
  const link::SerialPort& port_;
  link::Transaction& commands_;
  state::StateDecoder& decoder_;
  const link::LinkStatus& status_;
  LineQuality quality_;
  bool pollingOn_ = false;
  bool pollingPaused_ = true;
  bool forbidden_ = false;
  int statusDivider_ = 0;
};

}  // namespace tintbench::shell
