#include "groups/SensorAnswer.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::groups {

namespace {

constexpr std::size_t kSensorAnswerLength = 10;
// The machine tells a reading as a whole number of them.
constexpr double kReadingParts = 10.0;

struct LetterFault {
  char Letter;
  const char* Fault;
};

struct StateFault {
  char State;
  int Status;
  const char* Fault;
};

constexpr std::array<LetterFault, 3> kLetterFaults{
    {{'A', ""}, {'R', "[command refused]"}, {'E', "[group error]"}}};

constexpr std::array<StateFault, 3> kStateFaults{
    {{'0', kNotConfigured, "(sensor NOT configured)"},
     {'1', kNotConnected, "(sensor configured but NOT connected)"},
     {'2', kConnected, ""}}};

constexpr const char* kUnknownValue = "(unknown answer)";

std::string FaultOfLetter(std::string_view answer) {
  for (const LetterFault& row : kLetterFaults) {
    if (answer.starts_with(row.Letter)) return row.Fault;
  }
  return "[unknown answer]";
}

StateFault StateOfAnswer(std::string_view answer) {
  for (const StateFault& row : kStateFaults) {
    if (answer.substr(std::min<std::size_t>(1, answer.size())).starts_with(row.State)) return row;
  }
  return {0, kUnknownSensor, kUnknownValue};
}

// The sign of a sensor that has no value; empty for one that has.
std::string StatusSign(int status) {
  switch (status) {
    case kNotConfigured:
      return "-";
    case kNotConnected:
      return "X";
    case kConnected:
      return {};
    default:
      return "?";
  }
}

std::string InBracketsIfBad(const SensorAnswer& answer, const std::string& text) {
  return answer.Good ? text : "[" + text + "]";
}

}  // namespace

SensorAnswer CheckSensorAnswer(config::InputKind kind, std::string_view answer) {
  SensorAnswer checked;
  checked.Value = base::Mid(answer, 3);
  if (answer.size() != kSensorAnswerLength) checked.Faults = "[incorrect answer length]";
  checked.Faults += FaultOfLetter(answer);
  const StateFault state = StateOfAnswer(answer);
  checked.Status = state.Status;
  checked.Faults += state.Fault;
  if (checked.Faults.empty() && kind == config::kAnalogueInput &&
      !base::IsHexadecimal(checked.Value)) {
    checked.Faults = kUnknownValue;
  }
  checked.Good = checked.Faults.empty();
  return checked;
}

std::string DigitalStatusText(const SensorAnswer& answer) {
  std::string text = StatusSign(answer.Status);
  if (answer.Status == kConnected) text = base::LeadingNumber(answer.Value) == 1 ? "1" : "0";
  return InBracketsIfBad(answer, text);
}

std::optional<double> AnalogueReading(const SensorAnswer& answer) {
  if (!answer.Good) return std::nullopt;
  const auto bits = static_cast<std::uint32_t>(base::LeadingHex(answer.Value));
  return static_cast<std::int32_t>(bits) / kReadingParts;
}

std::string AnalogueStatusText(const SensorAnswer& answer, bool inRange) {
  std::string text = StatusSign(answer.Status);
  if (answer.Status == kConnected) text = !answer.Good ? "?" : inRange ? "" : "!";
  return InBracketsIfBad(answer, text);
}

}  // namespace tintbench::groups
