// The characters of an Xmodem transfer: sending and awaiting them on the serial port, and their
// trace, one line for each.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/Clock.h"
#include "base/Files.h"
#include "link/SerialPort.h"
#include "link/XmodemProtocol.h"

namespace tintbench::link {

class XmodemLine {
 public:
  // `attend` is called again and again while the line is waited for. True ends the wait: the
  // operator wants the transfer to end.
  XmodemLine(SerialPort& port, base::Clock& clock, std::function<bool()> attend)
      : port_(port), clock_(clock), attend_(std::move(attend)) {}

  void SendChar(int code);

  // Several characters in one piece, as a block is sent.
  void Send(std::string_view characters);

  // The code of the next character, kXmodemSilence if none comes within `timeoutMs` milliseconds,
  // where 0 waits for ever, or kXmodemStopped if the operator ends the wait. A closed port is
  // silent at once, so a line that is lost ends a transfer by the ordinary rules of time-outs
  // without their waits.
  int ReadChar(int timeoutMs);

  // The same until the clock reads `when`.
  int ReadCharUntil(double when);

  // What ReadChar would give. The character is still to be read.
  int PeekChar(int timeoutMs);

  // Reads so many characters into `characters`, as many at a time as are there. False if one lets
  // itself be waited for longer than `timeoutMs`, or the operator ends the wait.
  bool ReadBlock(std::size_t count, int timeoutMs, std::string& characters);

  // Tells the other end to give up: eight CAN, and eight BS that wipe them from a terminal.
  void CancelTransfer();

  // Traces every character from now on. A trace that can't be opened is null and nothing is said.
  void StartTrace(std::unique_ptr<base::OutputFile> trace) { trace_ = std::move(trace); }
  void StopTrace() { trace_.reset(); }

 private:
  double TimeOut(int timeoutMs) const;
  int AwaitInput(double when);
  int Fetch(double when);
  void TraceRead(std::string_view characters);
  void Trace(std::string_view opening, std::string_view middle, char character,
             std::string_view closing);

  SerialPort& port_;
  base::Clock& clock_;
  std::function<bool()> attend_;
  std::unique_ptr<base::OutputFile> trace_;
  int peeked_ = kXmodemSilence;  // a character that was fetched and not yet read
};

}  // namespace tintbench::link
