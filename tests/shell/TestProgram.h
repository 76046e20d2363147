// The whole program on the virtual clock, with simulated machines on its ports and a screen that
// notes every box and answers it. What the main window does is up to the test.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "base/Clock.h"
#include "base/Files.h"
#include "base/ScratchFolder.h"
#include "link/NotingPort.h"
#include "shell/Program.h"
#include "simulator/SimulatedPort.h"
#include "ui/NotingScreen.h"

namespace tintbench::testing {

class TestProgram {
 public:
  // A machine on each port of `machines`, nothing on those that are nullopt.
  explicit TestProgram(const std::map<int, std::optional<simulator::MachineOptions>>& machines = {
                           {1, {{}}}}) {
    std::map<int, simulator::Machine*> ports;
    for (const auto& [number, options] : machines) {
      ports[number] = nullptr;
      if (!options) continue;
      machines_[number] = std::make_unique<simulator::Machine>(Clock, *options);
      ports[number] = machines_[number].get();
    }
    simulated_ = std::make_unique<simulator::SimulatedPort>(Clock, ports);
    Port = std::make_unique<NotingPort>(*simulated_);
  }

  shell::Program::Result Run(const std::string& commandLine = {}) {
    Program = std::make_unique<shell::Program>(
        shell::ProgramSetup{Clock, Files, *Port, Screen, base::MakeIdentity("TintBench", "1.2.3"),
                            Folder.Path(), commandLine});
    return Program->Main();
  }

  simulator::Machine& Machine(int port = 1) { return *machines_.at(port); }
  shell::Form1& MainWindow() { return dynamic_cast<shell::Form1&>(*Screen.FindForm("Form1")); }

  base::VirtualClock Clock;
  base::StandardFileSystem Files;
  ScratchFolder Folder;
  NotingScreen Screen{Clock};
  std::unique_ptr<NotingPort> Port;
  std::unique_ptr<shell::Program> Program;

 private:
  std::map<int, std::unique_ptr<simulator::Machine>> machines_;
  std::unique_ptr<simulator::SimulatedPort> simulated_;
};

}  // namespace tintbench::testing
