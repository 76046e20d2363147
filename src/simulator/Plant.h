// All that the machine is made of, apart from its serial line.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>

#include "simulator/Autotest.h"
#include "simulator/Caps.h"
#include "simulator/Configuration.h"
#include "simulator/Elements.h"
#include "simulator/ErrorList.h"
#include "simulator/Groups.h"
#include "simulator/Memory.h"
#include "simulator/Processes.h"
#include "simulator/Shelf.h"
#include "simulator/Statistics.h"
#include "simulator/ValveTest.h"

namespace tintbench::simulator {

// The parts know one another by reference, so a plant stays where it was made.
struct Plant {
  // Firmware before this version takes a configuration without a word and gives none.
  static constexpr int kFirstWithConfiguration = 4;
  static constexpr std::uint16_t kUsualOutputs = 0x3000;  // voltage of electrovalves and modules
  static constexpr std::size_t kAutoConfiguration = 0;    // dip-switches by place
  static constexpr std::size_t kLoader = 3;

  Plant(Configuration configuration, std::string firmware, double now);
  Plant(const Plant&) = delete;
  Plant& operator=(const Plant&) = delete;

  // The leading number of the firmware version, 0 if it has none.
  double FirmwareNumber() const;

  // What has happened by itself until `now` is booked.
  void Settle(double now);

  // Everything stands as after a reset at `now`: all is off, errors and what was not stored in
  // flash memory are gone. Hands, wires and dip-switches stay as they were.
  void Reset(double now);

  // Switches an external group; one that is off has nothing on.
  void SwitchGroup(int group, bool on, double now);

  // True while a process runs that the status calls busy.
  bool Busy(double now) const;

  Configuration Config;
  std::string Firmware;
  ErrorList Errors;
  Statistics TheStatistics{Config};
  Elements TheElements{Config, TheStatistics, Errors};
  Caps TheCaps{Config};
  Shelf TheShelf{Config};
  ValveTest TheValveTest{Config, TheElements};
  Groups TheGroups{Config, TheElements};
  Processes TheProcesses{Config, TheStatistics, TheElements};
  Memory TheMemory;
  PwmChannels Pwms;
  Autotest TheAutotest;
  std::string Mask;  // of qsmtranram, the pairs that it was made of
  std::uint16_t Outputs = kUsualOutputs;
  bool SpiEnabled = true;
  bool DoorOpen = false;
  std::map<int, bool> ForcedInputs;   // by connector
  std::map<int, bool> ForcedOutputs;  // by row of the output panel, 1 to 16
  std::array<bool, 4> DipSwitches{};  // places of switch 1 to 4
  double BusyUntil = 0.0;             // with work that has no part of its own
};

}  // namespace tintbench::simulator
