// The monitor of a group on the virtual clock, with a recording that keeps its lines. `Wire` has
// the port: a scripted one, or a simulated machine's.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "base/MemoryFileSystem.h"
#include "groups/FormGMon.h"
#include "link/ScriptedPort.h"
#include "ui/NotingScreen.h"

namespace tintbench::testing {

struct KeptRecord final : groups::SessionRecord {
  std::string Symbol(groups::Mark mark) const override {
    constexpr std::array<const char*, 15> kNames{
        "CHECK",       "START",        "END",       "ENQ_ON",    "ENQ_OFF",
        "ENQ_TIME",    "CAP_OPEN",     "CAP_CLOSE", "VALVE_ON",  "VALVE_OFF",
        "STIRRING_ON", "STIRRING_OFF", "MOTOR_ON",  "MOTOR_OFF", "SPEED"};
    return std::string(" ") + kNames.at(static_cast<std::size_t>(mark));
  }
  std::string InputSymbol(config::InputKind kind, int index,
                          groups::InputMark mark) const override {
    constexpr std::array<const char*, 5> kNames{"ON", "OFF", "ENQ", "X1", "X0"};
    return (kind == config::kDigitalInput ? " IDI" : " IAN") + std::to_string(index + 1) + "_" +
           kNames.at(static_cast<std::size_t>(mark));
  }
  // Without the time of day.
  void WriteRecordLine(const std::string& text) override { Lines.push_back(text.substr(9)); }

  std::vector<std::string> Lines;
};

struct ScriptedLine {
  explicit ScriptedLine(base::Clock& clock) : Port(clock) {}
  ScriptedPort Port;
};

template <typename Wire>
struct GroupBenchOn {
  GroupBenchOn() {
    Facts.ElementLists = {"03,04,", "01,02,", "10,", "05,"};
    Facts.CircuitCapList = "02,01,";
    Facts.GroupElements[7] = {"03", "05", "10", "1011111111"};
    Facts.GroupInputs[config::kDigitalInput][7] = "31,0,,,,,,|38,1,,,,,,|";
    Facts.GroupInputs[config::kAnalogueInput][7] = "01,0,BAR,0,10,1,8,|04,3,C,-10,60,5,40,|";
  }

  void Open(const std::string& address = "7") {
    Window.SetGroupAddress(address);
    Screen.Show(Window);
  }
  // A press that nothing else comes in between.
  void Press(ui::Control& control) {
    Screen.Alone([&] { control.Press(); });
  }
  bool Close() {
    bool closed = false;
    Screen.Alone([&] { closed = Screen.CloseByOperator(Window); });
    return closed;
  }

  base::VirtualClock Clock{{2026, 3, 7, 9, 15, 2}};
  MemoryFileSystem Files;
  NotingScreen Screen{Clock};
  Wire Line{Clock};
  decltype(Wire::Port)& Port = Line.Port;
  link::CommandTable Table;
  link::DebugLog Log{Files, "/app/log"};
  link::Transaction Commands{Port, Clock, Table, Screen, Log};
  link::LinkStatus Status;
  config::MachineFacts Facts;
  config::SelectorCatalogue Selectors;
  link::SwitchedOn On;
  KeptRecord Record;
  groups::InstrumentPanel Instruments;
  groups::ReadingsLog Readings;
  groups::FormGMon Window{
      {{Port, Clock, Table, Commands, Log, Status}, Screen, Facts, Selectors, On},
      {Record, Instruments, Readings}};
};

using GroupBench = GroupBenchOn<ScriptedLine>;

}  // namespace tintbench::testing
