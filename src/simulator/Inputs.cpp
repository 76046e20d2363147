#include "simulator/Inputs.h"

#include <array>
#include <cstddef>

#include "simulator/Plant.h"

namespace tintbench::simulator {

namespace {

// A sensor of the configuration's list and what makes it active; `cap` is the cap that its line
// names.
struct Sensor {
  int Number;
  bool (*Active)(const Plant& plant, int cap, double now);
};

bool CapIsOpen(const Plant& plant, int cap, double now) {
  return plant.TheCaps.At(cap, now) == CapPosition::Open;
}

bool CapIsClosed(const Plant& plant, int cap, double now) {
  return plant.TheCaps.At(cap, now) == CapPosition::Closed;
}

constexpr double kPlaneTolerance = 5.0;  // mm about the reference plane

bool AtReferencePlane(const Plant& plant, int, double now) {
  const int plane = plant.Config.Number("@SGA", 14, 0);
  const double distance = plant.TheShelf.Height(now) - plane;
  return plane > 0 && distance >= -kPlaneTolerance && distance <= kPlaneTolerance;
}

constexpr std::array kSensors = {
    Sensor{1, [](const Plant& p, int, double now) { return p.TheShelf.IsHigh(now); }},
    Sensor{2, [](const Plant& p, int, double now) { return p.TheShelf.IsLow(now); }},
    Sensor{3, [](const Plant& p, int, double) { return p.DoorOpen; }},
    Sensor{4, AtReferencePlane},
    Sensor{5, [](const Plant& p, int, double) { return p.TheShelf.CanThere(); }},
    Sensor{6, CapIsOpen},
    Sensor{7, CapIsClosed},
    Sensor{8, [](const Plant& p, int, double now) { return !p.TheShelf.Punching(now); }},
    Sensor{9, [](const Plant& p, int, double now) { return p.TheShelf.PhotocellHidden(now); }},
    Sensor{15, [](const Plant& p, int, double now) { return p.TheShelf.Punching(now); }},
    Sensor{16, [](const Plant&, int, double) { return true; }},
    Sensor{20, [](const Plant& p, int, double now) { return CapIsOpen(p, 2, now); }},
    Sensor{21, [](const Plant& p, int, double now) { return CapIsClosed(p, 2, now); }},
};

bool IsActive(const Plant& plant, int number, int cap, double now) {
  for (const Sensor& sensor : kSensors) {
    if (sensor.Number == number) return sensor.Active(plant, cap, now);
  }
  return false;
}

// The word with bit `number`, from 1, set or cleared.
std::uint32_t With(std::uint32_t word, int number, bool on) {
  const std::uint32_t bit = 1U << (number - 1);
  return on ? word | bit : word & ~bit;
}

// Which connectors are active, bit 0 for connector 1.
std::uint32_t ActiveConnectors(const Plant& plant, double now) {
  std::uint32_t active = 0;
  for (const int number : plant.Config.Elements("@ILE")) {
    const int connector = plant.Config.Number("@ILE", number, 3, 0);
    if (connector < 1 || connector > kConnectors) continue;
    const bool inverted = plant.Config.Number("@ILE", number, 4, 0) == 1;
    const int cap = plant.Config.Number("@ILE", number, 2, 0);
    if (IsActive(plant, number, cap, now) != inverted) active |= 1U << (connector - 1);
  }
  for (const auto& [connector, on] : plant.ForcedInputs) active = With(active, connector, on);
  return active;
}

constexpr std::uint32_t Bit(bool set, unsigned place) { return set ? 1U << place : 0U; }

constexpr unsigned kCap2Bridge = 20;
constexpr unsigned kShelfBridge = 21;
constexpr unsigned kCap1Bridge = 22;
constexpr unsigned kDriversReady = 23;
constexpr unsigned kAddress = 24;
constexpr unsigned kDipSwitches = 28;

constexpr std::uint16_t kInverter = 0x0100;

}  // namespace

std::uint32_t InputWord(const Plant& plant, double now) {
  constexpr std::uint32_t kAllConnectors = (1U << kConnectors) - 1;
  const std::uint32_t connectors = kAllConnectors & ~ActiveConnectors(plant, now);
  std::uint32_t dips = 0;
  for (std::size_t dip = 0; dip < plant.DipSwitches.size(); ++dip) {
    dips |= Bit(plant.DipSwitches[dip], static_cast<unsigned>(dip));
  }
  return connectors | Bit(plant.TheCaps.Direction(2, now) != 0, kCap2Bridge) |
         Bit(plant.TheShelf.Direction(now) != 0, kShelfBridge) |
         Bit(plant.TheCaps.Direction(1, now) != 0, kCap1Bridge) |
         Bit(plant.SpiEnabled, kDriversReady) |
         static_cast<std::uint32_t>(plant.Config.Slave() & 15) << kAddress | dips << kDipSwitches;
}

std::uint16_t OutputWord(const Plant& plant) {
  const bool turning = plant.TheElements.AnyMotor();
  std::uint32_t word = plant.Outputs | (turning ? kInverter : 0U);
  for (const auto& [row, on] : plant.ForcedOutputs) word = With(word, row, on);
  return static_cast<std::uint16_t>(word);
}

std::string BridgeFlags(const Plant& plant, double now) {
  std::string flags;
  for (const int direction : {plant.TheShelf.Direction(now), plant.TheCaps.Direction(1, now),
                              plant.TheCaps.Direction(2, now)}) {
    flags += direction > 0 ? '1' : '0';
    flags += direction < 0 ? '1' : '0';
  }
  return flags;
}

bool ReadyToDispense(const Plant& plant, double now) {
  return plant.TheShelf.PhotocellHidden(now) && plant.TheCaps.AnyPassage(now) && !plant.DoorOpen;
}

}  // namespace tintbench::simulator
