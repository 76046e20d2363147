#include "shell/SettingsFile.h"

#include "base/Text.h"
#include "link/ComPort.h"

namespace tintbench::shell {

namespace {

// "SERIAL,MASTER" and "MASTER" say the same.
std::string ModeWord(const std::string& line) {
  const std::string text = base::ToUpper(base::Trim(line));
  const std::string first = base::Trim(base::GetField(1, text, ","));
  return first == "SERIAL" ? base::Trim(base::GetField(2, text, ",")) : first;
}

}  // namespace

std::string ReadSerialMode(base::FileSystem& files, const std::string& path) {
  base::LineReader reader(files, path);
  if (!reader.IsOpen()) return link::kServiceMode;
  std::string mode;
  for (std::string line; reader.Next(line);) {
    const std::string word = ModeWord(line);
    if (word == link::kServiceMode || word == link::kMasterMode) return word;
    mode = link::kServiceMode;
  }
  return mode;
}

}  // namespace tintbench::shell
