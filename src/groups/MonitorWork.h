// What the jobs of a group's monitor share: the program's parts that they work with, the window,
// the group and what every command of theirs does.
#pragma once

#include <string>

#include "base/DateText.h"
#include "config/MachineFacts.h"
#include "config/SelectorCatalogue.h"
#include "groups/GroupParts.h"
#include "groups/GroupWindow.h"
#include "link/LineParts.h"
#include "link/LineView.h"
#include "link/SwitchedOn.h"
#include "ui/Screen.h"

namespace tintbench::groups {

// All of it must outlive the window.
struct MonitorParts : link::LineParts {
  ui::Screen& Screen;
  const config::MachineFacts& Facts;
  const config::SelectorCatalogue& Selectors;
  link::SwitchedOn& On;
};

struct MonitorWork {
  const MonitorParts& Parts;
  GroupWindow& Window;
  Group& TheGroup;
  link::LineView& Line;
  SessionRecord& Record;
  InstrumentPanel& Instruments;
  ReadingsLog& Readings;
  bool Activated = false;      // once since the window was loaded: its boxes are the operator's
  bool ExitRequested = false;  // it closes when what is under way has ended

  // The time of day as the recording has it.
  std::string TimeOfDay() const { return base::TimeText(Parts.Screen.Time().Local()); }

  // Sends the row as it stands in the table. The answer comes in upper case.
  std::string Send(link::CommandId row);

  // What a record line has behind its symbol at the debug level that wants it: the exchange.
  std::string Exchange(const std::string& command, const std::string& answer) const;

  // Shows at once what was wrong with the last answer; nothing is shown for a good one.
  void ShowFaults(const std::string& text);
};

// The faults of an answer and whose they are; empty if there are none.
std::string FaultLine(const std::string& faults, const std::string& whose);

}  // namespace tintbench::groups
