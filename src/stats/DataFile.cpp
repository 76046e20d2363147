#include "stats/DataFile.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::stats {

namespace {

constexpr char kComment = '%';
constexpr int kNoFile = -1;
constexpr const char* kUnreadable = "The file can't be read";

// In upper case, trimmed, without what follows "%"; a comment is empty.
std::string DataText(std::string_view line) {
  return base::Trim(base::ToUpper(line.substr(0, line.find(kComment))));
}

// The first field of such a text.
std::string FirstField(std::string_view text) { return base::Trim(text.substr(0, text.find(','))); }

// The number of the line with this key, 0 if there is none; nothing if the file can't be read.
std::optional<int> LookUp(base::FileSystem& files, const std::string& path, std::string_view key) {
  base::LineReader reader(files, path, kLongestDataLine);
  std::string line;
  for (int number = 1; reader.Next(line); ++number) {
    if (FirstField(DataText(line)) == key) return number;
  }
  return reader.Failed() ? std::nullopt : std::optional(0);
}

DataUpdate Failed(std::string error) { return {kDataUnchanged, std::move(error)}; }

// Copies the lines of a file to its replacement, but for line `number`, in whose place `line`
// stands, if any. Gives what went wrong, empty if nothing did.
std::string CopyLines(base::LineReader& reader, base::ReplacementFile& target, int number,
                      const std::optional<std::string>& line) {
  std::string text;
  for (int at = 1; reader.Next(text); ++at) {
    if (reader.WasCut()) return "A line of the file is too long";
    if (at == number) {
      if (!line) continue;
      text = *line;
    }
    const base::FileResult written = target.Write(text.append(base::kCrLf));
    if (!written) return written.Error();
  }
  return reader.Failed() ? kUnreadable : "";
}

// Writes the file anew with `line` in the place of line `number`, at its end if that is 0, or
// without that line.
std::string Rewrite(base::FileSystem& files, const std::string& path, int number,
                    const std::optional<std::string>& line) {
  const base::FileResult writable = CheckWritable(files, path);
  if (!writable) return writable.Error();
  base::ReplacementFile target(files, path);
  if (number >= 0) {
    base::LineReader reader(files, path, kLongestDataLine);
    const std::string error = CopyLines(reader, target, number, line);
    if (!error.empty()) return error;
  }
  if (number < 1) static_cast<void>(target.Write(line.value_or("").append(base::kCrLf)));
  return target.Commit().Error();
}

bool IsDate(const base::LocalTime& time) {
  constexpr int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return time.Year >= 1 && time.Year <= 9999 && time.Month >= 1 && time.Month <= 12 &&
         time.Day >= 1 && time.Day <= kDays[time.Month - 1] && time.Hour >= 0 && time.Hour <= 23 &&
         time.Minute >= 0 && time.Minute <= 59 && time.Second >= 0 && time.Second <= 60;
}

}  // namespace

std::string DataKey(int tab, std::string_view element) {
  return std::string(TypeOf(tab).Key).append("_").append(element);
}

std::optional<DataLine> ReadDataLine(std::string_view line) {
  const std::string text = DataText(line);
  DataLine data{.Key = FirstField(text), .Values = base::Behind(text, ',')};
  const std::size_t mark = data.Key.find('_');
  if (mark == std::string::npos) return std::nullopt;
  const std::optional<int> tab = TabOfKey(std::string_view(data.Key).substr(0, mark));
  if (!tab) return std::nullopt;
  data.Tab = *tab;
  data.Element = data.Key.substr(mark + 1);
  return data;
}

std::string DataValues(std::string_view time, std::string_view events, std::string_view stamp) {
  return std::string(time).append(",").append(events).append(",").append(stamp);
}

std::string MakeTimeStamp(const base::LocalTime& time) {
  return base::Join(
      {std::to_string(time.Year), std::to_string(time.Month), std::to_string(time.Day),
       std::to_string(time.Hour), std::to_string(time.Minute), std::to_string(time.Second)},
      ".");
}

std::optional<base::LocalTime> ReadTimeStamp(std::string_view stamp) {
  constexpr std::size_t kLongest = 24;
  constexpr std::size_t kParts = 6;
  if (stamp.size() > kLongest) return std::nullopt;
  const std::vector<std::string> parts = base::SplitFields(stamp, ".");
  std::array<int, kParts> values{};
  if (parts.size() != kParts) return std::nullopt;
  for (std::size_t part = 0; part < kParts; ++part) {
    if (!base::IsNumeric(parts[part])) return std::nullopt;
    values[part] = base::LeadingInt(parts[part]);
  }
  const base::LocalTime time{values[0], values[1], values[2], values[3], values[4], values[5]};
  return IsDate(time) ? std::optional(time) : std::nullopt;
}

int FindDataKey(base::FileSystem& files, const std::string& path, std::string_view key) {
  return files.FileExists(path) ? LookUp(files, path, key).value_or(0) : kNoFile;
}

DataUpdate UpdateDataLine(base::FileSystem& files, bool deletes, const std::string& path,
                          const std::string& key, const std::string& value) {
  const std::optional<int> found =
      files.FileExists(path) ? LookUp(files, path, key) : std::optional(kNoFile);
  if (!found) return Failed(kUnreadable);
  if (*found < 1 && deletes) return {};
  std::string line = key;
  line.append(",").append(value);
  std::string error =
      Rewrite(files, path, *found, deletes ? std::nullopt : std::optional(std::move(line)));
  if (!error.empty()) return Failed(std::move(error));
  if (deletes) return {kDataDeleted};
  return {*found < 1 ? kDataCreated : kDataReplaced};
}

int CountDataLines(base::FileSystem& files, const std::string& path) {
  base::LineReader reader(files, path, kLongestDataLine);
  std::string line;
  int count = 0;
  while (reader.Next(line)) {
    if (ReadDataLine(line)) ++count;
  }
  return count;
}

const std::string* DataBuffer::Find(std::string_view key) const {
  const auto line = Lines.find(key);
  return line == Lines.end() ? nullptr : &line->second;
}

base::FileResult CheckWritable(base::FileSystem& files, const std::string& path) {
  base::FileResult result;
  if (files.FileExists(path)) {
    static_cast<void>(files.OpenToWrite(path, base::WriteMode::kAppend, result));
  }
  return result;
}

base::FileResult LoadDataFile(base::FileSystem& files, const std::string& path,
                              DataBuffer& buffer) {
  if (path.empty() || !files.FileExists(path)) return {};
  buffer = {};
  base::LineReader reader(files, path, kLongestDataLine);
  std::string line;
  std::size_t count = 0;
  while (reader.Next(line)) {
    std::optional<DataLine> data = ReadDataLine(line);
    if (!data) continue;
    if (++count > kMostDataLines) return base::FileResult("The file has too many lines of data");
    buffer.ElementsInFile[static_cast<std::size_t>(data->Tab)].append(data->Element).append(",");
    buffer.Lines.try_emplace(std::move(data->Key), std::move(data->Values));
  }
  return reader.Failed() ? base::FileResult(kUnreadable) : base::FileResult();
}

}  // namespace tintbench::stats
