// The parameters of the group Industrial: dispensing groups and the line to a PLC.
#pragma once

#include <array>

#include "config/ParameterRow.h"

namespace tintbench::config {

// clang-format off
// External Group
inline constexpr auto kIndParameters = std::to_array<ParameterRow>({
    {"Recirculation if circuit is on reserve ( 0=no, 1=yes )", ".,0,1,0"},
    {"Recirculation if valve-air-pressure-condition ( 0=no, 1=yes )", ".,0,1,0"},
    {"Global reset timeout for all the groups ( unit=second )", ".,5,160,."},
});

// PLC Line
inline constexpr auto kLinParameters = std::to_array<ParameterRow>({
    {"PLC-line type", "12,1,4,."},
    {"Brixel2 address for the PLC-line ( 0..6, 8..15, 7=invalid )", ".,0,15,."},
    {"Hardware configuration mask [see table]", "0_4,.,.,."},
    {"Time associated to the PLC-line ( unit=second/10 )", "HELP_13,0,.,."},
});

// Motor Informations
inline constexpr auto kMinParameters = std::to_array<ParameterRow>({
    {"Motor number", ".,1,33,1"},
    {"Delay between formula-start and valve-opening ( unit=second/100, 0=no_delay )", ".,0,.,0"},
    {"[Only motor-types 2] Delay between encoder/zero pump timeout tests (unit=second/100)", ".,0,.,0"},
    {"Encoder features impulses/revolutions ( 0=unused parameter )", ".,0,.,0"},
});

// Digital Input
inline constexpr auto kIdiParameters = std::to_array<ParameterRow>({
    {"Digital input type", "81,31,38,."},
    {"Connector number on the group ( 0..7 )", ".,0,7,0"},
    {"Error status ( 0 if error=24V, 1 if error=0V )", ".,0,1,0"},
    {"Sensor type", "9,0,1,0"},
    {"Group addresses associated to this sensor type with the same features", "HEX_1,c0,c64"},
});

// Analogical Input
inline constexpr auto kIanParameters = std::to_array<ParameterRow>({
    {"Analogical input type", "11,1,4,."},
    {"Connector number on the group", ".,0,3,."},
    {"Unit of measure", ".,c1,c3"},
    {"Start of scale value", "UM_1,.,.,."},
    {"End of scale value", "UM_2,.,.,."},
    {"Sampling number for medium value ( 0=immediate value )", ".,0,10,."},
    {"Alarm low edge", "UM_4,.,.,."},
    {"Alarm high edge", "UM_5,.,.,."},
    {"Check of compared edge ( 0=check_disabled, 1=check_enabled )", ".,0,1,."},
    {"[Only if check_enabled] Value of compared edge ( percentage 0..100 )", "EDGE_1,0,100,."},
    {"Current or voltage flag ( 0=current, 1=voltage )", ".,0,1,."},
    {"Group addresses associated to this sensor type with the same features", "HEX_1,c0,c64"},
});

// Group Functionalities
inline constexpr auto kFunParameters = std::to_array<ParameterRow>({
    {"Motor number", ".,2,33,."},
    {"List of enabled functionalities ( 0=disabled, 1=disabled )", "X_FUN,c0,c20"},
});

inline constexpr auto kIndustrialTables = std::to_array<ParameterTable>({
    {"@IND", kIndParameters},
    {"@LIN", kLinParameters},
    {"@MIN", kMinParameters},
    {"@IDI", kIdiParameters},
    {"@IAN", kIanParameters},
    {"@FUN", kFunParameters},
});
// clang-format on

}  // namespace tintbench::config
