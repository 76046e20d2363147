// What the command table starts with: each command's texts, answer length and time-out by row.
#pragma once

#include <array>
#include <string_view>

namespace tintbench::link {

// The lines of one question; empty ones at the end don't count.
using PromptLines = std::array<std::string_view, 7>;

struct CommandText {
  std::string_view Description;
  std::string_view Command;
  PromptLines Prompt;
  int AnswerLength;
  float TimeoutSeconds;
};

// clang-format off
inline constexpr std::string_view kDeviceLine =
    "'A'(=stirring) or 'M'(=motor) or 'C'(=valves) or 'B'(=pumps) or 'P'(=cap) "
    "for the wished device-type ,";
inline constexpr std::string_view kTimeLine = "'T'(=machine-time) or ";
inline constexpr std::string_view kShelfLine = "'S'(=shelf-cycles) or ";
inline constexpr std::string_view kPunchingLine = "'F'(=punching-cycles) or ";
inline constexpr std::string_view kAutocapLine = "'E'(=autocap-cycles) or ";

inline constexpr PromptLines kGroupsPrompt{"Input N groups of 2 decimal characters"};
inline constexpr PromptLines kCapPrompt{"Input 2 decimal characters for the wished cap"};
inline constexpr PromptLines kMotorPrompt{"Input 2 decimal characters for the motor number"};
inline constexpr PromptLines kFunctionPrompt{
    "Input 5 decimal characters:",
    "2 for the group address,",
    "2 for the X function number",
    "1 for the ebable/disable flag(0=disable, 1=enable)",
};
inline constexpr PromptLines kGroupInputPrompt{
    "Input 5 decimal characters:",
    "2 for the group address,",
    "1 for the sensor type( 0=digital, 1=analogical)",
    "2 for the sensor number",
};
inline constexpr PromptLines kMotorOnPrompt{
    "Input 5 decimal characters:",
    "2 for the motor number,",
    "3 for motor speed",
};
inline constexpr PromptLines kReadMemoryPrompt{
    "Input 9 characters:",
    "'b'(=byte) or 'w'(=word) for the data-type to be read ,",
    " 8 hexadecimal characters for the data-type-address",
};
inline constexpr PromptLines kWriteMemoryPrompt{
    "Input 13 characters:",
    "'b'(=byte) or 'w'(=word) for the data-type to write ,",
    " 8 hexadecimal characters for the data-type-address ,",
    " 4 hexadecimal characters for the data to write",
};
inline constexpr PromptLines kPwmPrompt{
    "Input 10 characters:",
    " 2 decimal characters for the PWM channel ,",
    " 4 decimal characters for the frequency ,",
    " 4 decimal characters for the duty-cycle",
};
inline constexpr PromptLines kReadDevicePrompt{
    "Input 3 characters:",
    kDeviceLine,
    " 2 decimal characters for the corresponding device-number",
};
inline constexpr PromptLines kReadAllDevicesPrompt{
    "Input 3 characters:",
    "'A'(=stirring) or 'M'(=motor) or 'C'(=valves) or 'B'(=pumps) or 'P'(=cap) for the wished device-type",
};
inline constexpr PromptLines kWriteDevicePrompt{
    "Input 23 characters:",
    kDeviceLine,
    " 2 decimal characters for the corresponding device-number ,",
    "10 decimal characters for the time ,",
    "10 decimal characters for the number of cycles",
};
inline constexpr PromptLines kReadProcessPrompt{
    "Input 1 characters for the wished process:",
    kTimeLine,
    kShelfLine,
    kPunchingLine,
    kAutocapLine,
    "'D'(=dispensation-number)",
};
inline constexpr PromptLines kWriteProcessPrompt{
    "Input 11 characters for the wished process:",
    kTimeLine,
    kShelfLine,
    kPunchingLine,
    kAutocapLine,
    "'D'(=dispensation-number) then",
    "10 decimal characters for the corresponding value",
};

inline constexpr std::array<CommandText, 50> kCommands{{
    /*  0 */ {"Read input sensors",               "#ir*",   {}, 9, 5},
    /*  1 */ {"Read output sensors",              "#ur*",   {}, 5, 5},
    /*  2 */ {"Read input/output sensors",        "#iu*",   {}, 13, 5},
    /*  3 */ {"Status request",                   "#s*",    {}, 0, 5},
    /*  4 */ {"H-bridges status",                 "#up*",   {}, 7, 5},
    /*  5 */ {"Set output sensors",               "#uw *",  {"Input 4 hexadecimal characters"}, 2, 5},
    /*  6 */ {"Verify sensors for dispensing",    "#ns*",   {}, 2, 5},
    /*  7 */ {"Firmware version",                 "#jf*",   {}, 7, 5},
    /*  8 */ {"Platform version",                 "#jp*",   {}, 21, 5},
    /*  9 */ {"Status of Autotest",               "#xa*",   {}, 0, 5},
    /* 10 */ {"Group X-Function enable/disable",  "#ix *",  kFunctionPrompt, 1, 5},
    /* 11 */ {"Read group input",                 "#ig *",  kGroupInputPrompt, 10, 5},
    /* 12 */ {"Stop timed processes",             "#pb*",   {}, 1, 5},
    /* 13 */ {"Restart timed processes",          "#pr*",   {}, 1, 5},
    /* 14 */ {"Stop master serial process",       "#pm*",   {}, 1, 5},
    /* 15 */ {"Restart master serial process",    "#ps*",   {}, 1, 5},
    /* 16 */ {"Return service in aux serial",     "#py*",   {}, 1, 5},
    /* 17 */ {"Electrovalve(s) enable",           "#a *",   kGroupsPrompt, -1, 5},
    /* 18 */ {"Electrovalve(s) disable",          "#g *",   kGroupsPrompt, -1, 5},
    /* 19 */ {"Stirring action(s) enable",        "#b *",   kGroupsPrompt, -1, 5},
    /* 20 */ {"Stirring action(s) disable",       "#m *",   kGroupsPrompt, -1, 5},
    /* 21 */ {"Cap open",                         "#do *",  kCapPrompt, 4, 15},
    /* 22 */ {"Cap close",                        "#dc *",  kCapPrompt, 4, 15},
    /* 23 */ {"Cap intermediate position",        "#dm *",  kCapPrompt, 4, 15},
    /* 24 */ {"Automatic Punching",               "#ez*",   {}, 1, 5},
    /* 25 */ {"Shelf UP and stop high",           "#eu*",   {}, 1, 10},
    /* 26 */ {"Shelf DOWN and stop low",          "#ed*",   {}, 1, 10},
    /* 27 */ {"Shelf position",                   "#ep*",   {}, 5, 5},
    /* 28 */ {"Motor ON",                         "#f *",   kMotorOnPrompt, 3, 5},
    /* 29 */ {"Motor OFF",                        "#l *",   kMotorPrompt, 3, 5},
    /* 30 */ {"Zero-pump-time / rpm*100",         "#o *",   kMotorPrompt, 21, 5},
    /* 31 */ {"Off electrov.,stirrings,motor",    "#z*",    {}, 1, 5},
    /* 32 */ {"Electrovalves test",               "#v*",    {}, 1, 5},
    /* 33 */ {"Machine reset",                    "#h*",    {}, 2, 10},
    /* 34 */ {"SPI disable",                      "#nd*",   {}, 1, 5},
    /* 35 */ {"SPI enable",                       "#na*",   {}, 1, 5},
    /* 36 */ {"Auto-configuration",               "#ja*",   {}, 1, 5},
    /* 37 */ {"Read at memory address",           "#r *",   kReadMemoryPrompt, 5, 5},
    /* 38 */ {"Write at memory address",          "#w *",   kWriteMemoryPrompt, 2, 5},
    /* 39 */ {"Create qsmtranram-mask",           "#nm *",  kGroupsPrompt, 0, 10},
    /* 40 */ {"Clear qsmtranram",                 "#np*",   {}, 1, 5},
    /* 41 */ {"Read PWM freq./duty-cycle",        "#tr *",  {"Input 2 decimal characters for the PWM channel"}, 9, 5},
    /* 42 */ {"Write PWM freq./duty-cycle",       "#tw *",  kPwmPrompt, 2, 5},
    /* 43 */ {"Read stat. data1 (motors,...)",    "#kr *",  kReadDevicePrompt, 23, 5},
    /* 44 */ {"Write stat. data1 (motors,...)",   "#kt *",  kWriteDevicePrompt, 1, 5},
    /* 45 */ {"Read stat. data2 (cycles,...)",    "#kr *",  kReadProcessPrompt, 11, 5},
    /* 46 */ {"Read stat. data1 (motors,...)",    "#kv *",  kReadAllDevicesPrompt, 0, 20},
    /* 47 */ {"Write stat. data2 (cycles,...)",   "#kt *",  kWriteProcessPrompt, 1, 5},
    /* 48 */ {"Write stat. data in flash",        "#km*",   {}, 1, 5},
    /* 49 */ {"Custom command",                   " ",      {"Input the full wished string"}, 0, 10},
}};
// clang-format on

}  // namespace tintbench::link
