// What a window shows of the transactions that run for it. A transaction serves no event, so all of
// it is drawn at once. What a window doesn't override it doesn't show.
#pragma once

#include <span>
#include <string>

#include "state/SensorPanels.h"

namespace tintbench::link {

// What a countdown says while there are so many seconds left.
inline std::string CountdownText(int seconds) {
  return "wait for machine answer [" + std::to_string(seconds) + "]";
}

class LineView {
 public:
  LineView() = default;
  virtual ~LineView() = default;
  LineView(const LineView&) = delete;
  LineView& operator=(const LineView&) = delete;

  // How long the answer may still take, in words; `panels` are those that it is for, none for most
  // rows of the command table.
  virtual void ShowCountdown(std::span<const state::Panel> /*panels*/,
                             const std::string& /*text*/) {}

  // What went out and what came, at the debug level that wants it.
  virtual void ShowSent(const std::string& /*text*/) {}
  virtual void ShowReceived(const std::string& /*text*/) {}
};

}  // namespace tintbench::link
