#include "simulator/Groups.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "base/Numbers.h"
#include "base/Text.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

// What the machine knows of each type of input: the X function that watches it and the errors,
// by motor, when it is out of its band and when its wire is cut.
struct InputKind {
  int Kind;
  int Type;
  int Function;
  std::uint32_t AlarmFamily;
  std::uint32_t CutFamily;
};

constexpr std::array kInputs = {
    InputKind{0, 31, 1, 0x0E00, 0},      InputKind{0, 32, 2, 0x0E00, 0},
    InputKind{0, 33, 3, 0x2400, 0},      InputKind{0, 38, 4, 0x2B00, 0},
    InputKind{0, 35, 5, 0x2700, 0},      InputKind{0, 37, 6, 0x1700, 0},
    InputKind{0, 34, 7, 0x2600, 0},      InputKind{0, 36, 8, 0x2500, 0},
    InputKind{1, 1, 9, 0x2900, 0x2D00},  InputKind{1, 2, 10, 0x2800, 0x2C00},
    InputKind{1, 3, 11, 0x2A00, 0x2E00}, InputKind{1, 4, 12, 0x2B00, 0x2F00},
};

constexpr int kAnalogue = 1;
constexpr int kFlowmeter = 35;
constexpr int kContactor = 36;
constexpr int kTankReserve = 38;
constexpr std::string_view kNoValue = "00000000";

const InputKind* FindKind(const GroupInput& input) {
  const auto found = std::find_if(kInputs.begin(), kInputs.end(), [&](const InputKind& row) {
    return row.Kind == input.Kind && row.Type == input.Type;
  });
  return found == kInputs.end() ? nullptr : &*found;
}

std::string_view TableOf(const GroupInput& input) {
  return input.Kind == kAnalogue ? "@IAN" : "@IDI";
}

// A smooth movement between -1 and 1, different for each input.
double Wave(const GroupInput& input, double now) {
  const double phase = input.Group * 1.3 + input.Type * 0.7;
  const double turn = 2.0 * std::numbers::pi;
  return 0.7 * std::sin(turn * now / 97.0 + phase) + 0.3 * std::sin(turn * now / 11.0 + 2 * phase);
}

}  // namespace

bool Groups::Has(const GroupInput& input) const {
  const std::string list =
      configuration_.Field(TableOf(input), input.Type, input.Kind == kAnalogue ? 12 : 5);
  const std::string address = base::ToHex(static_cast<std::uint64_t>(input.Group), 2);
  for (std::size_t place = 0; place + 2 <= list.size(); place += 2) {
    if (base::ToUpper(list.substr(place, 2)) == address) return FindKind(input) != nullptr;
  }
  return false;
}

bool Groups::Exists(int group) const {
  struct AddressField {
    std::string_view Tag;
    std::size_t Field;
  };
  for (const AddressField& table :
       {AddressField{"@CIR", 5}, AddressField{"@MOT", 4}, AddressField{"@AGI", 5}}) {
    for (const int element : configuration_.Elements(table.Tag)) {
      if (configuration_.Number(table.Tag, element, table.Field, 0) == group) return group > 0;
    }
  }
  return false;
}

int Groups::Motor(int group) const {
  for (const int motor : configuration_.Elements("@MOT")) {
    if (configuration_.Number("@MOT", motor, 4, 0) == group) return motor;
  }
  return 0;
}

std::string Groups::Functions(int group) const {
  return configuration_.Field("@FUN", Motor(group), 2);
}

std::string Groups::Read(const GroupInput& input, double now, ErrorList& errors) const {
  if (!Exists(input.Group)) return "R0" + std::string(kNoValue);
  if (off_.contains(input.Group)) return "E1" + std::string(kNoValue);
  if (!Has(input)) return "A0" + std::string(kNoValue);
  const auto fixed = fixed_.find(input);
  const bool isFixed = fixed != fixed_.end();
  const auto motor = static_cast<std::uint32_t>(Motor(input.Group));
  const InputKind& kind = *FindKind(input);
  if (isFixed && !fixed->second.Value) {
    if (Watched(input) && kind.CutFamily != 0) errors.Add(kind.CutFamily + motor, now);
    return "A1" + std::string(kNoValue);
  }
  const double value = isFixed ? *fixed->second.Value : Drifting(input, now);
  if (isFixed && Watched(input) && !InBand(input, value)) errors.Add(kind.AlarmFamily + motor, now);
  const auto raw =
      static_cast<std::int32_t>(std::lround(input.Kind == kAnalogue ? value * 10.0 : value));
  return "A2" + base::ToHex(static_cast<std::uint32_t>(raw), 8);
}

// Analogue inputs stay inside their alarm band; the motor of the group moves the pressures.
double Groups::Drifting(const GroupInput& input, double now) const {
  const bool runs = elements_.IsRunning(Motor(input.Group));
  const double wave = Wave(input, now);
  if (input.Kind != kAnalogue) {
    if (input.Type == kFlowmeter || input.Type == kContactor) return runs ? 1.0 : 0.0;
    return input.Type == kTankReserve && wave > 0.8 ? 1.0 : 0.0;
  }
  const double low = WholeNumber(configuration_.Field("@IAN", input.Type, 7)).value_or(0.0);
  const double high = WholeNumber(configuration_.Field("@IAN", input.Type, 8)).value_or(100.0);
  const double shift = runs && input.Type <= 2 ? (input.Type == 1 ? -0.1 : 0.1) : 0.0;
  return (low + high) / 2.0 + (high - low) * (0.3 * wave + shift);
}

bool Groups::Watched(const GroupInput& input) const {
  const int function = FindKind(input)->Function;
  const auto switched = switched_.find({input.Group, function});
  if (switched != switched_.end()) return switched->second;
  const std::string functions = Functions(input.Group);
  const auto place = static_cast<std::size_t>(function - 1);
  return place < functions.size() && functions[place] == '1';
}

bool Groups::InBand(const GroupInput& input, double value) const {
  if (input.Kind != kAnalogue) return value == 0.0;
  const double low = WholeNumber(configuration_.Field("@IAN", input.Type, 7)).value_or(value);
  const double high = WholeNumber(configuration_.Field("@IAN", input.Type, 8)).value_or(value);
  return value >= low && value <= high;
}

bool Groups::SetFunction(int group, int function, bool on) {
  const std::string functions = Functions(group);
  const auto place = static_cast<std::size_t>(function - 1);
  if (!Exists(group) || off_.contains(group)) return false;
  if (function < 1 || place >= functions.size() || functions[place] != '1') return false;
  switched_[{group, function}] = on;
  return true;
}

void Groups::SwitchGroup(int group, bool on) {
  if (on) {
    off_.erase(group);
  } else {
    off_.insert(group);
  }
}

bool Groups::Fix(const GroupInput& input, double value) {
  if (!Has(input)) return false;
  fixed_[input] = {std::clamp(value, -1e8, 1e8)};
  return true;
}

bool Groups::Cut(const GroupInput& input) {
  if (!Has(input)) return false;
  fixed_[input] = {std::nullopt};
  return true;
}

bool Groups::Free(const GroupInput& input) {
  fixed_.erase(input);
  return Has(input);
}

}  // namespace tintbench::simulator
