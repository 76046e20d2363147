// The parameters of the group Advanced: caps, motors and timings beyond the usual.
#pragma once

#include <array>

#include "config/ParameterRow.h"

namespace tintbench::config {

// clang-format off
// Electric cap( 3 positions )
inline constexpr auto kTa3Parameters = std::to_array<ParameterRow>({
    {"Electric cap( 3 positions ) number", ".,1,3,1"},
    {"Waiting time for sensors checking ( unit=second/100 )", ".,1,.,20"},
});

// Motor EX
inline constexpr auto kMexParameters = std::to_array<ParameterRow>({
    {"Motor number", ".,1,33,1"},
    {"Hardware configuration mask [see table]", "0_3,.,.,."},
    {"Brixel2 address for the motor ( 0..6, 8..15, 7=invalid )", ".,0,15,."},
});

// Single stirring timings
inline constexpr auto kTdaParameters = std::to_array<ParameterRow>({
    {"Stirring timing from Brixel ( 0=yes, 1=no(=different timing) )", ".,0,1,0"},
});

// Single recirculation timings
inline constexpr auto kTdrParameters = std::to_array<ParameterRow>({
    {"Recirculation timing from Brixel ( 0=yes, 1=no(=different timing) )", ".,0,1,0"},
});

// Washing cap timings
inline constexpr auto kTelParameters = std::to_array<ParameterRow>({
    {"Interval <last dispensation>:<washing> ( unit=second )", ".,1,1200,10"},
    {"Water time ( unit=second/10 )", ".,1,99,10"},
    {"Air time ( unit=second/10 )", ".,1,99,10"},
});

// On Brixel2 output
inline constexpr auto kBx2Parameters = std::to_array<ParameterRow>({
    {"Output number", "15,0,2,."},
    {"Connector number associated", ".,1,20,."},
    {"Hardware configuration mask [see table]", "0_2,.,.,."},
    {"BRIXEL2 card address associated ( invalid=7 )", ".,0,15,."},
});

inline constexpr auto kAdvancedTables = std::to_array<ParameterTable>({
    {"@TA3", kTa3Parameters},
    {"@MEX", kMexParameters},
    {"@TDA", kTdaParameters},
    {"@TDR", kTdrParameters},
    {"@TEL", kTelParameters},
    {"@BX2", kBx2Parameters},
});
// clang-format on

}  // namespace tintbench::config
