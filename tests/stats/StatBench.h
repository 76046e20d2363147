// The window of statistics on a scripted line and the virtual clock, for a small machine.
#pragma once

#include <string>
#include <vector>

#include "base/Clock.h"
#include "base/MemoryFileSystem.h"
#include "base/Text.h"
#include "link/ScriptedPort.h"
#include "stats/FormStat.h"
#include "ui/NotingScreen.h"

namespace tintbench::testing {

// One element as each side of the program calls it.
struct StatItem {
  int Tab;
  const char* Element;
  const char* Wire;
  const char* Key;
  const char* Item;
};

inline constexpr StatItem kStatItems[] = {
    {0, "1", "M01", "MOTOR_1", "Motors[ 1 ] "},       {0, "12", "M12", "MOTOR_12", "Motors[ 12 ] "},
    {1, "3", "C03", "CIRCUIT_3", "Circuits[ 3 ] "},   {2, "3", "B03", "PUMP_3", "Pumps[ 3 ] "},
    {3, "1", "A01", "STIRRING_1", "Stirrings[ 1 ] "}, {4, "2", "P02", "CAP_2", "Caps[ 2 ] "},
    {5, "", "T", "TMACHINE_", "Machine[  ] "},        {6, "", "S", "CSHELF_", "Shelf[  ] "},
    {7, "", "F", "CPUNCHER_", "Puncher[  ] "},        {8, "", "E", "CPLUGGER_", "Plugger[  ] "},
    {9, "", "D", "CDISP_", "Dispensation[  ] "},
};

inline bool HasElement(const StatItem& item) { return item.Element[0] != '\0'; }

struct StatBench {
  static constexpr const char* kLast = "/app/STAT/LASTSTAT.DAT";
  static constexpr const char* kSaved = "/app/STAT/mine.sds";

  StatBench() {
    Facts.ElementLists = {"03,", "02,", "01,12,", "01,"};
    Status.FirmwareVersion = "5.2";
  }

  void Load() { Screen.Load(Window); }
  void Pick(const StatItem& item) {
    Window.TabStripSta.PressTab(item.Tab);
    for (int tab = 0; tab < Window.TabStripData.TabCount(); ++tab) {
      if (Window.TabStripData.Tab(tab).Caption == item.Element) Window.TabStripData.PressTab(tab);
    }
  }
  // The file's lines without their stamps.
  std::vector<std::string> Lines(const char* path) const {
    std::vector<std::string> lines = base::SplitFields(Files.Get(path), "\r\n");
    for (std::string& line : lines) line.resize(line.rfind(','));
    return lines;
  }
  // The texts of the boxes since the last call.
  std::vector<std::string> Boxes() {
    std::vector<std::string> texts;
    for (const ui::Box& box : std::exchange(Screen.Boxes, {})) texts.push_back(box.Text);
    return texts;
  }

  base::VirtualClock Clock{{2026, 3, 7, 9, 5, 12}};
  MemoryFileSystem Files;
  base::AppPaths Paths{"/app"};
  NotingScreen Screen{Clock};
  ScriptedPort Port{Clock};
  link::CommandTable Table;
  link::DebugLog Log{Files, "/app/log"};
  link::Transaction Commands{Port, Clock, Table, Screen, Log};
  config::MachineFacts Facts;
  link::LinkStatus Status;
  stats::StatCatalogue Catalogue;
  stats::FormStat Window{{{Port, Clock, Table, Commands, Log, Status}, Screen, Files, Paths, Facts},
                         Catalogue};
};

}  // namespace tintbench::testing
