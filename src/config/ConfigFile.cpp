#include "config/ConfigFile.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::config {

namespace {

constexpr std::size_t kTagLength = 4;
constexpr int kSlaveCount = 16;
constexpr int kExternalGroupsField = 8;

}  // namespace

ConfigLine SplitConfigLine(std::string_view line) {
  const std::string behindTag = base::TrimLeft(base::Behind(base::Trim(line), ' '));
  const std::size_t blank = behindTag.find(' ');
  if (blank == std::string::npos) return {};
  return {base::LeadingInt(behindTag.substr(0, blank)), base::TrimLeft(behindTag.substr(blank))};
}

bool FileHasNoEmptyParameters(base::FileSystem& files, const std::string& path) {
  ConfigReader reader(files, path);
  for (std::string line; reader.Next(line);) {
    if (!line.starts_with('@')) continue;
    const ConfigLine split = SplitConfigLine(line);
    if (split.Slave < 1 || split.Slave > kSlaveCount) continue;
    if (("," + base::Trim(split.Data) + ",").find(",,") != std::string::npos) return false;
  }
  return !reader.Failed();
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
