// What the rest of the program knows of the connected machine. The facts are drawn from its
// configuration file at each link-up and stay as they are until the next.
#pragma once

#include <array>
#include <string>

#include "base/Files.h"

namespace tintbench::config {

inline constexpr int kGroupAddresses = 32;
inline constexpr int kConnectors = 20;

// Index into `ElementLists`.
enum ElementKind { kCircuits, kCaps, kMotors, kStirrings, kElementKinds };

// Column of `GroupElements`.
enum GroupColumn { kGroupCircuit, kGroupStirring, kGroupMotor, kGroupFunctions, kGroupColumns };

// First index of `GroupInputs`.
enum InputKind { kDigitalInput = 1, kAnalogueInput = 2 };

// Lists are texts with "," behind each value. Group addresses and connectors count from 1: the
// entries of index 0 stay unused.
struct MachineFacts {
  // Two-digit element numbers, by ElementKind.
  std::array<std::string, kElementKinds> ElementLists;
  // By group address and GroupColumn: the two-digit elements at the address, and the motor's
  // functionalities, one "0" or "1" for each.
  std::array<std::array<std::string, kGroupColumns>, kGroupAddresses + 1> GroupElements;
  // By InputKind and group address: records of seven values with "," behind each and "|" at the
  // end. Type and connector; for an analogue input unit, start, end, low and high too.
  std::array<std::array<std::string, kGroupAddresses + 1>, kAnalogueInput + 1> GroupInputs;
  // The sensor number at each connector, 0 for none.
  std::array<int, kConnectors + 1> ConnectorSensors{};
  int PhotocellConnector = -1;  // -1 if there is none
  int MaxValves = 0;            // valves open at the same time
  int ExternalGroups = 0;
  int CapCount = 0;
  bool HasShelf = false;
  bool HasPuncher = false;
  int MonoPurgeLimit = 0;  // 1 to 4, or 0
  std::string MachineLabel;
  int ValveTestTime = 0;         // seconds, up to 600
  double ResetTimeout = 0;       // seconds
  std::string CircuitCapList;    // two-digit cap of each circuit, in the order of the circuits
  std::string CircuitMotorList;  // two-digit motor of each circuit
  std::string CapTypeList;
  std::string CapTimeList;           // seconds
  std::string CapThreePositionList;  // two-digit numbers of the caps of type 3
  int PoweredCapCount = 0;

  void Clear() { *this = {}; }
};

// Draws the facts of one slave from a configuration file. They are cleared first. True if the file
// was read whole; otherwise `ElementLists`, `PoweredCapCount` and the functionalities are empty
// and the other facts are those of the lines before the bad one.
bool ExecuteConfigKnown(base::FileSystem& files, const std::string& path, int slave,
                        MachineFacts& facts);

}  // namespace tintbench::config
