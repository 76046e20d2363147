// Commands on the machine's memory, PWM channels and statistics.
#include <array>
#include <charconv>

#include "base/Numbers.h"
#include "simulator/Commands.h"
#include "simulator/Plant.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr std::size_t kAddressLength = 8;
constexpr std::size_t kValueLength = 10;  // of a statistics value

bool IsElementKind(char kind) {
  return Statistics::kElementKinds.find(kind) != std::string_view::npos;
}

bool IsSingleKind(char kind) {
  return Statistics::kSingleKinds.find(kind) != std::string_view::npos;
}

Reply ReadMemory(Plant& plant, const std::string& argument, double) {
  const auto address = HexNumber(std::string_view(argument).substr(1));
  if (!address || (argument[0] != 'B' && argument[0] != 'W')) return Refused();
  const bool word = argument[0] == 'W';
  return {"A" +
          base::ToHex(word ? plant.TheMemory.Word(*address) : plant.TheMemory.Byte(*address), 4)};
}

Reply WriteMemory(Plant& plant, const std::string& argument, double) {
  const std::string_view text = argument;
  const auto address = HexNumber(text.substr(1, kAddressLength));
  const auto data = HexNumber(text.substr(1 + kAddressLength));
  if (!address || !data || (text[0] != 'B' && text[0] != 'W')) return Refused();
  const bool done =
      text[0] == 'W' ? plant.TheMemory.WriteWord(*address, static_cast<std::uint16_t>(*data))
                     : plant.TheMemory.WriteByte(*address, static_cast<std::uint8_t>(*data & 0xFF));
  return {done ? "AK" : "AN"};
}

Reply CreateMask(Plant& plant, const std::string& argument, double) {
  if (argument.size() % 2 != 0) return Refused();
  plant.Mask = argument;
  return {"A" + argument};
}

Reply ClearMask(Plant& plant, const std::string&, double) {
  plant.Mask.clear();
  return {"A"};
}

Reply ReadPwm(Plant& plant, const std::string& argument, double) {
  const std::optional<Pwm> pwm = plant.Pwms.Read(base::LeadingInt(argument));
  if (!pwm) return Refused();
  return {"A" + base::LastDigits(pwm->Frequency, 4) + base::LastDigits(pwm->DutyCycle, 4)};
}

Reply WritePwm(Plant& plant, const std::string& argument, double) {
  const Pwm pwm{base::LeadingInt(argument.substr(2, 4)), base::LeadingInt(argument.substr(6))};
  return plant.Pwms.Write(base::LeadingInt(argument.substr(0, 2)), pwm) ? Reply{"AK"} : Refused();
}

std::string Value(double value) {
  return base::LastDigits(static_cast<std::int64_t>(value), int{kValueLength});
}

std::string Record(const Counter& counter, int element, double now) {
  return base::LastDigits(element, 2) + Value(counter.Seconds(now)) + Value(counter.Events(now));
}

// "M01" gives the element with both its values, "T" the one value of a single kind.
Reply ReadStatistics(Plant& plant, const std::string& argument, double now) {
  const char kind = argument[0];
  const std::string name = argument.substr(1);
  if (IsSingleKind(kind) && name.empty()) {
    const Counter& counter = *plant.TheStatistics.Find(kind, 0);
    return {"A" + Value(kind == 'T' ? counter.Seconds(now) : counter.Events(now))};
  }
  if (!IsElementKind(kind) || name.size() != 2 || !AllDigits(name)) return Refused();
  const int element = base::LeadingInt(name);
  const Counter* counter = plant.TheStatistics.Find(kind, element);
  return counter == nullptr ? Refused() : Reply{"A" + Record(*counter, element, now)};
}

Reply ReadAllStatistics(Plant& plant, const std::string& argument, double now) {
  const char kind = argument[0];
  if (!IsElementKind(kind)) return Refused();
  const std::vector<int>& elements = plant.TheStatistics.Elements(kind);
  const int count = plant.TheStatistics.ToldRecords.value_or(static_cast<int>(elements.size()));
  std::string text = "A" + base::LastDigits(count, 2);
  for (const int element : elements) {
    text += Record(*plant.TheStatistics.Find(kind, element), element, now);
  }
  return {text};
}

std::uint64_t BigNumber(std::string_view digits) {
  std::uint64_t value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

// A single kind takes one value; a second one behind it is passed over.
Reply WriteStatistics(Plant& plant, const std::string& argument, double now) {
  const char kind = argument[0];
  const std::size_t start = IsElementKind(kind) ? 3 : 1;
  const std::string_view values =
      std::string_view(argument).substr(std::min(start, argument.size()));
  const bool two = values.size() == 2 * kValueLength;
  const bool fits = two || (IsSingleKind(kind) && values.size() == kValueLength);
  if (!fits || !AllDigits(std::string_view(argument).substr(1))) return Refused();
  const int element = start == 1 ? 0 : base::LeadingInt(argument.substr(1, 2));
  Counter* counter = plant.TheStatistics.Find(kind, element);
  if (counter == nullptr) return Refused();
  const auto first = static_cast<double>(BigNumber(values.substr(0, kValueLength)));
  if (IsElementKind(kind)) {
    const auto second = static_cast<double>(BigNumber(values.substr(kValueLength)));
    counter->Set(first, second, now);
  } else {
    counter->Set(kind == 'T' ? first : 0.0, kind == 'T' ? 0.0 : first, now);
  }
  return {"A"};
}

Reply StoreStatistics(Plant& plant, const std::string&, double now) {
  constexpr double kWriting = 0.5;
  return plant.TheStatistics.Store(now) ? Reply{"A", kWriting} : Refused();
}

constexpr std::array kDataRows = {
    CommandRow{"R", 9, 9, Characters::Any, ReadMemory},
    CommandRow{"W", 13, 13, Characters::Any, WriteMemory},
    CommandRow{"NM", 2, 128, Characters::Digits, CreateMask},
    CommandRow{"NP", 0, 0, Characters::Any, ClearMask},
    CommandRow{"TR", 2, 2, Characters::Digits, ReadPwm},
    CommandRow{"TW", 10, 10, Characters::Digits, WritePwm},
    CommandRow{"KR", 1, 3, Characters::Any, ReadStatistics},
    CommandRow{"KT", 11, 23, Characters::Any, WriteStatistics},
    CommandRow{"KV", 1, 1, Characters::Any, ReadAllStatistics},
    CommandRow{"KM", 0, 0, Characters::Any, StoreStatistics},
};

}  // namespace

std::span<const CommandRow> DataCommands() { return kDataRows; }

}  // namespace tintbench::simulator
