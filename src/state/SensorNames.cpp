#include "state/SensorNames.h"

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::state {

namespace {

constexpr std::array<std::string_view, kInputCount - config::kConnectors> kFixedInputs{
    "H_bridge - cap(2) forward/back",
    "H_bridge - shelf up/down",
    "H_bridge - cap(1) forward/back",
    "Brixel2 MOS driving status",
    "slave address( BIT 4 )",
    "slave address( BIT 3 )",
    "slave address( BIT 2 )",
    "slave address( BIT 1 )",
    "Dip_switch[ 1 ] autoconfiguration",
    "Dip_switch[ 2 ] pre-test",
    "Dip_switch[ 3 ] autotest",
    "Dip_switch[ 4 ] firmware loading",
};

struct OutputRow {
  std::string_view Name;
  bool InUse;
};

constexpr std::array<OutputRow, kOutputCount> kOutputs{{
    {"SHELF_FORWARD( not used )", false},
    {"SHELF_BACK( not used )", false},
    {"CAP1_FORWARD( not used )", false},
    {"CAP1_BACK( not used )", false},
    {"CAP2_FORWARD( not used )", false},
    {"CAP2_BACK( not used )", false},
    {"7 ( not used )", false},
    {"8 ( not used )", false},
    {"INVERTER_1", true},
    {"disabled", false},
    {"disabled", false},
    {"disabled", false},
    {"ELECTROVALVE VOLTAGE", true},
    {"MODULE VOLTAGE", true},
    {"disabled", false},
    {"disabled", false},
}};

SensorName ConnectorName(int connector, int sensor, const config::SelectorCatalogue& selectors) {
  const std::string prefix = "CNM[" + base::PlainNumber(connector) + " ] ";
  if (sensor <= 0) return {prefix + "disabled", false};
  return {prefix + base::Trim(base::Behind(selectors.SelectorItemText(sensor, "8"), ']')), true};
}

}  // namespace

SensorNames BuildSensorNames(bool configured, const config::MachineFacts& facts,
                             const config::SelectorCatalogue& selectors) {
  SensorNames names;
  auto input = names.InputNames.begin();
  for (int connector = 1; connector <= config::kConnectors; ++connector) {
    const int sensor = facts.ConnectorSensors[static_cast<std::size_t>(connector)];
    *input++ = ConnectorName(connector, sensor, selectors);
  }
  for (const std::string_view name : kFixedInputs) *input++ = {std::string(name), configured};
  auto output = names.OutputNames.begin();
  for (const OutputRow& row : kOutputs) {
    *output++ = {std::string(row.Name), row.InUse && configured};
  }
  return names;
}

}  // namespace tintbench::state
