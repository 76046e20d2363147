#include "commands/CommandReports.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <vector>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::commands {

namespace {

enum class Source { None, Argument, Answer };

constexpr int kRest = std::numeric_limits<int>::max();

// A part of the argument or of the answer, with a word about what it is. Positions count from 1.
struct Field {
  Source From = Source::None;
  int Position = 1;
  int Count = kRest;
  const char* Meaning = "";
};

using Decoder = void (*)(const Exchange&, CommWindow&, Outcome&);

// What is special to the rows from `First` to `Last`.
struct RowRule {
  CommandId First = {};
  CommandId Last = First;
  unsigned View = 0;
  std::array<Field, 4> Fields = {};
  int DoneAt = 0;            // where the answer tells whether the operation worked; 0 if nowhere
  Decoder Decode = nullptr;  // what a list of fields can't do
};

std::string FirstOf(const std::string& answer) { return base::Left(answer, 1); }

void ShowInputs(const Exchange& exchange, CommWindow& window, Outcome& outcome) {
  window.ClearOutputs();
  window.Work.Decoder.DecodeInputs(window.Panels, exchange.Answer);
  outcome.Report.clear();
}

void ShowOutputs(const Exchange& exchange, CommWindow& window, Outcome& outcome) {
  window.ClearInputs();
  window.Work.Decoder.DecodeOutputs(window.Panels, exchange.Answer);
  outcome.Report.clear();
}

void ShowInputsAndOutputs(const Exchange& exchange, CommWindow& window, Outcome&) {
  const std::string first = FirstOf(exchange.Answer);
  const std::string padded = exchange.Answer + std::string(13, '@');
  window.Work.Decoder.DecodeInputs(window.Panels, first + base::Mid(padded, 2, 8));
  window.Work.Decoder.DecodeOutputs(window.Panels, first + base::Mid(padded, 10, 4));
}

// A status begins with the machine's state instead of an acceptance.
void ShowStatus(const Exchange& exchange, CommWindow& window, Outcome& outcome) {
  const bool known = exchange.Answer.find_first_of("KEBN") == 0;
  outcome = {known ? kAccepted : kRefused, ""};
  window.Work.Decoder.DecodeStatus(window.Panels, exchange.Answer);
}

void TellBridges(const Exchange& exchange, CommWindow&, Outcome& outcome) {
  const std::string flags = base::Mid(exchange.Answer, 2, int{link::kBridgeNames.size()});
  for (std::size_t bridge = 0; bridge < flags.size(); ++bridge) {
    outcome.Report += base::Bracketed({&flags[bridge], 1});
    if (flags[bridge] == '1') {
      outcome.Report += link::kBridgeNames.at(bridge);
    } else if (flags[bridge] != '0') {
      outcome.Report += kInvalidData;
    }
    outcome.Report += base::kCrLf;
  }
}

void TellPairs(const Exchange& exchange, CommWindow&, Outcome& outcome) {
  const double characters = static_cast<double>(exchange.Answer.size()) - 1;
  const int pairs = static_cast<int>(base::RoundHalfEven(characters / 2));
  for (int pair = 0; pair < pairs; ++pair) {
    outcome.Report +=
        base::Bracketed(base::Mid(exchange.Answer, 2 + 2 * pair, 2)).append(base::kCrLf);
  }
}

void TellNoReport(const Exchange&, CommWindow&, Outcome& outcome) { outcome.Report.clear(); }

// What a command of the operator's own gets is nobody's to judge.
void TellNothing(const Exchange&, CommWindow&, Outcome& outcome) { outcome = {}; }

constexpr auto kArgument = Source::Argument;
constexpr auto kAnswer = Source::Answer;

// clang-format off
constexpr RowRule kRules[] = {
    {.First = CommandId::ReadInputs, .View = kInputView | kCardView, .Decode = ShowInputs},
    {.First = CommandId::ReadOutputs, .View = kOutputView | kCardView, .Decode = ShowOutputs},
    {.First = CommandId::ReadInputsAndOutputs, .View = kInputView | kOutputView | kCardView,
     .Decode = ShowInputsAndOutputs},
    {.First = CommandId::ReadStatus, .View = kStatusView, .Decode = ShowStatus},
    {.First = CommandId::ReadBridges, .View = kReportView, .Decode = TellBridges},
    {.First = CommandId::SetOutputs, .Last = CommandId::VerifyDispensing, .DoneAt = 2, .Decode = TellNoReport},
    {.First = CommandId::FirmwareVersion, .Last = CommandId::PlatformVersion, .View = kReportView, .Fields = {{{kAnswer, 2}}}},
    {.First = CommandId::ReadAutotest, .Last = CommandId::ReadGroupInput, .View = kReportView},
    {.First = CommandId::ValvesOn, .Last = CommandId::StirringsOff, .View = kReportView, .Decode = TellPairs},
    {.First = CommandId::CapOpen, .Last = CommandId::CapIntermediate, .View = kReportView, .Fields = {{{kAnswer, 2, 2}}}, .DoneAt = 4},
    {.First = CommandId::ShelfPosition, .View = kReportView, .Fields = {{{kAnswer, 2, 4, "(steps)"}}}},
    {.First = CommandId::MotorOn, .Last = CommandId::MotorOff, .View = kReportView, .Fields = {{{kAnswer, 2, 2}}}},
    {.First = CommandId::MotorSpeed, .View = kReportView,
     .Fields = {{{kAnswer, 2, 10, "(msec)"}, {kAnswer, 12, 10, "(rpm*100)"}}}},
    {.First = CommandId::ReadMemory, .View = kReportView,
     .Fields = {{{kArgument, 1, 1, "(data type)"}, {kArgument, 2, 8, "(data address)"},
                 {kAnswer, 2, kRest, "(data read)"}}}},
    {.First = CommandId::WriteMemory, .View = kReportView,
     .Fields = {{{kArgument, 1, 1, "(data type)"}, {kArgument, 2, 8, "(data address)"},
                 {kArgument, 10, 4, "(data written)"}}},
     .DoneAt = 2},
    {.First = CommandId::CreateMask, .View = kReportView, .Decode = TellPairs},
    {.First = CommandId::ReadPwm, .View = kReportView,
     .Fields = {{{kArgument, 1, kRest, "(PWM channel)"}, {kAnswer, 2, 4, "(frequency)"},
                 {kAnswer, 6, 4, "(duty-cycle)"}}}},
    {.First = CommandId::WritePwm, .View = kReportView,
     .Fields = {{{kArgument, 1, 2, "(PWM channel)"}, {kArgument, 3, 4, "(frequency)"},
                 {kArgument, 7, 4, "(duty-cycle)"}}}},
    {.First = CommandId::ReadDevice, .View = kReportView,
     .Fields = {{{kArgument, 1, 1, "(device-type)"}, {kArgument, 2, 2, "(device-number)"},
                 {kAnswer, 4, 10, "(time)"}, {kAnswer, 14, 10, "(cycle-number)"}}}},
    {.First = CommandId::WriteDevice, .View = kReportView,
     .Fields = {{{kArgument, 1, 1, "(device-type)"}, {kArgument, 2, 2, "(device-number)"},
                 {kArgument, 4, 10, "(time)"}, {kArgument, 14, 10, "(cycle-number)"}}}},
    {.First = CommandId::ReadProcess, .View = kReportView,
     .Fields = {{{kArgument, 1, kRest, "(process-type)"}, {kAnswer, 2, kRest, "(process-value)"}}}},
    {.First = CommandId::WriteProcess, .View = kReportView,
     .Fields = {{{kArgument, 1, 1, "(process-type)"}, {kArgument, 2, kRest, "(process-value)"}}}},
    {.First = CommandId::StoreCounts, .View = kReportView},
    {.First = CommandId::Custom, .Decode = TellNothing},
};
// clang-format on

const RowRule* RuleOf(CommandId row) {
  const auto* const found =
      std::find_if(std::begin(kRules), std::end(kRules),
                   [row](const RowRule& rule) { return row >= rule.First && row <= rule.Last; });
  return found == std::end(kRules) ? nullptr : found;
}

std::string FieldTexts(const RowRule& rule, const Exchange& exchange) {
  std::vector<std::string> lines;
  for (const Field& field : rule.Fields) {
    if (field.From == Source::None) break;
    const std::string& text = field.From == Source::Answer ? exchange.Answer : exchange.Argument;
    lines.push_back(base::Bracketed(base::Mid(text, field.Position, field.Count)) + field.Meaning);
  }
  return base::Join(lines, base::kCrLf);
}

Outcome Judge(const Exchange& exchange, const std::string& description) {
  const std::string header = base::JoinLines({base::ToUpper(description), "", ""});
  if (FirstOf(exchange.Answer) == "A") return {kAccepted, header};
  return {kRefused, header + base::JoinLines({kInvalidData, "", ""})};
}

}  // namespace

unsigned ViewOf(CommandId row) {
  const RowRule* const rule = RuleOf(row);
  return rule == nullptr ? 0 : rule->View;
}

Outcome DecodeExchange(const Exchange& exchange, CommWindow& window) {
  Outcome outcome = Judge(exchange, window.Description(exchange.Row));
  const RowRule* const rule = RuleOf(exchange.Row);
  if (rule == nullptr) return outcome;
  outcome.Report += FieldTexts(*rule, exchange);
  if (rule->DoneAt > 0) {
    const bool done = base::Mid(exchange.Answer, rule->DoneAt, 1) == "K";
    outcome.Status = base::JoinLines({outcome.Status, done ? kSuccess : kFail});
  }
  if (rule->Decode != nullptr) rule->Decode(exchange, window, outcome);
  return outcome;
}

}  // namespace tintbench::commands
