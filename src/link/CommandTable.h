// The machine's whole vocabulary of single commands: fifty rows, known to all screens by their
// numbers, with how an argument gets into a command and what answer is due.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "config/MachineFacts.h"
#include "link/DebugLog.h"

namespace tintbench::link {

inline constexpr int kCommandRows = 50;

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
  float TimeoutSeconds = 0;
  bool Enabled = true;
};

// Owned by the program. A caller may change a row for the time of one call: see CommandCall.
class CommandTable {
 public:
  CommandTable();

  // The row of that number. A number outside 0 to 49 is a fault of the program and ends it.
  CommandRow& Row(int row);
  const CommandRow& Row(int row) const;

  // Seconds to wait for the answer of a command that moves something: for the rows 21 to 23 the
  // time of the cap that the argument names, for row 33 the machine's reset time, where the
  // configuration gives one, otherwise the row's own; and a fifth more. A configured time counts up
  // to kLongestConfiguredTime, and what is above it is noted in `log`.
  float CommandTimeout(std::string_view argument, int row, const config::MachineFacts& facts,
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
bool ValidateArgument(int row, std::string_view argument);

// Holds a row with a finished command for as long as it lives; then the row is what it was before,
// its template, answer length and time-out included.
class CommandCall {
 public:
  CommandCall(CommandTable& table, int row, std::string_view argument);
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
