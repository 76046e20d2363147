// The characters of an Xmodem transfer: sending and awaiting them on the serial port, and their
// trace, one line for each.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "base/Clock.h"
#include "base/Files.h"
#include "link/SerialPort.h"

namespace tintbench::link {

class XmodemLine {
 public:
  XmodemLine(SerialPort& port, base::Clock& clock) : port_(port), clock_(clock) {}

  void SendChar(int code);

  // Several characters in one piece, as a block is sent.
  void Send(std::string_view characters);

  // The code of the next character, or kXmodemSilence if none comes within `timeoutMs`
  // milliseconds; 0 waits for ever. A closed port is silent at once, so a line that is lost ends
  // a transfer by the ordinary rules of time-outs without their waits.
  int ReadChar(int timeoutMs);

  // Tells the other end to give up: eight CAN, and eight BS that wipe them from a terminal.
  void CancelTransfer();

  // Traces every character from now on. A trace that can't be opened is null and nothing is said.
  void StartTrace(std::unique_ptr<base::OutputFile> trace) { trace_ = std::move(trace); }
  void StopTrace() { trace_.reset(); }

 private:
  bool AwaitCharacter(int timeoutMs);
  void Trace(std::string_view opening, std::string_view middle, char character,
             std::string_view closing);

  SerialPort& port_;
  base::Clock& clock_;
  std::unique_ptr<base::OutputFile> trace_;
};

}  // namespace tintbench::link
