// What befalls the line: spoilt bytes, and the faults that have their moment.
#include <algorithm>
#include <array>
#include <limits>

#include "simulator/Machine.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr std::array kMomentFaults = {Fault::Babble, Fault::Reset, Fault::Unplug};
constexpr std::string_view kBabble = "UUUUUUUUUUUUUUUU";

}  // namespace

// The bytes on their way over the line, in either direction, with all that happens to them there.
void Machine::Carry(Wire& wire, std::string_view bytes) {
  if (line_ == SerialLine::None) {
    std::string rubbish(bytes);
    for (char& byte : rubbish) byte = static_cast<char>(dice_.Byte() | 0x80U);
    return wire.Put(rubbish, now_);
  }
  if (!faults_.Any()) {
    faults_.CountBytes(bytes.size());
    return wire.Put(bytes, now_);
  }
  for (const char byte : bytes) {
    faults_.CountBytes(1);
    wire.Put(Spoiled(byte), now_);
    for (const Fault fault : kMomentFaults) {
      if (faults_.Hits(fault, dice_)) Expect(fault, wire.Free());
    }
  }
}

std::string Machine::Spoiled(char byte) {
  if (faults_.Hits(Fault::Drop, dice_)) return {};
  unsigned change = 0;
  if (faults_.Hits(Fault::Garble, dice_)) change ^= dice_.Byte();
  if (faults_.Hits(Fault::Flip, dice_)) change ^= dice_.Bit();
  const char spoilt = static_cast<char>(static_cast<unsigned char>(byte) ^ change);
  std::string spoiled(faults_.Hits(Fault::Double, dice_) ? 2 : 1, spoilt);
  if (faults_.Hits(Fault::Insert, dice_)) spoiled.push_back(static_cast<char>(dice_.Byte()));
  return spoiled;
}

void Machine::Expect(Fault what, double when) {
  const auto place =
      std::upper_bound(accidents_.begin(), accidents_.end(), when,
                       [](double time, const Accident& accident) { return time < accident.When; });
  accidents_.insert(place, {when, what});
}

void Machine::Forget(Fault what) {
  std::erase_if(accidents_, [what](const Accident& accident) { return accident.What == what; });
}

void Machine::Befall(Fault what) {
  switch (what) {
    case Fault::Babble:
      return Babble();
    case Fault::Reset:
      return BreakOff(kResetSeconds);
    case Fault::Unplug:
      return Pull();
    case Fault::Replug:
      plugged_ = true;
      return;
    default:
      return;
  }
}

// One piece of a stream without end, and the next right behind it.
void Machine::Babble() {
  fromMachine_.Put({}, now_);
  if (attached_ && plugged_) fromMachine_.Put(kBabble, now_);
  Forget(Fault::Babble);
  const double pause = static_cast<double>(kBabble.size()) * LineFormat{}.ByteSeconds();
  Expect(Fault::Babble, std::max(fromMachine_.Free(), now_ + pause));
}

void Machine::Pull() {
  if (!plugged_) return;
  plugged_ = false;
  attached_ = false;
  ++pulls_;
  toMachine_.Clear();
  fromMachine_.Clear();
  if (const auto seconds = faults_.Value(Fault::Replug)) Expect(Fault::Replug, now_ + *seconds);
}

// A moment that is told in seconds is awaited by the clock; the fault isn't kept.
std::string Machine::SetFault(const Words& words) {
  std::string error = faults_.Set(words);
  for (const Fault fault : kMomentFaults) {
    const std::string_view name = FaultKinds()[static_cast<std::size_t>(fault)].Name;
    if (words == Words{"none"} || words == Words{std::string(name), "off"}) Forget(fault);
    if (const auto seconds = faults_.Value(fault)) {
      Expect(fault, now_ + *seconds);
      faults_.Clear(fault);
    }
  }
  return error;
}

bool Machine::UnplugLine(const Words& words) {
  if (!words.empty()) return false;
  Pull();
  return true;
}

bool Machine::PlugLine(const Words& words) {
  if (!words.empty()) return false;
  plugged_ = true;
  return true;
}

bool Machine::SetSeed(const Words& words) {
  const std::optional<double> seed = words.size() == 1 ? WholeNumber(words[0]) : std::nullopt;
  if (!seed || *seed < 0 || *seed > std::numeric_limits<std::uint32_t>::max()) return false;
  dice_.Seed(static_cast<std::uint32_t>(*seed));
  return true;
}

}  // namespace tintbench::simulator
