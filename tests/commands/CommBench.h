// The window of commands on a scripted line and the virtual clock, without the program around it.
#pragma once

#include "base/Clock.h"
#include "base/MemoryFileSystem.h"
#include "commands/FormComm.h"
#include "config/SelectorCatalogue.h"
#include "link/ScriptedPort.h"
#include "link/Transaction.h"
#include "state/ErrorCatalogue.h"
#include "state/SensorNames.h"
#include "state/StateDecoder.h"
#include "ui/NotingScreen.h"

namespace tintbench::testing {

struct CommBench {
  CommBench() { Main.Caption = "TintBench"; }

  // Opens the window with one of its functions.
  void Load(commands::FormFunction function = commands::kCommandMenu) {
    Window.SetFormFunction(function);
    Screen.Load(Window);
  }

  base::VirtualClock Clock;
  MemoryFileSystem Files;
  NotingScreen Screen{Clock};
  ScriptedPort Port{Clock};
  link::CommandTable Table;
  link::DebugLog Log{Files, "/app/log"};
  link::Transaction Commands{Port, Clock, Table, Screen, Log};
  config::MachineFacts Facts;
  link::LinkStatus Status;
  config::SelectorCatalogue Selectors;
  state::SensorNames Names = state::BuildSensorNames(true, Facts, Selectors);
  state::ErrorTable Errors;
  state::StateDecoder Decoder{Names, Errors, [this] { return Status.FirmwareNumber(); }};
  state::PanelStyles Styles;
  ui::Form Main{"Form1"};
  commands::FormComm Window{
      {{Port, Clock, Table, Commands, Log, Status}, {Names, Decoder, Styles}, Screen, Facts, Main}};
};

}  // namespace tintbench::testing
