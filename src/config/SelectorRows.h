// The rows of all selectors, in the order in which they are shown. The blanks inside the brackets
// differ from list to list and belong to the texts.
#pragma once

#include <array>
#include <string_view>

namespace tintbench::config {

struct SelectorRow {
  std::string_view Key;
  std::string_view Value;
  std::string_view Text;
};

// clang-format off
inline constexpr auto kSelectorRows = std::to_array<SelectorRow>({
    // "@SGA" parameter 9
    {"1", "1", "[ 1 ]  fast shelf, 2 sensors"},
    {"1", "2", "[ 2 ]  fast shelf, 2 sensors, montdemont"},

    // "@TAP" parameter 2
    {"2", "0", "[   0 ]  manual cap"},
    {"2", "2", "[   2 ]  electric cap, 2 positions, 2 sensors"},
    {"2", "3", "[   3 ]  electric cap, 3 positions, 2 sensors"},
    {"2", "4", "[   4 ]  motorized sliding-cap, 3 sensors"},
    {"2", "12", "[ 12 ]  pneumatic cap, 2 positions, 2 sensors"},
    {"2", "13", "[ 13 ]  pneumatic cap, 2 pos, 2 sens ,2 volt, only washing"},
    {"2", "14", "[ 14 ]  pneumatic cap, 2 pos, 2 sens, 2 volt, with washing"},
    {"2", "15", "[ 15 ]  pneumatic cap, 2 pos, 2 sens, 2 volt"},
    {"2", "21", "[ 21 ]  half-automatic cap, 1 sensor"},
    {"2", "31", "[ 31 ]  electric sliding-cap, 2 sensors"},

    // "@CIR" parameter 2
    {"3", "1", "[ 1 ]  electric valve with test"},
    {"3", "2", "[ 2 ]  pneumatic valve with test"},
    {"3", "3", "[ 3 ]  electric valve without test"},
    {"3", "4", "[ 4 ]  pneumatic valve without test"},

    // "@MOT" parameter 2
    {"4", "0", "[ 0 ]  dummy motor"},
    {"4", "1", "[ 1 ]  electric motor with inverter"},
    {"4", "2", "[ 2 ]  electric motor without inverter"},
    {"4", "3", "[ 3 ]  electric motor with inverter( EX stirrings )"},
    {"4", "4", "[ 4 ]  extern electric motor"},
    {"4", "5", "[ 5 ]  electric motor with inverter 2"},

    // "@MOT" parameter 13
    {"5", "0", "[ 0 ]  none"},
    {"5", "1", "[ 1 ]  parallel"},
    {"5", "2", "[ 2 ]  sequential"},

    // "@MOT" parameter 14
    {"6", "15", "[ 15 ]  cannot modify mode"},
    {"6", "1", "[   1 ]  change in slope if speed-unit is 1"},
    {"6", "2", "[   2 ]  change in slope if speed-unit is 2"},
    {"6", "3", "[   3 ]  change in slope if speed-unit is 3"},
    {"6", "4", "[   4 ]  change in slope if speed-unit is 4"},
    {"6", "5", "[   5 ]  change in slope if speed-unit is 5"},
    {"6", "6", "[   6 ]  change in slope if speed-unit is 6"},
    {"6", "7", "[   7 ]  change in slope if speed-unit is 7"},
    {"6", "8", "[   8 ]  change in slope if speed-unit is 8"},
    {"6", "9", "[   9 ]  change in slope if speed-unit is 9"},
    {"6", "0", "[   0 ]  change in slope if speed-unit is 0"},

    // "@AGI" parameter 2
    {"7", "0", "[ 0 ]  normal (BM internal or external driven by BM)"},
    {"7", "1", "[ 1 ]  external, not driven by plant"},
    {"7", "2", "[ 2 ]  external, driven by BM"},
    {"7", "3", "[ 3 ]  internal, BM circuit, inverter motor(EX)"},

    // "@ILE" parameter 1
    {"8", "1", "[   1 ]  shelf high"},
    {"8", "2", "[   2 ]  shelf low"},
    {"8", "3", "[   3 ]  safety door"},
    {"8", "4", "[   4 ]  reference plane"},
    {"8", "5", "[   5 ]  can on shelf"},
    {"8", "6", "[   6 ]  cap 1 open"},
    {"8", "7", "[   7 ]  cap 1 closed"},
    {"8", "8", "[   8 ]  cap free punch"},
    {"8", "9", "[   9 ]  can photocell"},
    {"8", "10", "[ 10 ]  monte-demont security"},
    {"8", "11", "[ 11 ]  up monte-demont"},
    {"8", "12", "[ 12 ]  down monte-demont"},
    {"8", "13", "[ 13 ]  stop-formula"},
    {"8", "14", "[ 14 ]  start-formula"},
    {"8", "15", "[ 15 ]  punching"},
    {"8", "16", "[ 16 ]  air pressure"},
    {"8", "17", "[ 17 ]  thermo-magnetic status"},
    {"8", "18", "[ 18 ]  sliding-cap motor stop"},
    {"8", "19", "[ 19 ]  sliding-cap punching security"},
    {"8", "20", "[ 20 ]  cap 2 open"},
    {"8", "21", "[ 21 ]  cap 2 closed"},
    {"8", "22", "[ 22 ]  end supplly water (only washing machine)"},
    {"8", "23", "[ 23 ]  air prssion presence (only washing machine)"},
    {"8", "24", "[ 24 ]  minimum level washing water (only washing machine)"},
    {"8", "25", "[ 25 ]  maximum level discharged (only washing machine)"},
    {"8", "26", "[ 26 ]  stop process"},

    // "@IDI" parameter 1
    {"81", "31", "[ 31 ]  suction-pump motor disabling"},
    {"81", "32", "[ 32 ]  delivery-pump motor disabling"},
    {"81", "33", "[ 33 ]  stirring motor disabling"},
    {"81", "34", "[ 34 ]  group thermo-magnetic"},
    {"81", "35", "[ 35 ]  flowmeter status"},
    {"81", "36", "[ 36 ]  contactor status"},
    {"81", "37", "[ 37 ]  inverter alarm"},
    {"81", "38", "[ 38 ]  tank reserve"},

    // "@ILE" parameter 5 and "@IDI" parameter 4
    {"9", "0", "[ 0 ]  normal"},
    {"9", "1", "[ 1 ]  anti-rebound"},

    // "@IVE" parameter 1
    {"10", "1", "[ 1 ]  encoder shelf 1"},
    {"10", "2", "[ 2 ]  encoder shelf 2"},
    {"10", "3", "[ 3 ]  pump encoder"},
    {"10", "4", "[ 4 ]  zero-pump encoder 1"},
    {"10", "5", "[ 5 ]  zero-pump encoder 2"},
    {"10", "6", "[ 6 ]  pump encoder input 25"},
    {"10", "7", "[ 7 ]  pump encoder input 26"},
    {"10", "8", "[ 8 ]  pump encoder input 27"},
    {"10", "9", "[ 9 ]  pump encoder input 28"},

    // "@IAN" parameter 1
    {"11", "1", "[ 1 ]  suction-pressure sensor"},
    {"11", "2", "[ 2 ]  delivery-pressure sensor"},
    {"11", "3", "[ 3 ]  temperature sensor"},
    {"11", "4", "[ 4 ]  level sensor"},

    // "@LIN" parameter 1
    {"12", "1", "[ 1 ]  CAN_PRESENT"},
    {"12", "2", "[ 2 ]  END_FORMULA"},
    {"12", "3", "[ 3 ]  DISPENSER_ERROR"},
    {"12", "4", "[ 4 ]  DISPENSER_BUSY"},

    // "@FUN" parameter 2
    {"X_FUN", "1", "[  1 ] SUCTION-PUMP DISABLING CONTROL"},
    {"X_FUN", "2", "[  2 ] DELIVERY-PUMP DISABLING CONTROL"},
    {"X_FUN", "3", "[  3 ] STIRRING DISABLING CONTROL"},
    {"X_FUN", "4", "[  4 ] TANK RESERVE( DIGITAL ) CONTROL"},
    {"X_FUN", "5", "[  5 ] FLOWMETER STATUS CONTROL"},
    {"X_FUN", "6", "[  6 ] INVERTER ALARM CONTROL"},
    {"X_FUN", "7", "[  7 ] THERMO-MAGNETIC CONTROL"},
    {"X_FUN", "8", "[  8 ] CONTACTOR CONTROL"},
    {"X_FUN", "9", "[  9 ] SUCTION-PRESSURE CONTROL"},
    {"X_FUN", "10", "[ 10 ] DELIVERY-PRESSURE CONTROL"},
    {"X_FUN", "11", "[ 11 ] TEMPERATURE CONTROL"},
    {"X_FUN", "12", "[ 12 ] TANK LEVEL CONTROL"},
    {"X_FUN", "13", "[ 13 ] PUMP ENCODER CONTROL"},
    {"X_FUN", "14", "[ 14 ] ZERO PUMP CONTROL"},
    {"X_FUN", "15", "[ 15 ] VALVE TEST CONTROL"},
    {"X_FUN", "16", "[ 16 ] STIRRING TEST CONTROL"},
    {"X_FUN", "17", "[ 17 ] PUMP MOTOR SPEED CONTROL"},
    {"X_FUN", "18", "[ 18 ] "},
    {"X_FUN", "19", "[ 19 ] "},
    {"X_FUN", "20", "[ 20 ] "},

    // "@BX2" parameter 1
    {"15", "0", "[ 0 ]  output air (only machine with wash cap)"},
    {"15", "1", "[ 1 ]  output water (only machine with wash cap)"},
    {"15", "2", "[ 2 ]  output pressurization (only machine with wash cap)"},
});
// clang-format on

}  // namespace tintbench::config
