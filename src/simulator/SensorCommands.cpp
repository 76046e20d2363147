// Commands that tell the state of the machine.
#include <algorithm>
#include <array>
#include <cmath>

#include "base/Numbers.h"
#include "simulator/Commands.h"
#include "simulator/Inputs.h"
#include "simulator/Plant.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr std::size_t kVersionLength = 3;
constexpr std::string_view kPlatform = "BRIXEL PLATFORM 2.04";  // twenty characters
constexpr double kGroupSeconds = 0.03;                          // to ask a group over its own line
constexpr double kLastOldStatus = 3.0;  // the last firmware with a process digit behind "B"

Reply ReadInputs(Plant& plant, const std::string&, double now) {
  return {"A" + base::ToHex(InputWord(plant, now), 8)};
}

Reply ReadOutputs(Plant& plant, const std::string&, double) {
  return {"A" + base::ToHex(OutputWord(plant), 4)};
}

Reply ReadBoth(Plant& plant, const std::string&, double now) {
  return {"A" + base::ToHex(InputWord(plant, now), 8) + base::ToHex(OutputWord(plant), 4)};
}

Reply Status(Plant& plant, const std::string&, double now) {
  const std::vector<std::uint32_t> errors = plant.Errors.Shown(now);
  const bool configured = !plant.Config.Elements("@GEN").empty();
  std::string text = errors.empty() ? "K" : "E";
  if (!configured) text = "N";
  if (plant.Busy(now)) text = plant.FirmwareNumber() <= kLastOldStatus ? "B1" : "B";
  text += base::ToHex(errors.size(), 2);
  for (const std::uint32_t code : errors) text += base::ToHex(code, 4);
  return {text};
}

Reply Bridges(Plant& plant, const std::string&, double now) {
  return {"A" + BridgeFlags(plant, now)};
}

Reply SetOutputs(Plant& plant, const std::string& argument, double) {
  plant.Outputs = static_cast<std::uint16_t>(HexNumber(argument).value_or(0));
  return {"AK"};
}

Reply Conditions(Plant& plant, const std::string&, double now) {
  return {ReadyToDispense(plant, now) ? "AK" : "AN"};
}

Reply FirmwareVersion(Plant& plant, const std::string&, double) {
  std::string version = plant.Firmware;
  version.resize(kVersionLength, ' ');
  return {"A V " + version};
}

Reply PlatformVersion(Plant&, const std::string&, double) { return {"A" + std::string(kPlatform)}; }

Reply AutotestRecord(Plant& plant, const std::string&, double) {
  return {"A" + plant.TheAutotest.Record()};
}

Reply SwitchFunction(Plant& plant, const std::string& argument, double) {
  const int group = base::LeadingInt(argument.substr(0, 2));
  const int function = base::LeadingInt(argument.substr(2, 2));
  const char flag = argument[4];
  if (flag != '0' && flag != '1') return Refused();
  if (plant.TheGroups.IsOff(group)) return {"E", kGroupSeconds};
  const bool done = plant.TheGroups.SetFunction(group, function, flag == '1');
  return done ? Reply{"A", kGroupSeconds} : Refused();
}

Reply ReadGroupInput(Plant& plant, const std::string& argument, double now) {
  const GroupInput input{base::LeadingInt(argument.substr(0, 2)), argument[2] - '0',
                         base::LeadingInt(argument.substr(3, 2))};
  return {plant.TheGroups.Read(input, now, plant.Errors), kGroupSeconds};
}

constexpr std::array kSensorRows = {
    CommandRow{"IR", 0, 0, Characters::Any, ReadInputs},
    CommandRow{"UR", 0, 0, Characters::Any, ReadOutputs},
    CommandRow{"IU", 0, 0, Characters::Any, ReadBoth},
    CommandRow{"S", 0, 0, Characters::Any, Status},
    CommandRow{"UP", 0, 0, Characters::Any, Bridges},
    CommandRow{"UW", 4, 4, Characters::Hex, SetOutputs},
    CommandRow{"NS", 0, 0, Characters::Any, Conditions},
    CommandRow{"JF", 0, 0, Characters::Any, FirmwareVersion},
    CommandRow{"JP", 0, 0, Characters::Any, PlatformVersion},
    CommandRow{"XA", 0, 0, Characters::Any, AutotestRecord},
    CommandRow{"IX", 5, 5, Characters::Digits, SwitchFunction},
    CommandRow{"IG", 5, 5, Characters::Digits, ReadGroupInput},
};

}  // namespace

std::span<const CommandRow> SensorCommands() { return kSensorRows; }

}  // namespace tintbench::simulator
