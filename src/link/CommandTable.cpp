#include "link/CommandTable.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "link/CommandRows.h"

namespace tintbench::link {

namespace {

constexpr double kTimeoutMargin = 1.2;

constexpr bool AreInOrder() {
  for (std::size_t row = 0; row < kCommands.size(); ++row) {
    if (kCommands[row].Id != CommandId{static_cast<int>(row)}) return false;
  }
  return true;
}
static_assert(AreInOrder(), "each row of the command table stands at its own number");

std::size_t CheckedRow(CommandId row) {
  if (NumberOf(row) < 0 || NumberOf(row) >= kCommandRows) {
    std::fprintf(stderr, "tintbench: there is no command row %d\n", NumberOf(row));
    std::abort();
  }
  return static_cast<std::size_t>(row);
}

const CommandText& TextOf(CommandId row) { return kCommands[CheckedRow(row)]; }

std::string PromptText(const PromptLines& lines) {
  const auto end = std::find(lines.begin(), lines.end(), std::string_view());
  return base::Join({lines.begin(), end}, base::kCrLf);
}

bool IsOfKind(Rest kind, std::string_view text) {
  switch (kind) {
    case Rest::Numeric:
      return base::IsNumeric(text);
    case Rest::Hexadecimal:
      return base::IsHexadecimal(text);
    case Rest::Nothing:
      break;
  }
  return text.empty();
}

bool Fits(const ArgumentRule& rule, std::string_view argument) {
  if (rule.Length == kAnyLength) return true;
  const bool fits = rule.Length == kEvenLength
                        ? argument.size() % 2 == 0
                        : argument.size() == static_cast<std::size_t>(rule.Length);
  if (!fits) return false;
  if (rule.First.empty()) return IsOfKind(rule.Kind, argument);
  return rule.First.find(base::ToUpper(argument)[0]) != std::string_view::npos &&
         IsOfKind(rule.Kind, argument.substr(1));
}

}  // namespace

CommandTable::CommandTable() {
  std::transform(kCommands.begin(), kCommands.end(), rows_.begin(), [](const CommandText& text) {
    return CommandRow{std::string(text.Description), std::string(text.Command),
                      PromptText(text.Prompt),       text.AnswerLength,
                      text.TimeoutSeconds,           true};
  });
}

CommandRow& CommandTable::Row(CommandId row) { return rows_[CheckedRow(row)]; }

const CommandRow& CommandTable::Row(CommandId row) const { return rows_[CheckedRow(row)]; }

double CommandTable::CommandTimeout(std::string_view argument, CommandId row,
                                    const config::MachineFacts& facts, DebugLog& log) const {
  double seconds = Row(row).TimeoutSeconds;
  double configured = 0;
  const ConfiguredTime source = TextOf(row).Time;
  if (source == ConfiguredTime::Cap) {
    const int place = base::FindField(argument, facts.ElementLists[config::kCaps], ",");
    configured = base::LeadingNumber(base::GetField(place, facts.CapTimeList, ","));
  } else if (source == ConfiguredTime::Reset) {
    configured = facts.ResetTimeout;
  }
  if (configured > 0) seconds = std::min(configured, kLongestConfiguredTime);
  if (configured > kLongestConfiguredTime) {
    log.WriteNote(Row(row).Description + ": the configured time is too long, " +
                  base::PlainNumber(kLongestConfiguredTime) + " seconds are used");
  }
  return seconds * kTimeoutMargin;
}

std::string FinishCommand(std::string_view commandTemplate, std::string_view argument) {
  std::string command(commandTemplate);
  const std::size_t blank = command.find(' ');
  return blank == std::string::npos ? command : command.replace(blank, 1, argument);
}

std::size_t ExpectedAnswerLength(const CommandRow& row) {
  if (row.AnswerLength >= 0) return static_cast<std::size_t>(row.AnswerLength);
  constexpr std::size_t kFrame = 2;
  return row.Command.size() - std::min(row.Command.size(), kFrame);
}

bool ValidateArgument(CommandId row, std::string_view argument) {
  return Fits(TextOf(row).Argument, argument);
}

std::span<const state::Panel> CountdownPanels(CommandId row) { return TextOf(row).Countdown; }

bool MovesCap(CommandId row) { return TextOf(row).Time == ConfiguredTime::Cap; }

bool HasConfiguredTime(CommandId row) { return TextOf(row).Time != ConfiguredTime::None; }

CommandCall::CommandCall(CommandTable& table, CommandId row, std::string_view argument)
    : row_(table.Row(row)), before_(row_) {
  row_.Command = FinishCommand(before_.Command, argument);
}

CommandCall::~CommandCall() { row_ = std::move(before_); }

}  // namespace tintbench::link
