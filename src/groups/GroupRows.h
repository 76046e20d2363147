// What the monitor of one dispensing group knows of it: its elements and the rows of its inputs, as
// the set-up draws them from the machine facts and as the enquiry keeps them.
#pragma once

#include <array>
#include <string>

namespace tintbench::groups {

inline constexpr int kDigitalRows = 8;
inline constexpr int kAnalogueRows = 4;

// Stands for a reading that was not had.
inline constexpr double kNoReading = -1000000.0;

struct DigitalInput {
  bool Enabled = false;     // passed the set-up; only such a row is enquired
  std::string Enquiry;      // the whole command
  std::string Description;  // of the sensor's type
  std::string SensorType;   // two digits
  std::string Connector;
  int XFunction = 0;  // 1 to 8; 0 if none
};

// A limit of an instrument, if the configuration has it.
struct Limit {
  double Value = 0;
  bool Set = false;
};

struct AnalogueInput {
  bool Enabled = false;
  std::string Enquiry;
  std::string Description;
  std::string SensorType;
  std::string Connector;
  std::string Unit;
  double Current = kNoReading;
  Limit Start;  // of the scale
  Limit End;
  Limit Low;  // of the band without alarm
  Limit High;
  int XFunction = 0;  // 9 to 12; 0 if none
};

// The elements of a group in the order of the machine, from the tank to the can's lid.
enum Element : int { kCap, kValve, kStirring, kMotor, kElements };

struct Group {
  int Address = 0;          // 0 when closed
  std::string Text = "00";  // two digits
  // Two digits by Element, "00" for one that isn't there.
  std::array<std::string, kElements> Ids{"00", "00", "00", "00"};
  std::string DigitalXMask;   // 8 digits "0" or "1"
  std::string AnalogueXMask;  // 4 of them
  std::array<DigitalInput, kDigitalRows> Digital;
  std::array<AnalogueInput, kAnalogueRows> Analogue;
  int LastDigital = -1;  // the last digital row in use
  bool DebugMode = false;
  int BlinkIndex = 0;  // which of the two colours of the sign of life is on
};

}  // namespace tintbench::groups
