// The numbers of the command table's rows that the Maintenance Menu and its processes send.
#pragma once

namespace tintbench::commands::rows {

inline constexpr int kInputs = 0;
inline constexpr int kOutputs = 1;
inline constexpr int kStatus = 3;
inline constexpr int kVerify = 6;
inline constexpr int kHoldTimed = 12;
inline constexpr int kValvesOn = 17;
inline constexpr int kValvesOff = 18;
inline constexpr int kStirringOn = 19;
inline constexpr int kStirringOff = 20;
inline constexpr int kCapOpen = 21;
inline constexpr int kCapClose = 22;
inline constexpr int kCapIntermediate = 23;
inline constexpr int kPunch = 24;
inline constexpr int kShelfUp = 25;
inline constexpr int kShelfDown = 26;
inline constexpr int kMotorOn = 28;
inline constexpr int kMotorOff = 29;
inline constexpr int kMotorSpeed = 30;
inline constexpr int kAllOff = 31;
inline constexpr int kValveTest = 32;
inline constexpr int kReset = 33;

}  // namespace tintbench::commands::rows
