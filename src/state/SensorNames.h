// The names of the machine's input and output bits, as the sensor panels show them. The first
// twenty inputs are named by the machine's configuration.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "config/MachineFacts.h"
#include "config/SelectorCatalogue.h"

namespace tintbench::state {

inline constexpr int kInputCount = 32;
inline constexpr int kOutputCount = 16;

struct SensorName {
  std::string Name;
  bool Shown = false;
};

// By bit, from 0.
struct SensorNames {
  std::array<SensorName, kInputCount> InputNames;
  std::array<SensorName, kOutputCount> OutputNames;
};

// All names anew. `configured`: a configuration has been read into the facts.
SensorNames BuildSensorNames(bool configured, const config::MachineFacts& facts,
                             const config::SelectorCatalogue& selectors);

}  // namespace tintbench::state
