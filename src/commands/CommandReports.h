// What the operator is shown of each row of the command table: which panels stand for it, and what
// status and report its answer gives.
#pragma once

#include <string>

#include "commands/CommWindow.h"

namespace tintbench::commands {

// A command that was sent and what came back.
struct Exchange {
  CommandId Row;
  std::string Argument;  // as it was typed; empty if there is none
  std::string Answer;    // in upper case; may be empty
};

struct Outcome {
  std::string Status;
  std::string Report;
};

// What stands in the window for a row: bit n is panel n, and one more bit is the report.
inline constexpr unsigned kInputView = 1U << state::kInputPanel;
inline constexpr unsigned kOutputView = 1U << state::kOutputPanel;
inline constexpr unsigned kStatusView = 1U << state::kStatusPanel;
inline constexpr unsigned kCardView = 1U << state::kCardPanel;
inline constexpr unsigned kReportView = 1U << state::kPanels;
unsigned ViewOf(CommandId row);

// Tells an answer, good or bad, in words, and shows it in the window's sensor panels if it is
// about them.
Outcome DecodeExchange(const Exchange& exchange, CommWindow& window);

}  // namespace tintbench::commands
