#include "simulator/Plant.h"

#include <charconv>
#include <utility>

#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr std::uint32_t kPlaneNotReached = 0x800C;

}  // namespace

Plant::Plant(Configuration configuration, std::string firmware, double now)
    : Config(std::move(configuration)), Firmware(std::move(firmware)) {
  TheStatistics.Begin(now);
  Reset(now);
}

double Plant::FirmwareNumber() const {
  double number = 0;
  std::from_chars(Firmware.data(), Firmware.data() + Firmware.size(), number);
  return number;
}

void Plant::Settle(double now) {
  TheGroups.Settle(now);
  TheProcesses.Settle(now);
  for (const ValveTest::Turn& turn : TheValveTest.TakeEnded(now)) {
    if (Counter* counter = TheStatistics.Find('C', turn.Valve)) counter->Add(turn.Seconds, 1.0);
  }
  if (TheShelf.GivenUp(now)) Errors.Add(kPlaneNotReached, now);
}

void Plant::Reset(double now) {
  TheElements.AllOff(now);
  TheValveTest.Stop(now, Errors);
  TheShelf.Stop(now);
  TheStatistics.Recall(now);
  TheProcesses.Begin(now);
  Errors.Clear();
  if (const auto fault = HexNumber(Config.Fault())) Errors.Add(*fault, now);
  Mask.clear();
  Outputs = kUsualOutputs;
  SpiEnabled = true;
  BusyUntil = now;
}

void Plant::SwitchGroup(int group, bool on, double now) {
  TheGroups.SwitchGroup(group, on);
  if (on) return;
  const auto lies = [&](std::string_view tag, int element, std::size_t field) {
    return Config.Number(tag, element, field, 0) == group;
  };
  for (const int valve : TheElements.OpenValves()) {
    if (lies("@CIR", valve, 5)) TheElements.Valves({valve}, false, now);
  }
  for (const int stirring : TheElements.WorkingStirrings()) {
    if (lies("@AGI", stirring, 5)) TheElements.Stirrings({stirring}, false, now);
  }
  for (const int motor : TheElements.RunningMotors()) {
    if (lies("@MOT", motor, 4)) TheElements.MotorOff(motor, now);
  }
}

bool Plant::Busy(double now) const {
  return TheValveTest.Running(now) || TheShelf.Direction(now) != 0 || TheShelf.Punching(now) ||
         TheCaps.AnyMoving(now) || TheProcesses.Working() || now < BusyUntil;
}

}  // namespace tintbench::simulator
