// The command line and the settings file. An input is the arguments, one a line, an empty line,
// and the settings file.
#include <vector>

#include "FuzzInput.h"
#include "Target.h"
#include "app/AppOptions.h"
#include "base/MemoryFileSystem.h"
#include "base/Text.h"
#include "link/ComPort.h"
#include "shell/CommandLineKeys.h"
#include "shell/SettingsFile.h"

namespace tintbench::fuzz {
namespace {

constexpr const char* kSettings = "/app/CONFIGUR/KSSETTING.TXT";

void CheckOptions(const std::vector<std::string>& arguments, app::AppOptions& options) {
  std::string error;
  const bool good = app::ParseOptions(arguments, options, error);
  Require(good == error.empty(), "wrong options have a reason, good ones none");
  Require(error.find('\n') == std::string::npos, "the reason is one line");
  if (!good) return;
  Require(options.Demo || !options.VirtualClock, "a real machine has the real clock");
  Require(!options.Demo || options.Ports.empty(), "the simulated machine is alone");
  for (const auto& [number, device] : options.Ports) {
    Require(number >= 1 && number <= 8 && !device.empty(), "a port has a number and a device");
  }
}

void CheckKey(const std::string& line, const std::string& key) {
  const std::string value = shell::KeyLookup(line, key);
  Require(value == base::Trim(base::ToUpper(value)), "a value is trimmed and in upper case");
  Require(value.find(')') == std::string::npos, "a value ends at its bracket");
  Require(value.size() + key.size() + 2 <= line.size() || value.empty(), "a value is on the line");
  Require(shell::KeyLookup(base::ToLower(line), key) == value, "letter case doesn't matter");
  Require(shell::KeyLookup("- " + line, key) == value, "a key counts anywhere");
  const bool bare = line.find('(') == std::string::npos;
  Require(!bare || value.empty(), "without brackets there is no value");
  Require(shell::KeyLookup("- " + key + " ( x )" + line, key) == "X", "the first key decides");
  Require(shell::KeyLookup(key + " y ( x )" + line, key).empty(), "a key stands at its bracket");
}

std::string ModeOf(const std::string& content, std::size_t readSize = 65536) {
  testing::MemoryFileSystem files;
  files.ReadSize = readSize;
  files.Put(kSettings, content);
  return shell::ReadSerialMode(files, kSettings);
}

void CheckSettings(const std::string& content) {
  const std::string mode = ModeOf(content);
  const bool master = mode == link::kMasterMode;
  Require(master || mode == link::kServiceMode || mode.empty(), "there are two lines");
  Require(mode.empty() == content.empty(), "only a file without any line names none");
  Require(ModeOf(content, 3) == mode, "the reading's pace doesn't matter");
  Require(!master || base::ToUpper(content).find("MASTER") != std::string::npos,
          "the master line was named");
  if (content.find('\r') == std::string::npos) {
    const std::string lines = base::Join(base::SplitFields(content + "\n", "\n"), "\r\n");
    Require(content.empty() || ModeOf(lines + "\r\n") == mode, "both line ends mean the same");
  }
  Require(ModeOf("serial , master\n" + content) == link::kMasterMode, "the first word decides");
}

}  // namespace
}  // namespace tintbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tintbench;
  fuzz::FuzzInput input(data, size);
  std::vector<std::string> arguments;
  for (std::string line = input.Line(); !line.empty(); line = input.Line()) {
    arguments.push_back(line);
  }
  app::AppOptions options;
  fuzz::CheckOptions(arguments, options);
  fuzz::CheckKey(options.CommandLine, "KSVDEBUG");
  fuzz::CheckKey(options.CommandLine, "PORT");
  fuzz::CheckSettings(input.Rest());
  return 0;
}
