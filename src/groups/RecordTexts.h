// The lines that a recording has besides its records: the header that describes the group, and the
// marks of its start and its end.
#pragma once

#include <string>
#include <vector>

#include "groups/RecordSymbols.h"

namespace tintbench::groups {

using RecordLines = std::vector<std::string>;

// An input as the header describes it.
struct RecordedInput {
  int Number = 0;  // from 1
  std::string Description;
  std::string Connector;
  std::string Sensor;  // its type in words
};

// What the header tells of the group.
struct RecordedGroup {
  std::string Address;  // two digits
  ElementNames Names;
  std::vector<RecordedInput> Digital;
  std::vector<RecordedInput> Analogue;
};

// Lines without their ends. `time` is the time of day, "09:15:02".
RecordLines HeaderLines(const RecordedGroup& group);
RecordLines StartLines(const std::string& time);
// `reason` stands behind the end's symbol; empty if the operator ended the recording.
RecordLines EndLines(const std::string& time, const std::string& reason = {});

}  // namespace tintbench::groups
