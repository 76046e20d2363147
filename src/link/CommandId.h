// The rows of the command table by name, in the order of the numbers, 0 to 49, by which lists and
// manuals know them.
#pragma once

namespace tintbench::link {

enum class CommandId : int {
  ReadInputs,
  ReadOutputs,
  ReadInputsAndOutputs,
  ReadStatus,
  ReadBridges,
  SetOutputs,
  VerifyDispensing,
  FirmwareVersion,
  PlatformVersion,
  ReadAutotest,
  GroupFunction,
  ReadGroupInput,
  StopTimed,
  RestartTimed,
  StopMaster,
  RestartMaster,
  ReturnService,
  ValvesOn,
  ValvesOff,
  StirringsOn,
  StirringsOff,
  CapOpen,
  CapClose,
  CapIntermediate,
  Punch,
  ShelfUp,
  ShelfDown,
  ShelfPosition,
  MotorOn,
  MotorOff,
  MotorSpeed,
  AllOff,
  ValveTest,
  Reset,
  SpiOff,
  SpiOn,
  AutoConfiguration,
  ReadMemory,
  WriteMemory,
  CreateMask,
  ClearMask,
  ReadPwm,
  WritePwm,
  ReadDevice,  // the counts of one element
  WriteDevice,
  ReadProcess,  // those of the whole machine
  ReadDevices,  // those of all elements of a type
  WriteProcess,
  StoreCounts,  // in flash memory
  Custom,
};

inline constexpr int kCommandRows = 50;

constexpr int NumberOf(CommandId row) { return static_cast<int>(row); }

}  // namespace tintbench::link
