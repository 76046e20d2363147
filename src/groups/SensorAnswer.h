// What a machine's answer to the enquiry of one input says.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "config/MachineFacts.h"

namespace tintbench::groups {

// The second character of an answer.
enum SensorStatus : int {
  kUnknownSensor = -1,
  kNotConfigured = 0,
  kNotConnected = 1,
  kConnected = 2,
};

struct SensorAnswer {
  int Status = kUnknownSensor;
  bool Good = false;
  std::string Faults;  // in words, empty in a good answer
  std::string Value;   // all from the third character on
};

// Judges an answer in upper case. What isn't a number can't be the value of an analogue input.
SensorAnswer CheckSensorAnswer(config::InputKind kind, std::string_view answer);

// What the status of a digital input shows: "1", "0", a sign for a sensor that isn't there, or "?";
// in brackets if the answer wasn't good.
std::string DigitalStatusText(const SensorAnswer& answer);

// The reading of an analogue input in its unit. Nothing if the answer has none.
std::optional<double> AnalogueReading(const SensorAnswer& answer);

// What the status of an analogue input shows; `inRange`: its reading lies on the scale.
std::string AnalogueStatusText(const SensorAnswer& answer, bool inRange);

}  // namespace tintbench::groups
