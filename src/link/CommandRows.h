// What the command table starts with, row by row: each command's texts, what its argument and its
// answer must be like, how long it may take, and which panels wait for it.
#pragma once

#include <array>
#include <span>
#include <string_view>

#include "link/CommandId.h"
#include "state/SensorPanels.h"

namespace tintbench::link {

// The lines of one question; empty ones at the end don't count.
using PromptLines = std::array<std::string_view, 7>;

enum class Rest { Nothing, Numeric, Hexadecimal };

inline constexpr int kAnyLength = -2;
inline constexpr int kEvenLength = -1;

// What an argument must be like: its length, which letters its first character may be (any if
// there are none), and of what kind all the rest is.
struct ArgumentRule {
  int Length = kAnyLength;  // which takes any text
  std::string_view First = {};
  Rest Kind = Rest::Numeric;
};

// Where the configuration may have a time of its own for a command.
enum class ConfiguredTime { None, Cap, Reset };

struct CommandText {
  CommandId Id;
  std::string_view Description;
  std::string_view Command;
  int AnswerLength;
  double TimeoutSeconds;
  PromptLines Prompt = {};
  ArgumentRule Argument = {};
  std::span<const state::Panel> Countdown = {};
  ConfiguredTime Time = ConfiguredTime::None;
};

// clang-format off
inline constexpr std::string_view kDeviceLine =
    "'A'(=stirring) or 'M'(=motor) or 'C'(=valves) or 'B'(=pumps) or 'P'(=cap) "
    "for the wished device-type ,";
inline constexpr std::string_view kTimeLine = "'T'(=machine-time) or ";
inline constexpr std::string_view kShelfLine = "'S'(=shelf-cycles) or ";
inline constexpr std::string_view kPunchingLine = "'F'(=punching-cycles) or ";
inline constexpr std::string_view kAutocapLine = "'E'(=autocap-cycles) or ";

inline constexpr ArgumentRule kPairsOfDigits{kEvenLength};
inline constexpr std::string_view kDataTypes = "BW";
inline constexpr std::string_view kDevices = "AMCBP";
inline constexpr std::string_view kProcesses = "TSFED";

inline constexpr std::array kInputAnswer{state::kInputPanel};
inline constexpr std::array kOutputAnswer{state::kOutputPanel};
inline constexpr std::array kBothAnswers{state::kInputPanel, state::kOutputPanel};
inline constexpr std::array kStatusAnswer{state::kStatusPanel};

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

inline constexpr std::array<CommandText, kCommandRows> kCommands{{
    {CommandId::ReadInputs,           "Read input sensors",               "#ir*",  9,  5, {}, {}, kInputAnswer},
    {CommandId::ReadOutputs,          "Read output sensors",              "#ur*",  5,  5, {}, {}, kOutputAnswer},
    {CommandId::ReadInputsAndOutputs, "Read input/output sensors",        "#iu*",  13, 5, {}, {}, kBothAnswers},
    {CommandId::ReadStatus,           "Status request",                   "#s*",   0,  5, {}, {}, kStatusAnswer},
    {CommandId::ReadBridges,          "H-bridges status",                 "#up*",  7,  5},
    {CommandId::SetOutputs,           "Set output sensors",               "#uw *", 2,  5, {"Input 4 hexadecimal characters"}, {4, "", Rest::Hexadecimal}},
    {CommandId::VerifyDispensing,     "Verify sensors for dispensing",    "#ns*",  2,  5},
    {CommandId::FirmwareVersion,      "Firmware version",                 "#jf*",  7,  5},
    {CommandId::PlatformVersion,      "Platform version",                 "#jp*",  21, 5},
    {CommandId::ReadAutotest,         "Status of Autotest",               "#xa*",  0,  5},
    {CommandId::GroupFunction,        "Group X-Function enable/disable",  "#ix *", 1,  5, kFunctionPrompt},
    {CommandId::ReadGroupInput,       "Read group input",                 "#ig *", 10, 5, kGroupInputPrompt},
    {CommandId::StopTimed,            "Stop timed processes",             "#pb*",  1,  5},
    {CommandId::RestartTimed,         "Restart timed processes",          "#pr*",  1,  5},
    {CommandId::StopMaster,           "Stop master serial process",       "#pm*",  1,  5},
    {CommandId::RestartMaster,        "Restart master serial process",    "#ps*",  1,  5},
    {CommandId::ReturnService,        "Return service in aux serial",     "#py*",  1,  5},
    {CommandId::ValvesOn,             "Electrovalve(s) enable",           "#a *",  -1, 5, kGroupsPrompt, kPairsOfDigits},
    {CommandId::ValvesOff,            "Electrovalve(s) disable",          "#g *",  -1, 5, kGroupsPrompt, kPairsOfDigits},
    {CommandId::StirringsOn,          "Stirring action(s) enable",        "#b *",  -1, 5, kGroupsPrompt, kPairsOfDigits},
    {CommandId::StirringsOff,         "Stirring action(s) disable",       "#m *",  -1, 5, kGroupsPrompt, kPairsOfDigits},
    {CommandId::CapOpen,              "Cap open",                         "#do *", 4,  15, kCapPrompt, {2}, {}, ConfiguredTime::Cap},
    {CommandId::CapClose,             "Cap close",                        "#dc *", 4,  15, kCapPrompt, {2}, {}, ConfiguredTime::Cap},
    {CommandId::CapIntermediate,      "Cap intermediate position",        "#dm *", 4,  15, kCapPrompt, {}, {}, ConfiguredTime::Cap},
    {CommandId::Punch,                "Automatic Punching",               "#ez*",  1,  5},
    {CommandId::ShelfUp,              "Shelf UP and stop high",           "#eu*",  1,  10},
    {CommandId::ShelfDown,            "Shelf DOWN and stop low",          "#ed*",  1,  10},
    {CommandId::ShelfPosition,        "Shelf position",                   "#ep*",  5,  5},
    {CommandId::MotorOn,              "Motor ON",                         "#f *",  3,  5, kMotorOnPrompt, {5}},
    {CommandId::MotorOff,             "Motor OFF",                        "#l *",  3,  5, kMotorPrompt, {2}},
    {CommandId::MotorSpeed,           "Zero-pump-time / rpm*100",         "#o *",  21, 5, kMotorPrompt, {2}},
    {CommandId::AllOff,               "Off electrov.,stirrings,motor",    "#z*",   1,  5},
    {CommandId::ValveTest,            "Electrovalves test",               "#v*",   1,  5},
    {CommandId::Reset,                "Machine reset",                    "#h*",   2,  10, {}, {}, {}, ConfiguredTime::Reset},
    {CommandId::SpiOff,               "SPI disable",                      "#nd*",  1,  5},
    {CommandId::SpiOn,                "SPI enable",                       "#na*",  1,  5},
    {CommandId::AutoConfiguration,    "Auto-configuration",               "#ja*",  1,  5},
    {CommandId::ReadMemory,           "Read at memory address",           "#r *",  5,  5, kReadMemoryPrompt, {9, kDataTypes, Rest::Hexadecimal}},
    {CommandId::WriteMemory,          "Write at memory address",          "#w *",  2,  5, kWriteMemoryPrompt, {13, kDataTypes, Rest::Hexadecimal}},
    {CommandId::CreateMask,           "Create qsmtranram-mask",           "#nm *", 0,  10, kGroupsPrompt, kPairsOfDigits},
    {CommandId::ClearMask,            "Clear qsmtranram",                 "#np*",  1,  5},
    {CommandId::ReadPwm,              "Read PWM freq./duty-cycle",        "#tr *", 9,  5, {"Input 2 decimal characters for the PWM channel"}, {2}},
    {CommandId::WritePwm,             "Write PWM freq./duty-cycle",       "#tw *", 2,  5, kPwmPrompt, {10}},
    {CommandId::ReadDevice,           "Read stat. data1 (motors,...)",    "#kr *", 23, 5, kReadDevicePrompt, {3, kDevices}},
    {CommandId::WriteDevice,          "Write stat. data1 (motors,...)",   "#kt *", 1,  5, kWriteDevicePrompt, {23, kDevices}},
    {CommandId::ReadProcess,          "Read stat. data2 (cycles,...)",    "#kr *", 11, 5, kReadProcessPrompt, {1, kProcesses, Rest::Nothing}},
    {CommandId::ReadDevices,          "Read stat. data1 (motors,...)",    "#kv *", 0,  20, kReadAllDevicesPrompt},
    {CommandId::WriteProcess,         "Write stat. data2 (cycles,...)",   "#kt *", 1,  5, kWriteProcessPrompt, {11, kProcesses}},
    {CommandId::StoreCounts,          "Write stat. data in flash",        "#km*",  1,  5},
    {CommandId::Custom,               "Custom command",                   " ",     0,  10, {"Input the full wished string"}},
}};
// clang-format on

}  // namespace tintbench::link
