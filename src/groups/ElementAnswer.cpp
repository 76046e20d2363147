#include "groups/ElementAnswer.h"

#include "base/Text.h"
#include "link/CommandTable.h"

namespace tintbench::groups {

namespace {

constexpr std::size_t kEchoWidth = 2;

std::string FaultOfCode(link::CommandId row, std::string_view answer) {
  const bool tellsOutcome = link::MovesCap(row) || row == link::CommandId::VerifyDispensing;
  switch (answer.empty() ? '\0' : answer.front()) {
    case 'A':
      return tellsOutcome && !answer.ends_with('K') ? "[ operation fail ]" : "";
    case 'R':
      return "[command refused]";
    case 'E':
      return "[error]";
    default:
      return "[unknown return code]";
  }
}

}  // namespace

std::string ElementFaults(link::CommandId row, std::string_view echo, std::string_view answer,
                          std::size_t length) {
  std::string faults;
  if (answer.size() != length) faults = "[incorrect answer length]";
  faults += FaultOfCode(row, answer);
  const std::string repeated = base::Mid(answer, 2, kEchoWidth);
  if (row != link::CommandId::VerifyDispensing && !repeated.empty() && repeated != echo) {
    faults += "(unknown answer)";
  }
  return faults;
}

}  // namespace tintbench::groups
