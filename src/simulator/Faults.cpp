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
    FaultKind{Fault::Twice, "twice", Times, 0, true, "gives the answer two times"},
    FaultKind{Fault::Foreign, "foreign", Times, 0, true, "gives the answer of another command"},
    FaultKind{Fault::Cancel, "cancel", Block, 2, false, "breaks a transfer off with two CAN"},
    FaultKind{Fault::OneCancel, "one-can", Block, 2, false,
              "puts one CAN in front of a block or ACK"},
    FaultKind{Fault::Bel, "bel", Block, 1, false, "breaks off with BEL for a block or its request"},
    FaultKind{Fault::Stall, "stall", Block, 2, false, "falls silent in a transfer"},
    FaultKind{Fault::BadBlock, "bad-block", Block, 2, false, "spoils the check of one block"},
    FaultKind{Fault::BadComplement, "bad-complement", Block, 2, false,
              "spoils the complement of a block's number"},
    FaultKind{Fault::SkipBlock, "skip-block", Block, 2, false,
              "leaves one block out, or takes it for received"},
    FaultKind{Fault::RepeatBlock, "repeat-block", Block, 2, false,
              "sends one block again, or asks for it again"},
    FaultKind{Fault::Nak, "nak", Block, 2, false, "answers one good block with NAK"},
    FaultKind{Fault::LoseAck, "lose-ack", Block, 2, false, "loses one acknowledgement"},
    FaultKind{Fault::DoubleAck, "double-ack", Block, 2, false, "acknowledges one block two times"},
    FaultKind{Fault::LoseEot, "lose-eot", Times, 1, false, "loses the end of a transfer"},
    FaultKind{Fault::NakEot, "nak-eot", Times, 1, false, "answers the end of a transfer with NAK"},
    FaultKind{Fault::NoStart, "no-start", None, 0, false,
              "asks for no block, or sends none, when a transfer begins"},
    FaultKind{Fault::NoEnd, "no-end", None, 0, false, "gives no K behind a transfer"},
    FaultKind{Fault::CorruptConfig, "corrupt-config", None, 0, false,
              "sends a configuration that must be refused"},
    FaultKind{Fault::Drop, "drop", Rate, 0.01, false, "loses bytes, both ways"},
    FaultKind{Fault::Garble, "garble", Rate, 0.01, false, "changes bytes, both ways"},
    FaultKind{Fault::Flip, "flip", Rate, 0.01, false, "changes one bit of bytes, both ways"},
    FaultKind{Fault::Insert, "insert", Rate, 0.01, false, "puts bytes in, both ways"},
    FaultKind{Fault::Double, "double", Rate, 0.01, false, "repeats bytes, both ways"},
    FaultKind{Fault::Babble, "babble", Moment, 0, false, "sends without end from then on"},
    FaultKind{Fault::Reset, "reset", Moment, 0, false, "resets itself then"},
    FaultKind{Fault::Unplug, "unplug", Moment, 0, false, "takes the line off then"},
    FaultKind{Fault::Replug, "replug", Seconds, 5, false, "puts it back so long after"},
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

// "@12" as 12; 0 if the word is no place of a fault of this kind.
std::size_t ReadPlace(const FaultKind& kind, std::string_view word) {
  constexpr double kFarthest = 1e9;
  if (word.front() != '@' || (kind.Value != Rate && kind.Value != Moment)) return 0;
  const std::optional<double> place = WholeNumber(word.substr(1));
  return place && *place >= 1 && *place <= kFarthest ? static_cast<std::size_t>(*place) : 0;
}

// "part=2" as 2; 0 if the word is no part, or the fault none of a transfer.
std::size_t ReadPart(const FaultKind& kind, std::string_view word) {
  constexpr std::string_view kPart = "part=";
  constexpr double kMostParts = 999;
  if (!word.starts_with(kPart) || kind.Id < Fault::Cancel || kind.Id > Fault::NoStart) return 0;
  const std::optional<double> part = WholeNumber(word.substr(kPart.size()));
  return part && *part >= 1 && *part <= kMostParts ? static_cast<std::size_t>(*part) : 0;
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
    } else if (!TakeWord(*kind, words[i], active)) {
      return "fault " + words.front() + ": wrong value " + words[i];
    }
  }
  std::erase_if(active_, [&](const Active& other) {
    const bool replaced =
        active.Place == 0 && other.Command == active.Command && other.Part == active.Part;
    return other.Id == active.Id && (off || replaced);
  });
  if (!off) active_.push_back(std::move(active));
  return {};
}

bool FaultSet::TakeWord(const FaultKind& kind, const std::string& word, Active& active) const {
  if (word.front() == '#') {
    active.Command = CommandName(word);
    return kind.PerCommand;
  }
  if (const std::size_t place = ReadPlace(kind, word)) {
    active.Place = bytes_ + place;
    return true;
  }
  if (const std::size_t part = ReadPart(kind, word)) {
    active.Part = part;
    return true;
  }
  const std::optional<double> value = ReadValue(kind, word);
  active.Value = value.value_or(active.Value);
  return value.has_value();
}

std::optional<double> FaultSet::Value(Fault fault, std::size_t part) const {
  for (const Active& active : active_) {
    const bool here = active.Part == 0 || active.Part == part;
    if (active.Id == fault && active.Command.empty() && active.Place == 0 && here) {
      return active.Value;
    }
  }
  return std::nullopt;
}

bool FaultSet::Hits(Fault fault, Dice& dice) {
  for (auto active = active_.begin(); active != active_.end(); ++active) {
    if (active->Id != fault) continue;
    if (active->Place == 0 && dice.Throw(active->Value)) return true;
    if (active->Place == bytes_) {
      active_.erase(active);
      return true;
    }
  }
  return false;
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

// Neighbouring seeds are spread by the golden ratio, for a state that differs in few bits gives
// throws that differ little at first. The state must not be 0.
void Dice::Seed(std::uint32_t seed) {
  state_ = (seed * 2654435769U) ^ kState;
  if (state_ == 0) state_ = kState;
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
