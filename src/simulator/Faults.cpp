#include "simulator/Faults.h"

#include <algorithm>
#include <array>

#include "base/Text.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

using enum FaultValue;

constexpr std::array kKinds = {
    FaultKind{Fault::Silent, "silent", Times, 0, true, "gives no answer"},
    FaultKind{Fault::Late, "late", Seconds, 3, true, "answers so much later"},
    FaultKind{Fault::Short, "short", Characters, 1, true, "leaves out the end of the answer"},
    FaultKind{Fault::Long, "long", Characters, 1, true, "adds characters behind the answer"},
    FaultKind{Fault::Pause, "pause", Seconds, 0.2, true, "pauses in the middle of the answer"},
    FaultKind{Fault::Refuse, "refuse", Times, 0, true, "answers R"},
    FaultKind{Fault::Fail, "fail", Times, 0, true, "accepts, and tells N in place of K"},
    FaultKind{Fault::Echo, "echo", Times, 0, true, "gives back a wrong argument"},
    FaultKind{Fault::Cancel, "cancel", Block, 2, false, "breaks a transfer off with two CAN"},
    FaultKind{Fault::Stall, "stall", Block, 2, false, "falls silent in a transfer"},
    FaultKind{Fault::BadBlock, "bad-block", Block, 2, false, "spoils the check of one block"},
    FaultKind{Fault::LoseAck, "lose-ack", Block, 2, false, "loses one acknowledgement"},
    FaultKind{Fault::NoEnd, "no-end", None, 0, false, "gives no K behind a transfer"},
    FaultKind{Fault::CorruptConfig, "corrupt-config", None, 0, false,
              "sends a configuration that must be refused"},
    FaultKind{Fault::Drop, "drop", Rate, 0.01, false, "loses bytes, both ways"},
    FaultKind{Fault::Garble, "garble", Rate, 0.01, false, "changes bytes, both ways"},
    FaultKind{Fault::Double, "double", Rate, 0.01, false, "repeats bytes, both ways"},
    FaultKind{Fault::Unplug, "unplug", Seconds, 0, false, "takes the line off after that time"},
};

const FaultKind* FindKind(std::string_view name) {
  const auto found = std::find_if(kKinds.begin(), kKinds.end(),
                                  [&](const FaultKind& kind) { return kind.Name == name; });
  return found == kKinds.end() ? nullptr : &*found;
}

// "#jf*" as "JF".
std::string CommandName(std::string_view word) {
  word.remove_prefix(1);
  if (!word.empty() && word.back() == '*') word.remove_suffix(1);
  return base::ToUpper(word);
}

std::optional<double> ReadValue(const FaultKind& kind, std::string_view word) {
  const std::optional<double> value = WholeNumber(word);
  if (!value || *value < 0 || kind.Value == None) return std::nullopt;
  if (kind.Value == Rate && *value > 1) return std::nullopt;
  return value;
}

}  // namespace

std::span<const FaultKind> FaultKinds() { return kKinds; }

std::string FaultSet::Set(const std::vector<std::string>& words) {
  if (words.empty()) return "fault: a name is missing";
  if (words.front() == "none") {
    Clear();
    return {};
  }
  const FaultKind* kind = FindKind(words.front());
  if (kind == nullptr) return "fault: no fault has the name " + words.front();
  Active active{kind->Id, {}, kind->Default};
  bool off = false;
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (words[i] == "off") {
      off = true;
    } else if (words[i].front() == '#') {
      if (!kind->PerCommand) return "fault " + words.front() + ": not for a single command";
      active.Command = CommandName(words[i]);
    } else if (const std::optional<double> value = ReadValue(*kind, words[i])) {
      active.Value = *value;
    } else {
      return "fault " + words.front() + ": wrong value " + words[i];
    }
  }
  std::erase_if(active_, [&](const Active& other) {
    return other.Id == active.Id && (off || other.Command == active.Command);
  });
  if (!off) active_.push_back(std::move(active));
  return {};
}

std::optional<double> FaultSet::Value(Fault fault) const {
  for (const Active& active : active_) {
    if (active.Id == fault && active.Command.empty()) return active.Value;
  }
  return std::nullopt;
}

std::optional<double> FaultSet::Strike(Fault fault, std::string_view mnemonic,
                                       std::string_view text) {
  for (auto active = active_.begin(); active != active_.end(); ++active) {
    if (active->Id != fault) continue;
    const std::string& command = active->Command;
    if (!command.empty() && command != mnemonic && command != text) continue;
    const double value = active->Value;
    const bool counted = kKinds[static_cast<std::size_t>(fault)].Value == Times && value > 0;
    if (counted && --active->Value < 1) active_.erase(active);
    return value;
  }
  return std::nullopt;
}

void FaultSet::Clear(Fault fault) {
  std::erase_if(active_, [fault](const Active& active) { return active.Id == fault; });
}

// Marsaglia's xorshift generator with 32 bits of state.
std::uint32_t Dice::Next() {
  state_ ^= state_ << 13;
  state_ ^= state_ >> 17;
  state_ ^= state_ << 5;
  return state_;
}

bool Dice::Throw(double rate) { return Next() / 4294967296.0 < rate; }

unsigned char Dice::Byte() { return static_cast<unsigned char>(1 + Next() % 255); }

}  // namespace tintbench::simulator
