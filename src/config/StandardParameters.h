// The parameters of the group Standard: the machine itself.
#pragma once

#include <array>

#include "config/ParameterRow.h"

namespace tintbench::config {

// clang-format off
// General Parameters
inline constexpr auto kGenParameters = std::to_array<ParameterRow>({
    {"Circuits", ".,1,64,16"},
    {"Motors ( 1=internal, 2..33=external )", ".,1,33,1"},
    {"Internal Stirrings ( BM + groups, 0=none )", ".,0,64,16"},
    {"External Stirrings ( 0=none )", ".,0,64,0"},
    {"Caps ( 0=none )", ".,0,10,0"},
    {"Shelf ( 0=no, 1=yes )", ".,0,1,0"},
    {"Safety door ( 0=no, 1=yes )", ".,0,1,0"},
    {"External groups ( 0=none )", ".,0,32,0"},
    {"Max. valves open at the same time", ".,1,64,16"},
    {"Machine registration number", ".,c0,c20,"},
    {"Max. power of system ( unit=watt, 0=no_check )", ".,0,.,0"},
});

// Timings
inline constexpr auto kTemParameters = std::to_array<ParameterRow>({
    {"Interval <start-machine>:<unblock-processes> ( unit=minute )", ".,1,1440,15"},
    {"Recycle interval ( unit=minute )", ".,1,1440,120"},
    {"Interval <start-dispense>:<dispense> ( unit=second )", ".,0,600,1"},
    {"Anti-rebound time for sensor-readings ( unit=second/100 )", ".,1,.,2"},
    {"Stirring interval ( unit=minute )", ".,1,1440,120"},
    {"Interval <dispensation-end>:<motors-off> ( unit=second )", ".,0,600,5"},
    {"Delay time for electrovalve-status enquiry ( unit=second/100 )", ".,1,.,30"},
    {"Delay time for stirring-status enquiry ( unit=second/10 )", ".,1,.,30"},
    {"Booster time ( unit=second/10, 0=missing )", ".,0,.,0"},
});

// Shelf
inline constexpr auto kSgaParameters = std::to_array<ParameterRow>({
    {"Shelf-encoder timeout ( unit=second/10 )", ".,1,60,1"},
    {"Safety-door open timeout ( unit=second )", ".,.,.,3"},
    {"Punch completed timeout ( unit=second/10 )", ".,.,.,10"},
    {"Interval <motors-off>:<shelf-encoder-reading> ( unit=second/10 )", ".,.,.,10"},
    {"Shelf speed", ".,0,999,999"},
    {"Shelf speed while punching", ".,0,999,999"},
    {"Motor-driving PWM frequency ( unit=Hertz )", ".,.,.,200"},
    {"Max. steps for shelf delta-movement encoder ( unit=impulse )", ".,1,50,50"},
    {"Shelf type", "1,1,2,1"},
    {"Puncher ( 0=no, 1=yes )", ".,0,1,0"},
    {"Reference plane ( 0=no, 1=yes )", ".,0,1,0"},
    {"Shelf movement accuracy ( unit=(step/mm)/100 )", ".,.,.,500"},
    {"Puncher height from shelf-lowest-position ( unit=mm, 0=missing )", ".,0,.,0"},
    {"Reference plane height from shelf-lowest-position ( unit=mm, 0=missing )", ".,0,.,0"},
    {"Can-photocell height from shelf-lowest-position ( unit=mm )", ".,0,.,0"},
    {"Distance <can-photocell>:<lid-can> ( unit=mm, 0=no_puncher, invalid=1,2,3,4,5,6,7 )", ".,0,88,45"},
    {"Autocap height from shelf-lowest-position ( unit=mm, 0=missing )", ".,0,.,0"},
    {"Can tolerance for out-of-standard check ( unit=mm )", ".,1,10,5"},
    {"Photocell tolerance for its complete hiding ( unit=mm )", ".,1,10,4"},
    {"Shelf tolerance for avoiding millimetric movements ( unit=mm )", ".,1,10,2"},
});

// Caps
inline constexpr auto kTapParameters = std::to_array<ParameterRow>({
    {"Cap number", ".,1,3,1"},
    {"Cap type", "2,0,31,2"},
    {"Motor-driving PWM frequency ( unit=Hertz )", ".,.,.,200"},
    {"Cap movement time ( unit=second )", ".,1,60,15"},
    {"Cap movement speed", ".,0,999,999"},
    {"Puncher ( 0=no, 1=yes )", ".,0,1,0"},
});

// Circuits
inline constexpr auto kCirParameters = std::to_array<ParameterRow>({
    {"Valve number", ".,1,64,."},
    {"Valve type", "3,1,4,1"},
    {"Physical -> Logical connection of valve", "0_1,.,.,."},
    {"BRIXEL2 card address associated to this circuit ( invalid=7 )", ".,0,15,."},
    {"Group address associated to this circuit ( 0=inside_machine )", ".,0,32,0"},
    {"Cap associated to this circuit ( 0=no_cap )", ".,0,.,."},
    {"Motor associated to this circuit ( 1=motor_inside_machine )", ".,1,.,1"},
    {"Stirring associated to this circuit ( 0=no_stirring )", ".,0,.,0"},
    {"Reserve management ( 0=no, 1=yes )", ".,0,1,0"},
    {"Valve-test management ( 0=no, 1=yes )", ".,0,1,1"},
});

// Motors
inline constexpr auto kMotParameters = std::to_array<ParameterRow>({
    {"Motor number", ".,1,33,."},
    {"Motor type", "4,1,5,1"},
    {"Motor-driving PWM frequency ( unit=Hertz )", ".,.,.,2000"},
    {"Motor address ( 0=inside_machine )", ".,0,32,0"},
    {"Encoder-control timeout ( unit=second/10, 0=no_check )", ".,0,600,5"},
    {"Zero-pump-control timeout ( unit=second/10, 0=no_check )", ".,0,600,100"},
    {"Motor speed while waiting", ".,0,999,0"},
    {"Motor speed while unblocking", ".,0,999,150"},
    {"Motor speed while recycling", ".,0,999,700"},
    {"Unblocking activity time ( unit=second )", ".,0,86400,5"},
    {"Recycle activity time ( unit=second )", ".,0,86400,30"},
    {"Motor number sharing canister ( 0=none )", ".,0,33,0"},
    {"Dispensing type", "5,0,2,1"},
    {"Change mode for dispensing type", "6,0,15,0"},
    {"Speed 1 for slope", ".,0,999,0"},
    {"Speed 2 for slope", ".,0,999,0"},
    {"Speed 3 for slope", ".,0,999,0"},
    {"Amount 1 for slope", ".,0,.,0"},
    {"Amount 2 for slope", ".,0,.,0"},
    {"Dispensation priority ( 1=high, 33=low )", ".,1,33,1"},
    {"Motor power ( unit=watt )", ".,0,.,0"},
    {"Waiting time for one speed-change ( unit=second )", ".,1,600,2"},
    {"Opening time for valve-test ( unit=second, 0=no_test )", ".,0,600,2"},
    {"Speed for valve-test", ".,0,999,150"},
});

// Stirrings
inline constexpr auto kAgiParameters = std::to_array<ParameterRow>({
    {"Stirring number", ".,1,64,."},
    {"Stirring type", "7,0,3,0"},
    {"Hardware configuration mask [see table]", "0_2,.,.,."},
    {"BRIXEL2 card address associated to this stirring ( invalid=7 )", ".,0,15,."},
    {"Group address associated to this stirring ( 0=inside_machine )", ".,0,32,0"},
    {"Stirring activity time ( unit=second )", ".,0,86400,30"},
    {"Enable stirring test ( 0=no, 1=yes )", ".,0,1,1"},
    {"Motor power ( unit=watt, 0=inside_stirring )", ".,0,.,0"},
    {"Motor speed ( only for external-stirrings, 0=otherwise )", ".,0,999,0"},
});

// Sensors
inline constexpr auto kIleParameters = std::to_array<ParameterRow>({
    {"Sensor", "8,1,26,."},
    {"Cap number eventually associated to this sensor ( 1..10 for sensors 6,7,8,15; 0=otherwise )", ".,0,10,0"},
    {"Connector number associated to this sensor", ".,1,20,."},
    {"Sensor status ( 0=on, 1=off )", ".,0,1,0"},
    {"Sensor type", "9,0,1,0"},
});

// Encoders
inline constexpr auto kIveParameters = std::to_array<ParameterRow>({
    {"Encoder", "10,1,9,."},
    {"Motor number eventually associated to this sensor ( 1..33 for encoders 3,4; 0=otherwise )", ".,0,33,0"},
    {"Connector number associated to this sensor", ".,21,28,."},
});

// Serial port speed
inline constexpr auto kVelParameters = std::to_array<ParameterRow>({
    {"Master serial port speed ( baud-rate )", ".,2400,38400,9600"},
    {"Net serial port speed ( baud-rate )", ".,2400,38400,9600"},
});

inline constexpr auto kStandardTables = std::to_array<ParameterTable>({
    {"@GEN", kGenParameters},
    {"@TEM", kTemParameters},
    {"@SGA", kSgaParameters},
    {"@TAP", kTapParameters},
    {"@CIR", kCirParameters},
    {"@MOT", kMotParameters},
    {"@AGI", kAgiParameters},
    {"@ILE", kIleParameters},
    {"@IVE", kIveParameters},
    {"@VEL", kVelParameters},
});
// clang-format on

}  // namespace tintbench::config
