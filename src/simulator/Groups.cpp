#include "simulator/Groups.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "base/Numbers.h"
#include "base/Text.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr int kAnalogue = 1;

// What the machine knows of each type of input: the X function that watches it and, of a digital
// one, the error, by motor, when it isn't as it should be.
struct InputKind {
  int Kind;
  int Type;
  int Function;
  std::uint32_t AlarmFamily;
};

constexpr std::array kInputs = {
    InputKind{0, 31, 1, 0x0E00},    InputKind{0, 32, 2, 0x0E00},    InputKind{0, 33, 3, 0x2400},
    InputKind{0, 38, 4, 0x2B00},    InputKind{0, 35, 5, 0x2700},    InputKind{0, 37, 6, 0x1700},
    InputKind{0, 34, 7, 0x2600},    InputKind{0, 36, 8, 0x2500},    InputKind{kAnalogue, 1, 9, 0},
    InputKind{kAnalogue, 2, 10, 0}, InputKind{kAnalogue, 3, 11, 0}, InputKind{kAnalogue, 4, 12, 0},
};

// The errors, by motor, of what an instrument measures: out of its band, and with its wire cut.
struct InstrumentErrors {
  Quantity What;
  std::uint32_t AlarmFamily;
  std::uint32_t CutFamily;
};

constexpr std::array kInstrumentErrors = {
    InstrumentErrors{Quantity::SuctionPressure, 0x2900, 0x2D00},
    InstrumentErrors{Quantity::DeliveryPressure, 0x2800, 0x2C00},
    InstrumentErrors{Quantity::Level, 0x2B00, 0x2F00},
    InstrumentErrors{Quantity::Temperature, 0x2A00, 0x2E00},
};

constexpr int kFlowmeter = 35;
constexpr int kContactor = 36;
constexpr int kTankReserve = 38;
constexpr double kReserve = 0.1;  // share of the level's band below which the tank calls
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

std::string Groups::Functions(int group) const {
  return configuration_.Field("@FUN", instruments_.Motor(group), 2);
}

std::string Groups::Read(const GroupInput& input, double now, ErrorList& errors) const {
  std::string answer = Answer(input, now, errors);
  const auto found = answers_.find(input.Group);
  if (found == answers_.end()) return answer;
  const AnswerForm& form = found->second;
  answer[0] = form.Letter.value_or(answer[0]);
  answer[1] = form.State.value_or(answer[1]);
  answer.resize(form.Length.value_or(answer.size()), '0');
  return answer;
}

std::string Groups::Answer(const GroupInput& input, double now, ErrorList& errors) const {
  if (!Exists(input.Group)) return "R0" + std::string(kNoValue);
  if (off_.contains(input.Group)) return "E1" + std::string(kNoValue);
  if (!Has(input)) return "A0" + std::string(kNoValue);
  const auto fixed = fixed_.find(input);
  const bool isFixed = fixed != fixed_.end();
  const auto [alarm, cut] = ErrorsOf(input);
  if (isFixed && !fixed->second.Value) {
    if (Watched(input) && cut != 0) errors.Add(cut, now);
    return "A1" + std::string(kNoValue);
  }
  const double value = isFixed ? *fixed->second.Value : Measured(input, now);
  const bool judged = isFixed || input.Kind == kAnalogue;
  if (judged && Watched(input) && !InBand(input, value)) errors.Add(alarm, now);
  const auto raw =
      static_cast<std::int32_t>(std::lround(input.Kind == kAnalogue ? value * 10.0 : value));
  return "A2" + base::ToHex(static_cast<std::uint32_t>(raw), 8);
}

// Types 3 and 4 are level and temperature, in either order: the unit of the scale tells.
Quantity Groups::QuantityOf(const GroupInput& input) const {
  if (input.Type == 1) return Quantity::SuctionPressure;
  if (input.Type == 2) return Quantity::DeliveryPressure;
  const bool degrees = configuration_.Field("@IAN", input.Type, 3).starts_with('C');
  return degrees ? Quantity::Temperature : Quantity::Level;
}

// The errors of an input out of its band and with its wire cut; 0 for none.
std::pair<std::uint32_t, std::uint32_t> Groups::ErrorsOf(const GroupInput& input) const {
  const auto motor = static_cast<std::uint32_t>(instruments_.Motor(input.Group));
  if (input.Kind != kAnalogue) return {FindKind(input)->AlarmFamily + motor, 0};
  const Quantity what = QuantityOf(input);
  const auto* errors =
      std::find_if(kInstrumentErrors.begin(), kInstrumentErrors.end(),
                   [what](const InstrumentErrors& row) { return row.What == what; });
  return {errors->AlarmFamily + motor, errors->CutFamily + motor};
}

double Groups::Measured(const GroupInput& input, double now) const {
  const bool runs = instruments_.Runs(input.Group);
  if (input.Kind != kAnalogue) {
    if (input.Type == kFlowmeter || input.Type == kContactor) return runs ? 1.0 : 0.0;
    const double level = instruments_.Share(input.Group, Quantity::Level, now);
    return input.Type == kTankReserve && level < kReserve ? 1.0 : 0.0;
  }
  const auto edge = [&](std::size_t field, double usual) {
    return WholeNumber(configuration_.Field("@IAN", input.Type, field)).value_or(usual);
  };
  const double low = edge(7, 0.0);
  const double high = edge(8, 100.0);
  const double share = instruments_.Share(input.Group, QuantityOf(input), now);
  const double value = low + (high - low) * share;
  return std::max(value, edge(4, value));
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
