// The machine's whole vocabulary of single commands: fifty rows, with how an argument gets into a
// command and what answer is due.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "config/MachineFacts.h"
#include "link/CommandId.h"
#include "link/DebugLog.h"
#include "state/SensorPanels.h"

namespace tintbench::link {

// Longer than any sound machine moves for one command, in seconds: a file may say anything.
inline constexpr double kLongestConfiguredTime = 600;

// The machine's H-bridges in the order of the six flags in the answer to "#up*".
inline constexpr std::array<std::string_view, 6> kBridgeNames{
    "SHELF FORWARD",  "SHELF BACKWARD", "CAP-1 FORWARD",
    "CAP-1 BACKWARD", "CAP-2 FORWARD",  "CAP-2 BACKWARD",
};

struct CommandRow {
  std::string Description;  // the operator's name of the command
  std::string Command;      // what is sent; a blank marks the argument's place and is never sent
  std::string Prompt;       // the question for the argument, lines parted by CR LF; may be empty
  int AnswerLength = 0;     // characters; 0 not known in advance, -1 the command's length less 2
  double TimeoutSeconds = 0;
  bool Enabled = true;
};

// Owned by the program. A caller may change a row for the time of one call: see CommandCall.
class CommandTable {
 public:
  CommandTable();

  // A row that doesn't exist is a fault of the program and ends it.
  CommandRow& Row(CommandId row);
  const CommandRow& Row(CommandId row) const;

  // Seconds to wait for the answer of a command that moves something: for caps the time of the one
  // that the argument names, for a reset that of the machine, where the configuration gives one,
  // otherwise the row's own; and a fifth more. A configured time counts up to
  // kLongestConfiguredTime, and what is above it is noted in `log`.
  double CommandTimeout(std::string_view argument, CommandId row, const config::MachineFacts& facts,
                        DebugLog& log) const;

 private:
  std::array<CommandRow, kCommandRows> rows_;
};

// The command to be sent: the template with the argument in the place of its first blank. A
// template without a blank takes no argument.
std::string FinishCommand(std::string_view commandTemplate, std::string_view argument);

// Characters of a whole answer to the finished command of the row; 0 if not known in advance.
std::size_t ExpectedAnswerLength(const CommandRow& row);

// True if the operator's argument fits the row. Rows without a rule take any text.
bool ValidateArgument(CommandId row, std::string_view argument);

// The panels that the row's answer is for.
std::span<const state::Panel> CountdownPanels(CommandId row);

// True if the row moves a cap, and true if its time-out comes from CommandTimeout.
bool MovesCap(CommandId row);
bool HasConfiguredTime(CommandId row);

// Holds a row with a finished command for as long as it lives; then the row is what it was before,
// its template, answer length and time-out included.
class CommandCall {
 public:
  CommandCall(CommandTable& table, CommandId row, std::string_view argument);
  ~CommandCall();
  CommandCall(const CommandCall&) = delete;
  CommandCall& operator=(const CommandCall&) = delete;

  // The row, to be changed further for this call.
  CommandRow& Row() { return row_; }

 private:
  CommandRow& row_;
  CommandRow before_;
};

}  // namespace tintbench::link
