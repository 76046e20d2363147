#include "stats/BulkExchange.h"

#include <algorithm>
#include <cctype>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::stats {

using link::CommandId;

namespace {

constexpr std::size_t kRecordLength = 22;
constexpr std::size_t kRecordsStart = 3;  // behind "A" and the number of records
constexpr std::size_t kReadAnswer = 23;
constexpr std::size_t kReadMachineAnswer = 11;
constexpr std::size_t kWriteAnswer = 1;
// From this record on the element's name has two digits.
constexpr int kTwoDigitRecord = 10;
constexpr std::size_t kAnswerShown = 30;

const std::string kZero(kValueDigits, '0');

bool AreDigits(std::string_view text, std::size_t most) {
  return text.size() <= most && std::all_of(text.begin(), text.end(),
                                            [](unsigned char c) { return std::isdigit(c) != 0; });
}

std::string ItemText(int tab, const std::string& element) {
  return std::string(TypeOf(tab).Caption).append(base::Bracketed(element));
}

// What there is to say about an answer; empty if it is as it should be.
std::string Remark(const std::string& answer, std::size_t length, std::string_view echo) {
  if (answer.empty()) return "no answer";
  if (!IsAccepted(answer)) return "refused: " + answer.substr(0, kAnswerShown);
  if (answer.size() != length) {
    return "answer of " + std::to_string(answer.size()) + " characters instead of " +
           std::to_string(length);
  }
  const std::string_view rest = std::string_view(answer).substr(1);
  if (!rest.starts_with(echo)) {
    return "tells " + answer.substr(1, echo.size()) + " instead of " + std::string(echo);
  }
  return AreDigits(rest, rest.size()) ? "" : "answer with strange characters";
}

}  // namespace

void BulkExchange::Stop() {
  stopped_ = stopped_ || running_;
  running_ = false;
}

bool BulkExchange::Begin(const char* title, const std::string& question) {
  if (running_ || !parts_.View.Confirm(title, question)) return false;
  title_ = title;
  running_ = true;
  stopped_ = false;
  lost_ = false;
  number_ = 0;
  problem_.clear();
  parts_.View.BeginItems();
  return true;
}

void BulkExchange::End() {
  running_ = false;
  if (!problem_.empty()) parts_.View.Tell(title_, problem_, false);
  parts_.View.EndItems(!problem_.empty() ? "failed"
                       : lost_           ? "interrupted: the port is closed"
                       : stopped_        ? "interrupted"
                                         : "complete");
  if (stopped_) parts_.View.Tell(title_, "Procedure interrupted by user !!", false);
}

bool BulkExchange::NextItem() {
  parts_.View.ServeEvents();
  if (!running_) return false;
  ++number_;
  return true;
}

void BulkExchange::EachElement(const StatElements& elements, const Act& act) {
  for (int tab = 0; tab < kStatTypes; ++tab) {
    for (const std::string& element :
         base::SplitFields(elements.List[static_cast<std::size_t>(tab)], ",")) {
      if (!NextItem()) return;
      parts_.View.ShowItem(number_, tab, element);
      act(tab, element);
    }
  }
}

// On a port that is closed nothing more is tried. The operator is told of it once.
std::string BulkExchange::Ask(CommandId row, const std::string& argument,
                              std::optional<int> length) {
  const bool open = parts_.Line.IsOpen();
  std::string answer = parts_.Line.Send(row, argument, length);
  if (parts_.Line.IsOpen()) return answer;
  lost_ = true;
  running_ = false;
  if (open) parts_.View.Tell(title_, "Serial port NOT open!", false);
  return answer;
}

void BulkExchange::Count(int tab, const std::string& element, const std::string& answer,
                         const Wanted& wanted) {
  parts_.View.CountItem(ItemText(tab, element), IsAccepted(answer),
                        Remark(answer, wanted.Length, wanted.Echo));
}

void BulkExchange::CountUnsent(int tab, const std::string& element, const std::string& reason) {
  parts_.View.CountItem(ItemText(tab, element), false, "not sent: " + reason);
}

void BulkExchange::WriteLine(int tab, std::string_view element, const std::string& values) {
  const base::FileResult written =
      target_->Write(DataKey(tab, element).append(",").append(values).append(base::kCrLf));
  if (written) return;
  NotStored(written);
  running_ = false;
}

void BulkExchange::NotStored(const base::FileResult& result) {
  if (!result) problem_ = base::JoinLines({kNotOnFile, result.Error()});
}

void BulkExchange::ReceiveInto(const std::string& path, const std::string& name,
                               const std::function<void()>& receive) {
  if (!Begin(kReceiveTitle,
             WarningText({"Statistical data will be stored on file", "<" + name + "> !!"}))) {
    return;
  }
  const base::FileResult writable = CheckWritable(parts_.Files, path);
  base::ReplacementFile target(parts_.Files, path);
  target_ = &target;
  const base::FileResult opened = writable ? target.Write("") : writable;
  NotStored(opened);
  if (opened) receive();
  // What the line's loss cuts short doesn't take the place of what was whole.
  if (problem_.empty() && !lost_) NotStored(target.Commit());
  target_ = nullptr;
  End();
}

void BulkExchange::ReceiveAll(const StatElements& elements, const std::string& path,
                              const std::string& name) {
  ReceiveInto(path, name, [&] {
    EachElement(elements, [this](int tab, const std::string& element) {
      const auto row = ReadRowOfTab(parts_.Catalogue, tab, false);
      if (!row) return;
      const std::string argument = StatArgument(tab, element);
      const std::string answer = Ask(*row, argument);
      Count(tab, element, answer,
            {row == CommandId::ReadProcess ? kReadMachineAnswer : kReadAnswer, argument.substr(1)});
      WriteLine(tab, element,
                ValuesOf(IsAccepted(answer) ? answer : "", !element.empty(), Stamp()));
    });
  });
}

void BulkExchange::ReceiveAllFast(const StatElements& elements, const std::string& path,
                                  const std::string& name) {
  ReceiveInto(path, name, [&] {
    for (int tab = 0; tab < kStatTypes && NextItem(); ++tab) {
      parts_.View.ShowItem(number_, tab, std::to_string(number_));
      const auto row = ReadRowOfTab(parts_.Catalogue, tab, true);
      if (row) ReceiveType(tab, *row, elements.Count[static_cast<std::size_t>(tab)]);
    }
  });
}

void BulkExchange::ReceiveType(int tab, CommandId row, int elements) {
  const bool records = row == CommandId::ReadDevices;
  const std::size_t length =
      records ? kRecordLength * static_cast<std::size_t>(elements) + kRecordsStart
              : kReadMachineAnswer;
  const std::string answer = records ? Ask(row, StatArgument(tab, ""), static_cast<int>(length))
                                     : Ask(row, StatArgument(tab, ""));
  Count(tab, "", answer, {length, records ? base::LastDigits(elements, 2) : ""});
  if (!IsAccepted(answer)) return;
  if (records) {
    WriteRecords(tab, answer);
  } else {
    WriteLine(tab, "", ValuesOf(answer.substr(0, kReadMachineAnswer), false, Stamp()));
  }
}

// What the answer announces but doesn't hold is left out.
void BulkExchange::WriteRecords(int tab, const std::string& answer) {
  const int count = base::LeadingInt(base::Mid(answer, 2, 2));
  std::size_t start = kRecordsStart;
  for (int number = 1; number <= count && start + kRecordLength <= answer.size(); ++number) {
    const std::string record = answer.substr(start, kRecordLength);
    start += kRecordLength;
    const std::string name = number < kTwoDigitRecord ? record.substr(1, 1) : record.substr(0, 2);
    WriteLine(tab, FileCharacters(name), ValuesOf("A" + record, true, Stamp()));
  }
}

void BulkExchange::SendAll(const std::string& path, const std::string& name) {
  if (!Begin(kSendTitle, WarningText({"Statistical data file", "<" + name + ">",
                                      "will be sent to the machine !!"}))) {
    return;
  }
  base::LineReader reader(parts_.Files, path, kLongestDataLine);
  std::string text;
  while (reader.Next(text)) {
    const std::optional<DataLine> line = ReadDataLine(text);
    if (!line) continue;
    if (!NextItem()) break;
    parts_.View.ShowItem(number_, line->Tab, line->Element);
    SendLine(*line);
  }
  if (reader.Failed()) problem_ = "The file can't be read !!";
  const bool stored = !lost_ && IsAccepted(Ask(CommandId::StoreCounts, ""));
  if (!stored) parts_.View.Tell(kSendTitle, kNotInFlash, false);
  End();
}

// Sends what stands in the file, as it stands, as long as it is digits: anything else could be
// another command.
void BulkExchange::SendLine(const DataLine& line) {
  const auto row = WriteRowOfTab(parts_.Catalogue, line.Tab);
  if (!row) return;
  const std::string time = base::GetField(1, line.Values, ",");
  const std::string events = base::GetField(2, line.Values, ",");
  if (!AreDigits(line.Element, 2)) return CountUnsent(line.Tab, line.Element, "no element number");
  if (!AreDigits(time, kValueDigits) || !AreDigits(events, kValueDigits)) {
    return CountUnsent(line.Tab, line.Element, "no numbers of ten digits");
  }
  const std::string answer = Ask(*row, StatArgument(line.Tab, line.Element) + time + events);
  Count(line.Tab, line.Element, answer, {kWriteAnswer});
}

void BulkExchange::ResetAll(const StatElements& elements) {
  if (!Begin(kResetTitle, WarningText({"All data on the machine will be RESET !!"}))) return;
  EachElement(elements, [this](int tab, const std::string& element) {
    const auto row = WriteRowOfTab(parts_.Catalogue, tab);
    if (!row) return;
    Count(tab, element, Ask(*row, StatArgument(tab, element) + kZero + kZero), {kWriteAnswer});
  });
  End();
}

}  // namespace tintbench::stats
