#include "config/ConfigFile.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::config {

namespace {

constexpr std::size_t kTagLength = 4;
constexpr int kExternalGroupsField = 8;

}  // namespace

ConfigLine SplitConfigLine(std::string_view line) {
  const std::string behindTag = base::TrimLeft(base::Behind(base::Trim(line), ' '));
  const std::size_t blank = behindTag.find(' ');
  if (blank == std::string::npos) return {};
  return {base::LeadingInt(behindTag.substr(0, blank)), base::TrimLeft(behindTag.substr(blank))};
}

EmptyParameters CheckEmptyParameters(base::FileSystem& files, const std::string& path) {
  ConfigReader reader(files, path);
  for (ConfigRecord record; reader.NextRecord(record);) {
    if (!record.Tag.starts_with('@')) continue;
    if (("," + record.Data + ",").find(",,") != std::string::npos) return EmptyParameters::kSome;
  }
  return reader.Failed() ? EmptyParameters::kUnknown : EmptyParameters::kNone;
}

bool FileHasNoEmptyParameters(base::FileSystem& files, const std::string& path) {
  return CheckEmptyParameters(files, path) == EmptyParameters::kNone;
}

int ReadExternalGroups(base::FileSystem& files, const std::string& path, int slave) {
  int groups = 0;
  ConfigReader reader(files, path);
  for (std::string tag, data; reader.NextOfSlave(slave, tag, data);) {
    if (tag != "@GEN") continue;
    const std::string field = base::GetField(kExternalGroupsField, data, ",");
    if (field.empty()) break;
    const int number = base::LeadingInt(field);
    if (number > 0) groups = number;
  }
  return groups;
}

ConfigReader::ConfigReader(base::FileSystem& files, const std::string& path)
    : reader_(files, path, kLineLimit) {}

bool ConfigReader::Next(std::string& line) {
  if (tooLarge_ || !reader_.Next(line)) return false;
  size_ += line.size() + 1;
  line = base::Trim(line);
  tooLarge_ = size_ > kFileLimit || (reader_.WasCut() && line.starts_with('@'));
  return !tooLarge_;
}

std::string ConfigReader::Error() const {
  if (tooLarge_) return "the file is too large for a configuration";
  if (!reader_.IsOpen()) return "the file can't be opened";
  return reader_.Failed() ? "the file can't be read" : "";
}

bool ConfigReader::NextRecord(ConfigRecord& record) {
  for (std::string line; Next(line);) {
    ConfigLine split = SplitConfigLine(line);
    if (split.Slave < 1 || split.Slave > kSlaveCount) continue;
    record = {line.substr(0, line.find(' ')), split.Slave, std::move(split.Data)};
    return true;
  }
  return false;
}

bool ConfigReader::NextOfSlave(int slave, std::string& tag, std::string& data) {
  for (std::string line; Next(line);) {
    if (line.size() <= kTagLength || line.starts_with('%')) continue;
    ConfigLine split = SplitConfigLine(line);
    if (split.Slave != slave) continue;
    tag = base::ToUpper(line.substr(0, kTagLength));
    data = std::move(split.Data);
    return true;
  }
  return false;
}

}  // namespace tintbench::config
