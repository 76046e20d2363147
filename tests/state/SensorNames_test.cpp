#include "state/SensorNames.h"

#include <gtest/gtest.h>

namespace tintbench::state {
namespace {

TEST(SensorNames, WithoutAConfigurationNothingShows) {
  const SensorNames names = BuildSensorNames(false, {}, {});
  for (const SensorName& input : names.InputNames) EXPECT_FALSE(input.Shown) << input.Name;
  for (const SensorName& output : names.OutputNames) EXPECT_FALSE(output.Shown) << output.Name;
  EXPECT_EQ(names.InputNames[0].Name, "CNM[1 ] disabled");
  EXPECT_EQ(names.InputNames[20].Name, "H_bridge - cap(2) forward/back");
  EXPECT_EQ(names.InputNames[31].Name, "Dip_switch[ 4 ] firmware loading");
}

TEST(SensorNames, ConnectorsTakeTheNamesOfTheirSensors) {
  config::MachineFacts facts;
  facts.ConnectorSensors[1] = 9;
  facts.ConnectorSensors[20] = 21;
  const SensorNames names = BuildSensorNames(true, facts, {});
  EXPECT_EQ(names.InputNames[0].Name, "CNM[1 ] can photocell");
  EXPECT_EQ(names.InputNames[19].Name, "CNM[20 ] cap 2 closed");
  EXPECT_TRUE(names.InputNames[0].Shown && names.InputNames[19].Shown);
  EXPECT_FALSE(names.InputNames[1].Shown);
  EXPECT_TRUE(names.InputNames[20].Shown && names.InputNames[31].Shown);
  std::string shown;
  for (const SensorName& output : names.OutputNames) shown += output.Shown ? output.Name + "," : "";
  EXPECT_EQ(shown, "INVERTER_1,ELECTROVALVE VOLTAGE,MODULE VOLTAGE,");
}

}  // namespace
}  // namespace tintbench::state
