#include "link/Transaction.h"

#include <cmath>

#include "base/Text.h"

namespace tintbench::link {

namespace {

// One look at the line: a wait, then a second reading a little later, in seconds. Two equal
// readings mean that the line has gone quiet.
constexpr double kLookWait = 0.25;
constexpr double kQuietWait = 0.05;
// Above every time-out, so that the first round shows its seconds.
constexpr int kNothingShown = 30000;

}  // namespace

std::string Transaction::SendCommand(LineView& view, CommandId row) {
  if (busy_) return {};
  busy_ = true;
  if (!port_.PortOpen()) {
    screen_.Ask({.Text = "Serial port NOT open!"});
    busy_ = false;
    return {};
  }
  const std::string command = commands_.Row(row).Command;
  port_.Output(command);
  EchoCommand(view, command);
  AwaitAnswer(view, row);
  std::string answer = port_.Input();
  EchoAnswer(view, command, answer);
  busy_ = false;
  return answer;
}

void Transaction::AwaitAnswer(LineView& view, CommandId row) {
  std::size_t expected = ExpectedAnswerLength(commands_.Row(row));
  const bool untilQuiet = expected == 0;
  const double timeout = commands_.Row(row).TimeoutSeconds;
  const double start = clock_.Now();
  int shown = kNothingShown;
  // A port that has lost its device closes by itself: nothing more can come from there.
  while (port_.PortOpen()) {
    clock_.Sleep(kLookWait);
    if (untilQuiet) expected = port_.InBufferCount();
    clock_.Sleep(kQuietWait);
    const std::size_t present = port_.InBufferCount();
    if (present > 0 && present == expected) return;
    const double remaining = timeout - (clock_.Now() - start);
    if (remaining < 0) return;
    const int whole = static_cast<int>(std::floor(remaining));
    if (whole < shown) {
      shown = whole;
      view.ShowCountdown(CountdownPanels(row), CountdownText(whole + 1));
    }
  }
}

void Transaction::EchoCommand(LineView& view, const std::string& command) {
  if (log_.DebugLevel() != kDebugCommands) return;
  view.ShowSent(base::ToUpper(command));
  view.ShowReceived({});
}

void Transaction::EchoAnswer(LineView& view, const std::string& command,
                             const std::string& answer) {
  if (log_.DebugLevel() != kDebugCommands) return;
  view.ShowReceived(base::ToUpper(answer));
  log_.WriteTransaction(command, answer);
}

}  // namespace tintbench::link
