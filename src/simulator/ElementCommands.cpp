// Commands that move something.
#include <algorithm>
#include <array>
#include <vector>

#include "base/Numbers.h"
#include "simulator/Commands.h"
#include "simulator/Plant.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr std::size_t kMostDigits = 128;      // two for each of 64 elements
constexpr double kLastUnstoppableTest = 3.0;  // firmware whose valve test only a reset ends
constexpr std::uint32_t kCapStuck = 0x4000;
constexpr std::uint32_t kLidMissing = 0x8011;

// The element numbers in an argument of two-digit groups; empty for an odd length.
std::vector<int> Pairs(const std::string& argument) {
  std::vector<int> numbers;
  if (argument.size() % 2 != 0) return numbers;
  for (std::size_t place = 0; place < argument.size(); place += 2) {
    numbers.push_back(base::LeadingInt(argument.substr(place, 2)));
  }
  return numbers;
}

// Where the elements of a table tell the address of the group in which they lie.
struct GroupField {
  std::string_view Tag;
  std::size_t Field;
};

constexpr GroupField kValves{"@CIR", 5};
constexpr GroupField kStirrings{"@AGI", 5};
constexpr GroupField kMotors{"@MOT", 4};

// True if one of the elements lies in a group that is off.
bool Powerless(const Plant& plant, const GroupField& table, const std::vector<int>& elements) {
  return std::any_of(elements.begin(), elements.end(), [&](int element) {
    return plant.TheGroups.IsOff(plant.Config.Number(table.Tag, element, table.Field, 0));
  });
}

// The answer for elements that can't be reached.
Reply Unreached(const std::string& argument) { return {"E" + argument}; }

Reply Echo(bool done, const std::string& argument) {
  return done ? Reply{"A" + argument} : Refused();
}

bool MaySwitch(const Plant& plant, double now) {
  return plant.SpiEnabled && !plant.TheValveTest.Running(now);
}

template <bool kOpen>
Reply SwitchValves(Plant& plant, const std::string& argument, double now) {
  const std::vector<int> valves = Pairs(argument);
  if (Powerless(plant, kValves, valves)) return Unreached(argument);
  return Echo(
      MaySwitch(plant, now) && !valves.empty() && plant.TheElements.Valves(valves, kOpen, now),
      argument);
}

template <bool kOn>
Reply SwitchStirrings(Plant& plant, const std::string& argument, double now) {
  const std::vector<int> stirrings = Pairs(argument);
  if (Powerless(plant, kStirrings, stirrings)) return Unreached(argument);
  return Echo(
      plant.SpiEnabled && !stirrings.empty() && plant.TheElements.Stirrings(stirrings, kOn, now),
      argument);
}

template <CapPosition kTarget>
Reply MoveCap(Plant& plant, const std::string& argument, double now) {
  const int cap = base::LeadingInt(argument);
  const std::optional<Caps::Move> move = plant.TheCaps.Begin(cap, kTarget, now);
  if (!move) return Refused();
  Counter& counter = *plant.TheStatistics.Find('P', cap);
  counter.Add(move->Seconds, kTarget == CapPosition::Closed ? 0.0 : 1.0);
  if (kTarget == CapPosition::Closed) plant.TheStatistics.Find('E', 0)->Add(0.0, 1.0);
  if (!move->Good) {
    plant.Errors.Add(kCapStuck + static_cast<std::uint32_t>(cap), now + move->Seconds);
  }
  return {"A" + argument + (move->Good ? "K" : "N"), move->Seconds};
}

Reply Punch(Plant& plant, const std::string&, double now) {
  if (!plant.TheShelf.Punch(now)) return Refused();
  plant.TheStatistics.Find('F', 0)->Add(0.0, 1.0);
  if (!plant.TheShelf.CanThere()) plant.Errors.Add(kLidMissing, now);
  return {"A"};
}

template <bool kUp>
Reply MoveShelf(Plant& plant, const std::string&, double now) {
  if (!plant.TheShelf.Exists()) return Refused();
  const bool began = kUp ? plant.TheShelf.Up(now) : plant.TheShelf.Down(now);
  if (began) plant.TheStatistics.Find('S', 0)->Add(0.0, 1.0);
  return {"A"};
}

Reply ShelfPosition(Plant& plant, const std::string&, double now) {
  if (!plant.TheShelf.Exists()) return Refused();
  return {"A" + base::LastDigits(plant.TheShelf.Steps(now), 4)};
}

Reply MotorOn(Plant& plant, const std::string& argument, double now) {
  const std::string name = argument.substr(0, 2);
  const int speed = base::LeadingInt(argument.substr(2));
  if (Powerless(plant, kMotors, Pairs(name))) return Unreached(name);
  return Echo(plant.TheElements.MotorOn(base::LeadingInt(name), speed, now), name);
}

Reply MotorOff(Plant& plant, const std::string& argument, double now) {
  if (Powerless(plant, kMotors, Pairs(argument))) return Unreached(argument);
  return Echo(plant.TheElements.MotorOff(base::LeadingInt(argument), now), argument);
}

Reply PumpTimes(Plant& plant, const std::string& argument, double now) {
  const int motor = base::LeadingInt(argument);
  if (!plant.Config.Has("@MOT", motor)) return Refused();
  const int zero = plant.TheElements.ZeroPumpMilliseconds(motor, now);
  const int rpm = plant.TheElements.RpmHundredths(motor, now);
  return {"A" + base::LastDigits(zero, 10) + base::LastDigits(rpm, 10)};
}

Reply AllOff(Plant& plant, const std::string&, double now) {
  plant.TheElements.AllOff(now);
  if (plant.FirmwareNumber() > kLastUnstoppableTest) plant.TheValveTest.Stop(now, plant.Errors);
  return {"A"};
}

Reply TestValves(Plant& plant, const std::string&, double now) {
  return plant.SpiEnabled && plant.TheValveTest.Begin(now, plant.Errors) ? Reply{"A"} : Refused();
}

constexpr std::array kElementRows = {
    CommandRow{"A", 2, kMostDigits, Characters::Digits, SwitchValves<true>},
    CommandRow{"G", 2, kMostDigits, Characters::Digits, SwitchValves<false>},
    CommandRow{"B", 2, kMostDigits, Characters::Digits, SwitchStirrings<true>},
    CommandRow{"M", 2, kMostDigits, Characters::Digits, SwitchStirrings<false>},
    CommandRow{"DO", 2, 2, Characters::Digits, MoveCap<CapPosition::Open>},
    CommandRow{"DC", 2, 2, Characters::Digits, MoveCap<CapPosition::Closed>},
    CommandRow{"DM", 2, 2, Characters::Digits, MoveCap<CapPosition::Middle>},
    CommandRow{"EZ", 0, 0, Characters::Any, Punch},
    CommandRow{"EU", 0, 0, Characters::Any, MoveShelf<true>},
    CommandRow{"ED", 0, 0, Characters::Any, MoveShelf<false>},
    CommandRow{"EP", 0, 0, Characters::Any, ShelfPosition},
    CommandRow{"F", 5, 5, Characters::Digits, MotorOn},
    CommandRow{"L", 2, 2, Characters::Digits, MotorOff},
    CommandRow{"O", 2, 2, Characters::Digits, PumpTimes},
    CommandRow{"Z", 0, 0, Characters::Any, AllOff},
    CommandRow{"V", 0, 0, Characters::Any, TestValves},
};

}  // namespace

std::span<const CommandRow> ElementCommands() { return kElementRows; }

}  // namespace tintbench::simulator
