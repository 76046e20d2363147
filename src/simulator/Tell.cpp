#include <array>

#include "simulator/Machine.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

std::string Machine::Tell(std::string_view words) {
  Live();
  std::vector<std::string> pieces = Words(words);
  if (pieces.empty()) return "machine: a word is missing";
  const std::string verb = pieces.front();
  pieces.erase(pieces.begin());
  if (verb == "unplug") {
    Pull();
    return {};
  }
  if (verb == "plug") {
    plugged_ = true;
    return {};
  }
  if (verb == "fault") {
    std::string error = faults_.Set(pieces);
    if (const auto seconds = faults_.Value(Fault::Unplug)) {
      pullAt_ = now_ + *seconds;
      faults_.Clear(Fault::Unplug);
    }
    return error;
  }
  return "machine: unknown word " + verb;
}

std::string Machine::TellHelp() { return {}; }

}  // namespace tintbench::simulator
