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

constexpr int kCapOpen = 21;
constexpr int kCapIntermediate = 23;
constexpr int kMachineReset = 33;
constexpr double kTimeoutMargin = 1.2;

std::size_t CheckedRow(int row) {
  if (row < 0 || row >= kCommandRows) {
    std::fprintf(stderr, "tintbench: there is no command row %d\n", row);
    std::abort();
  }
  return static_cast<std::size_t>(row);
}

std::string PromptText(const PromptLines& lines) {
  const auto end = std::find(lines.begin(), lines.end(), std::string_view());
  return base::Join({lines.begin(), end}, base::kCrLf);
}

enum class Rest { kNothing, kNumeric, kHexadecimal };

constexpr int kEvenLength = -1;

// What an argument must be like: its length, which letters its first character may be (any if
// there are none), and of what kind all the rest is.
struct ArgumentRule {
  int Row;
  int Length;
  std::string_view First;
  Rest Kind;
};

constexpr std::string_view kDataTypes = "BW";
constexpr std::string_view kDevices = "AMCBP";
constexpr std::string_view kProcesses = "TSFED";

constexpr ArgumentRule kArgumentRules[] = {
    {5, 4, "", Rest::kHexadecimal},
    {17, kEvenLength, "", Rest::kNumeric},
    {18, kEvenLength, "", Rest::kNumeric},
    {19, kEvenLength, "", Rest::kNumeric},
    {20, kEvenLength, "", Rest::kNumeric},
    {21, 2, "", Rest::kNumeric},
    {22, 2, "", Rest::kNumeric},
    {28, 5, "", Rest::kNumeric},
    {29, 2, "", Rest::kNumeric},
    {30, 2, "", Rest::kNumeric},
    {37, 9, kDataTypes, Rest::kHexadecimal},
    {38, 13, kDataTypes, Rest::kHexadecimal},
    {39, kEvenLength, "", Rest::kNumeric},
    {41, 2, "", Rest::kNumeric},
    {42, 10, "", Rest::kNumeric},
    {43, 3, kDevices, Rest::kNumeric},
    {44, 23, kDevices, Rest::kNumeric},
    {45, 1, kProcesses, Rest::kNothing},
    {47, 11, kProcesses, Rest::kNumeric},
};

bool IsOfKind(Rest kind, std::string_view text) {
  switch (kind) {
    case Rest::kNumeric:
      return base::IsNumeric(text);
    case Rest::kHexadecimal:
      return base::IsHexadecimal(text);
    case Rest::kNothing:
      break;
  }
  return text.empty();
}

bool Fits(const ArgumentRule& rule, std::string_view argument) {
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

CommandRow& CommandTable::Row(int row) { return rows_[CheckedRow(row)]; }

const CommandRow& CommandTable::Row(int row) const { return rows_[CheckedRow(row)]; }

float CommandTable::CommandTimeout(std::string_view argument, int row,
                                   const config::MachineFacts& facts, DebugLog& log) const {
  double seconds = static_cast<double>(Row(row).TimeoutSeconds);
  double configured = 0;
  if (row >= kCapOpen && row <= kCapIntermediate) {
    const int place = base::FindField(argument, facts.ElementLists[config::kCaps], ",");
    configured = base::LeadingNumber(base::GetField(place, facts.CapTimeList, ","));
  } else if (row == kMachineReset) {
    configured = facts.ResetTimeout;
  }
  if (configured > 0) seconds = std::min(configured, kLongestConfiguredTime);
  if (configured > kLongestConfiguredTime) {
    log.WriteNote(Row(row).Description + ": the configured time is too long, " +
                  base::PlainNumber(kLongestConfiguredTime) + " seconds are used");
  }
  return static_cast<float>(seconds * kTimeoutMargin);
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

bool ValidateArgument(int row, std::string_view argument) {
  for (const ArgumentRule& rule : kArgumentRules) {
    if (rule.Row == row) return Fits(rule, argument);
  }
  return true;
}

CommandCall::CommandCall(CommandTable& table, int row, std::string_view argument)
    : row_(table.Row(row)), before_(row_) {
  row_.Command = FinishCommand(before_.Command, argument);
}

CommandCall::~CommandCall() { row_ = std::move(before_); }

}  // namespace tintbench::link
