// A machine on a desk: virtual clock, machine and port, with the few operations that the tests
// of the machine need. Speaks no protocol of its own.
#pragma once

#include <string>
#include <string_view>

#include "base/Clock.h"
#include "simulator/Machine.h"
#include "simulator/SimulatedPort.h"

namespace tintbench::simulator {

struct Desk {
  explicit Desk(MachineOptions options = {}, const std::string& settings = "19200,N,8,1")
      : TheMachine(Clock, std::move(options)), Port(Clock, {{1, &TheMachine}}) {
    Port.InBufferSize(1 << 20);
    Port.Settings(settings);
    Port.PortOpen(true);
  }

  // Sends and gives what came until the line was quiet for `quiet` seconds.
  std::string Ask(std::string_view command, double quiet = 1.0) {
    Port.Output(command);
    return Listen(quiet);
  }

  std::string Listen(double quiet = 1.0) {
    std::string heard;
    while (Port.WaitForInput(quiet)) heard += Port.Input();
    return heard;
  }

  // Gives the next byte, or an empty text after `seconds`.
  std::string Next(double seconds) {
    Port.InputLen(1);
    std::string byte = Port.WaitForInput(seconds) ? Port.Input() : std::string();
    Port.InputLen(0);
    return byte;
  }

  std::string Tell(std::string_view words) { return TheMachine.Tell(words); }

  base::VirtualClock Clock;
  Machine TheMachine;
  SimulatedPort Port;
};

}  // namespace tintbench::simulator
