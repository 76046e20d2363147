// Sends a command to several elements of the machine one after the other, straight on the line,
// with a check of each echo, and tells every step in the report.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "commands/CommWindow.h"

namespace tintbench::commands {

// The text in pieces of `width` characters; the last may be shorter.
std::vector<std::string> Pieces(std::string_view text, std::size_t width);

// What came in place of an expected answer.
enum class EchoCheck { AsExpected, Other, None };

class ElementSender {
 public:
  explicit ElementSender(CommWindow& window) : window_(window) {}

  // Sends the row for `elements`, adjacent two-digit numbers, with `speeds`, three digits for each
  // of them, for motors that are switched on. True if every answer was as expected, and if the
  // machine has nothing that the row moves. Between elements that it opens or starts it serves
  // events, and sends no more of them after HALT; elements that it closes or stops are done one and
  // all.
  bool SendElements(CommandId row, const std::string& elements = {},
                    const std::string& speeds = {});

  // Waits for an answer as long as `expected`, in which "*" stands for any character. None if so
  // much didn't come within five seconds. The line is read empty in each case.
  EchoCheck GetDoubleAnswer(const std::string& expected);

 private:
  bool HasWhatItMoves(CommandId row) const;
  bool SendRound(CommandId row, const std::string& piece, const std::string& speed,
                 const std::string& expected);
  bool SendEach(CommandId row, const std::string& elements, const std::string& speeds);
  bool AwaitCharacters(std::size_t count);

  CommWindow& window_;
  std::string answer_;  // the last one, whatever it was
};

}  // namespace tintbench::commands
