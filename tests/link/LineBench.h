// All that speaks on the line, with a simulated machine at its other end, files in memory and the
// virtual clock, but without the program around it.
#pragma once

#include <string>
#include <utility>

#include "base/Clock.h"
#include "base/MemoryFileSystem.h"
#include "link/ComPort.h"
#include "link/NotingPort.h"
#include "link/Transaction.h"
#include "link/Xmodem.h"
#include "simulator/SimulatedPort.h"
#include "ui/NotingScreen.h"

namespace tintbench::testing {

// A configuration that fills as many bytes, from 200 on; `mark` tells it from others.
inline std::string ConfigurationOf(std::size_t size, const std::string& mark) {
  const std::string end = "@ECS 1\r\n@PDD 1\r\n";
  std::string text = "@ICS 1\r\n@GEN 1 16,1,0,0,2,0,0,0,4,\"" + mark + "\",0\r\n";
  for (std::size_t line = 0; text.size() + 50 + end.size() < size; ++line) {
    text += "% line " + std::to_string(line * 7919 % 1000) + " of " + mark + "\r\n";
  }
  text += "% ";
  text.resize(size - end.size() - 2, '.');
  return text + "\r\n" + end;
}

inline std::string Padded(std::string text, std::size_t size) {
  text.resize((text.size() + size - 1) / size * size, '\x1A');
  return text;
}

struct LineBench {
  static constexpr const char* kFile = "/app/file";
  static constexpr const char* kSource = "/app/source";
  static constexpr const char* kOld = "an earlier file";
  static constexpr int kNotStarted = -1000;  // no status of the engine

  explicit LineBench(simulator::MachineOptions options = {}) : Machine(Clock, std::move(options)) {
    Files.Put(kFile, kOld);
    Ports.OpenComPort("001", link::kServiceSettings);
    Engine.XmodemBind();
  }

  // Has the machine begin with a transfer, and takes part in it if it agrees.
  int Receive() {
    return Ask("#cr*") ? Engine.XmodemTransfer(link::kXmodemReceive, 128, kFile) : kNotStarted;
  }
  int Send(int size = 128) {
    return Ask("#ct*") ? Engine.XmodemTransfer(link::kXmodemSend, size, kSource) : kNotStarted;
  }

  // Line and machine are sound again, and whatever was under way is over.
  void Mend() {
    Machine.Tell("fault none");
    Machine.Tell("plug");
    Clock.Sleep(2.0);
    Machine.Tell("reset");
    Clock.Sleep(10.0);
    Ports.OpenComPort("001", link::kServiceSettings);
  }

  base::VirtualClock Clock;
  simulator::Machine Machine;
  simulator::SimulatedPort Simulated{Clock, {{1, &Machine}}};
  NotingPort Port{Simulated};
  MemoryFileSystem Files;
  NotingScreen Screen{Clock};
  link::LinkStatus Status;
  link::ComPort Ports{Port, Clock, Status};
  link::CommandTable Commands;
  link::DebugLog Log{Files, "/app/log"};
  link::Transaction Line{Port, Clock, Commands, Screen, Log};
  link::Xmodem Engine{Port, Clock, Files, {.AppPath = "/app"}};
  link::LineView View;

 private:
  bool Ask(const std::string& command) {
    Port.Output(command);
    const bool agrees = Port.WaitForInput(5.0) && Port.Input() == "A";
    Port.Sent = 0;
    return agrees;
  }
};

}  // namespace tintbench::testing
