// The readers of configuration files. An input is the slave number, how many bytes a read gives,
// how often the file's text is repeated, and from the next line on the file.
#include <cmath>

#include "FuzzInput.h"
#include "Target.h"
#include "base/MemoryFileSystem.h"
#include "base/Text.h"
#include "config/ConfigFile.h"
#include "config/FileParts.h"
#include "config/MachineFacts.h"
#include "config/SelectorCatalogue.h"
#include "editor/ConfigStore.h"
#include "state/SensorNames.h"

namespace tintbench::fuzz {
namespace {

constexpr const char* kFile = "/app/file.cfg";
constexpr std::size_t kLargestFile = 140000;
constexpr std::size_t kPartSize = 65000;
constexpr const char* kClosing = "@EPS 7\r\n@PDD 7\r\n";

bool IsBetween(int value, int least, int most) { return value >= least && value <= most; }

void CheckLine(const std::string& line) {
  const config::ConfigLine split = config::SplitConfigLine(line);
  Require(split.Data == base::Trim(split.Data), "data has no blanks around it");
  Require(split.Data.size() < line.size() || line.empty(), "data is a piece of the line");
  if (split.Slave < 1 || split.Data.empty()) return;
  const config::ConfigLine again =
      config::SplitConfigLine(" @XXX   " + std::to_string(split.Slave) + "  " + split.Data + " ");
  Require(again.Slave == split.Slave && again.Data == split.Data, "blanks mean nothing");
}

void CheckEmptyParameters(const std::string& content, std::size_t readSize) {
  const auto isFull = [readSize](const std::string& text) {
    testing::MemoryFileSystem files;
    files.ReadSize = readSize;
    files.Put(kFile, text);
    return config::FileHasNoEmptyParameters(files, kFile);
  };
  const bool full = isFull(content);
  Require(!isFull(content + "\n@GEN 1 1,,2"), "an empty parameter is found behind anything");
  Require(!isFull("@GEN 16 1,\n" + content), "and in front of anything");
  Require(isFull(content + "\n% 1 1,,2\n@ICS 1\n@GEN 17 1,,2") == full, "what is no data is none");
}

bool IsList(const std::string& list, std::size_t width) {
  for (std::size_t at = 0; at < list.size(); at += width + 1) {
    const std::size_t comma = list.find(',', at);
    if (comma != at + width) return false;
  }
  return true;
}

void CheckFactsInRange(const config::MachineFacts& facts) {
  Require(IsBetween(facts.MonoPurgeLimit, 0, 4), "the purge limit is 1 to 4 or none");
  Require(IsBetween(facts.MaxValves, 0, 64), "64 valves at the most");
  Require(facts.ExternalGroups >= 0, "external groups are counted");
  Require(IsBetween(facts.ValveTestTime, 0, 600), "a valve test takes 600 seconds at the most");
  Require(IsBetween(facts.PhotocellConnector, 1, 20) || facts.PhotocellConnector == -1,
          "the photocell has a connector or none");
  Require(std::isfinite(facts.ResetTimeout), "the reset takes a finite time");
  Require(facts.MachineLabel.size() <= 17, "the label has 17 characters");
  for (const int sensor : facts.ConnectorSensors) {
    Require(IsBetween(sensor, 0, 21), "a connector's sensor has a panel");
  }
  Require(IsList(facts.CircuitCapList, 2) && IsList(facts.CircuitMotorList, 2) &&
              IsList(facts.CapThreePositionList, 2),
          "elements have two digits");
  for (const auto& group : facts.GroupElements) {
    for (const int column : {0, 1, 2}) {
      const std::size_t size = group[static_cast<std::size_t>(column)].size();
      Require(size == 0 || size == 2, "a group's element has two digits");
    }
  }
  for (const auto& kind : facts.GroupInputs) {
    for (const std::string& records : kind) {
      Require(records.empty() || records.ends_with(",|"), "an input record is closed");
    }
  }
}

void CheckKnown(const std::string& content, int slave, std::size_t readSize) {
  testing::MemoryFileSystem files;
  files.ReadSize = readSize;
  files.Put(kFile, content);
  config::MachineFacts facts;
  facts.ElementLists[0] = "99,";
  facts.PoweredCapCount = 99;
  const bool known = config::ExecuteConfigKnown(files, kFile, slave, facts);
  CheckFactsInRange(facts);
  for (const std::string& list : facts.ElementLists) {
    Require(IsList(list, 2), "elements have two digits");
    Require(known || list.empty(), "a bad file gives no elements");
  }
  Require(known || facts.PoweredCapCount == 0, "and no count");
  static const config::SelectorCatalogue selectors;
  for (const state::SensorName& input :
       state::BuildSensorNames(known, facts, selectors).InputNames) {
    Require(!input.Shown || !input.Name.empty(), "an input that is shown has a name");
  }

  files.Put(kFile, content + "\n@@@@ " + std::to_string(slave) + " 1");
  Require(!config::ExecuteConfigKnown(files, kFile, slave, facts), "a barred file is refused");
}

// The lines of a text as every reader takes them.
std::string WithCrLf(const std::string& content) {
  std::string lines;
  std::string line;
  FuzzInput input(reinterpret_cast<const std::uint8_t*>(content.data()), content.size());
  while (!input.AtEnd()) {
    line = input.Line();
    if (line.ends_with('\r')) line.pop_back();
    lines += line + "\r\n";
  }
  return lines;
}

void CheckParts(const std::string& content, std::size_t readSize) {
  testing::MemoryFileSystem files;
  files.ReadSize = readSize;
  files.Put(kFile, content);
  const config::FileParts parts =
      config::SplitFileForSending(files, "/app", "/app/file", "cfg", "7");
  Require(parts.Error.empty(), "a text of ordinary lines can be cut");
  Require((parts.Last == -1) == content.empty(), "only an empty source gives no part");
  std::string whole;
  for (int number = 0; number <= parts.Last; ++number) {
    const std::string part = files.Get(config::FilePartPath("/app", number));
    whole += part;
    // Every part counts from 8, which in the first is the opening line.
    const std::size_t count = part.size() + (number == 0 ? 0 : 8);
    Require(count >= kPartSize || part.ends_with(kClosing), "a part is full or the last");
    const std::size_t lastLine = part.size() - part.rfind('\n', part.size() - 2) - 1;
    Require(count - lastLine < kPartSize || part.ends_with(kClosing), "it ends when it is full");
  }
  const std::string lines = WithCrLf(content);
  const std::string opened = lines.empty() ? lines : "@IPS 7\r\n" + lines;
  Require(whole == opened || whole == opened + kClosing, "the parts are the source, framed");
}

// Once through the editor, a file stays as it is.
void CheckEditing(const std::string& content) {
  testing::MemoryFileSystem files;
  files.Put(kFile, content);
  const base::VirtualClock clock;
  const base::AppIdentity identity;
  static const config::SelectorCatalogue selectors;
  static const config::ParameterCatalogue catalogue(selectors);
  const editor::ConfigWriter writer{files, clock, identity, catalogue};
  editor::EditingModel model;
  if (!editor::LoadConfigFile(files, kFile, model)) return;
  std::string saved;
  for (int round = 0; round < 3; ++round) {
    const editor::WriteOutcome outcome = writer.WriteConfigFile(model, {}, kFile);
    if (round == 0 && !outcome.Result) return;
    Require(static_cast<bool>(outcome.Result), "what was written once can be written again");
    // The first time, blanks around data go, and lines without data.
    Require(round < 2 || files.Get(kFile) == saved, "a saved file stays as it is");
    saved = files.Get(kFile);
    Require(static_cast<bool>(editor::LoadConfigFile(files, kFile, model)), "and can be read");
  }
}

}  // namespace
}  // namespace tintbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tintbench;
  fuzz::FuzzInput input(data, size);
  const int slave = input.Number(17);
  const auto readSize = static_cast<std::size_t>(1 + input.Number(99));
  const int repeats = 1 + input.Number(200);
  const std::string text = input.Rest();
  fuzz::CheckLine(text.substr(0, text.find('\n')));
  fuzz::CheckEmptyParameters(text, readSize);
  fuzz::CheckKnown(text, slave, readSize);
  fuzz::CheckEditing(text);
  std::string content;
  for (int i = 0; i < repeats && content.size() + text.size() < fuzz::kLargestFile; ++i) {
    content += text;
  }
  fuzz::CheckParts(content, readSize * 700);
  testing::MemoryFileSystem files;
  files.Put(fuzz::kFile, text);
  fuzz::Require(config::ReadExternalGroups(files, fuzz::kFile, slave) >= 0, "groups are counted");
  return 0;
}
