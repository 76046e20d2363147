// The symbols of a recording: each line carries one behind its time of day. Its sign tells a
// command to the machine ". >) ", a switch ". -) " or a value ". =) ".
#pragma once

#include <string>

#include "config/MachineFacts.h"
#include "groups/GroupParts.h"

namespace tintbench::groups {

// The elements of a group as they are written: two-digit numbers.
struct ElementNames {
  std::string Cap;
  std::string Valve;
  std::string Stirring;
  std::string Motor;
};

std::string RecordSymbol(Mark mark, const ElementNames& names);

// `number` counts from 1.
std::string InputRecordSymbol(config::InputKind kind, int number, InputMark mark);

}  // namespace tintbench::groups
