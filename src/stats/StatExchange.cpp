#include "stats/StatExchange.h"

#include <algorithm>
#include <cctype>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::stats {

using link::CommandId;

namespace {

constexpr double kFastFirmware = 30.0;
constexpr std::size_t kAnswerFill = 30;
constexpr int kElementDigits = 2;

// True if the texts are numbers that go over the line in ten digits each.
bool FitsLine(const StatExchange::Values& values) {
  return std::all_of(values.begin(), values.end(), [](const std::optional<std::string>& value) {
    return !value ||
           (value->size() <= kValueDigits && std::all_of(value->begin(), value->end(), [](char c) {
              return std::isdigit(static_cast<unsigned char>(c)) != 0;
            }));
  });
}

}  // namespace

std::string WarningText(std::initializer_list<std::string_view> lines) {
  return base::JoinLines({"WARNING !!", "", base::JoinLines(lines), "", "CONTINUE ?"});
}

bool IsAccepted(std::string_view answer) { return answer.starts_with('A'); }

std::string StatArgument(int tab, std::string_view element) {
  std::string argument(TypeOf(tab).Tag);
  return element.empty() ? argument : argument.append(base::LastDigits(element, kElementDigits));
}

std::string FileCharacters(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c <= ' ' || c > '~' || c == ',' || c == '%'; },
      '?');
  return text;
}

std::string ValuesOf(std::string_view answer, bool hasElement, std::string_view stamp) {
  const std::string filled = std::string(answer).append(kAnswerFill, '0');
  const int time = hasElement ? 4 : 2;
  return DataValues(FileCharacters(base::Mid(filled, time, kValueDigits)),
                    FileCharacters(base::Mid(filled, time + kValueDigits, kValueDigits)), stamp);
}

bool ReadsFast(const link::LinkStatus& status) {
  return base::LeadingNumber(status.FirmwareVersion) > kFastFirmware;
}

std::optional<CommandId> ReadRowOfTab(const StatCatalogue& catalogue, int tab, bool wholeType) {
  const int list = catalogue.ListIndexOfTab(tab);
  if (list == kNoElements) return CommandId::ReadProcess;
  if (list < 0) return std::nullopt;
  return wholeType ? CommandId::ReadDevices : CommandId::ReadDevice;
}

std::optional<CommandId> WriteRowOfTab(const StatCatalogue& catalogue, int tab) {
  const int list = catalogue.ListIndexOfTab(tab);
  if (list == kNoElements) return CommandId::WriteProcess;
  return list < 0 ? std::nullopt : std::optional(CommandId::WriteDevice);
}

void StatExchange::TellCorruption(const char* title) {
  parts_.View.Tell(title, base::JoinLines({"Data corruption !!", "Cannot continue !!"}), false);
}

std::string StatExchange::Ask(CommandId row, const std::string& argument) {
  parts_.View.ShowWait(true);
  std::string answer = parts_.Line.Send(row, argument);
  parts_.View.ShowWait(false);
  return answer;
}

bool StatExchange::Receive(int tab, const std::string& element, bool overwrites,
                           const std::string& path) {
  const auto row = ReadRowOfTab(parts_.Catalogue, tab, false);
  if (!row) {
    TellCorruption(kReceiveTitle);
    return false;
  }
  parts_.View.ShowButtons(false);
  const bool wanted =
      !overwrites ||
      parts_.View.Confirm(kReceiveTitle,
                          WarningText({"Data received will overwrite current data !!"}));
  const std::string answer = wanted ? Ask(*row, StatArgument(tab, element)) : "";
  parts_.View.ShowButtons(true);
  if (!wanted) return false;
  if (!IsAccepted(answer)) {
    parts_.View.Tell(
        kReceiveTitle,
        base::JoinLines({"Data Transfer Interrupted !!", "Error in receiving data !!"}), false);
    return false;
  }
  parts_.View.Tell(kReceiveTitle, "Data correctly received !!", true);
  const std::string values =
      ValuesOf(answer, !element.empty(), MakeTimeStamp(parts_.Clock.Local()));
  const DataUpdate update =
      UpdateDataLine(parts_.Files, false, path, DataKey(tab, element), values);
  if (!update.Error.empty()) {
    parts_.View.Tell(kReceiveTitle, base::JoinLines({kNotOnFile, update.Error}), false);
  }
  return true;
}

void StatExchange::Send(int tab, const std::string& element, const Values& values) {
  const auto row = WriteRowOfTab(parts_.Catalogue, tab);
  if (!row) {
    TellCorruption(kSendTitle);
    return;
  }
  if (!FitsLine(values)) {
    parts_.View.Tell(kSendTitle, "A value is no number of ten digits: nothing is sent.", false);
    return;
  }
  if (!parts_.View.Confirm(kSendTitle, WarningText({"Data will be sent to machine !!"}))) return;
  std::string argument = StatArgument(tab, element);
  for (const std::optional<std::string>& value : values) {
    if (value) argument += base::LastDigits(*value, kValueDigits);
  }
  parts_.View.ShowButtons(false);
  const bool sent = IsAccepted(Ask(*row, argument));
  const bool stored = sent && IsAccepted(Ask(CommandId::StoreCounts, ""));
  parts_.View.ShowButtons(true);
  if (!sent) {
    parts_.View.Tell(kSendTitle,
                     base::JoinLines({"Data Transfer Interrupted !!", "Error in sending data !!"}),
                     false);
  } else {
    parts_.View.Tell(kSendTitle, stored ? "Data correctly sent !!" : kNotInFlash, stored);
  }
}

}  // namespace tintbench::stats
