// The serial port as the program drives it: one port object that is pointed at a
// port number, opened, and then read and written byte by byte without conversion.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::link {

// What stands behind a port's number.
struct PortDevice {
  int Number = 0;
  std::string Device;   // "/dev/ttyUSB0"
  std::string Adapter;  // its name, as far as it tells one
  bool IsNew = false;   // it wasn't there yet when the program started

  std::string Words() const { return Adapter.empty() ? Device : Device + ", " + Adapter; }
};

class SerialPort {
 public:
  virtual ~SerialPort() = default;

  // Number of the port, 1 for the first. A change takes effect at the next opening.
  virtual int CommPort() const = 0;
  virtual void CommPort(int number) = 0;

  // "speed,parity,data bits,stop bits", for example "19200,N,8,1". A change takes effect at
  // the next opening, or at once on an open port.
  virtual std::string Settings() const = 0;
  virtual void Settings(const std::string& settings) = 0;

  // True while the port is open. A port whose device is lost closes by itself.
  virtual bool PortOpen() const = 0;

  // True if the device of `CommPort` is there, so that the port could be opened. Asks the system
  // only: nothing goes on the line.
  virtual bool DevicePresent() const { return true; }

  // Looks up anew what stands behind the numbers. A device keeps the number that it has once got,
  // and one that wasn't there before gets a free number.
  virtual std::vector<PortDevice> Devices() { return {}; }

  // Why the port couldn't be opened when that was tried last, and what to do about it, in a line;
  // empty if it could, or if nothing is known.
  virtual std::string LastProblem() const { return {}; }

  // Opens the port `CommPort` with `Settings`, or closes it. False if it can't be opened, or if
  // it is open already; closing always succeeds. Both buffers start empty.
  virtual bool PortOpen(bool open) = 0;

  // Sizes of the two buffers in bytes. `InBufferCount` never exceeds `InBufferSize`.
  virtual int InBufferSize() const = 0;
  virtual void InBufferSize(int bytes) = 0;
  virtual int OutBufferSize() const = 0;
  virtual void OutBufferSize(int bytes) = 0;

  // How many bytes one `Input` takes at the most; 0 takes all that wait.
  virtual int InputLen() const = 0;
  virtual void InputLen(int bytes) = 0;

  // Bytes received and not yet read. 0 on a closed port. Never blocks.
  virtual std::size_t InBufferCount() = 0;

  // Takes the waiting bytes, `InputLen` of them at the most. Empty if none wait. Never blocks.
  virtual std::string Input() = 0;

  // Queues the bytes for sending as they are. Dropped on a closed port.
  virtual void Output(std::string_view bytes) = 0;

  // Waits until a byte is there to be read, for `seconds` at the most, without serving any
  // event and without taking processor time. True if a byte waits; on a closed port false after
  // the whole time has passed.
  virtual bool WaitForInput(double seconds) = 0;
};

}  // namespace tintbench::link
