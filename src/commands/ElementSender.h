// Sends a command to several elements of the machine one after the other, straight on the line,
// with a check of each echo, and tells every step in the report.
#pragma once

#include <string>

#include "commands/CommWindow.h"

namespace tintbench::commands {

class ElementSender {
 public:
  explicit ElementSender(CommWindow& window) : window_(window) {}

  // Sends the row for `elements`, adjacent two-digit numbers, with `speeds`, three digits for each
  // of them, for row 28. True if every answer was as expected, and if the machine has nothing that
  // the row moves.
  bool SendElements(int row, const std::string& elements = {}, const std::string& speeds = {});

  // Waits for an answer as long as `expected`, in which "*" stands for any character. 0 if it came,
  // -1 for another one, -2 for none within five seconds.
  int GetDoubleAnswer(const std::string& expected);

 private:
  CommWindow& window_;
};

}  // namespace tintbench::commands
