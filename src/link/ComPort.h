// The serial port as the operator knows it: the list of usable port numbers, and opening and
// closing one of them.
#pragma once

#include <string>

#include "base/Clock.h"
#include "link/LinkStatus.h"
#include "link/SerialPort.h"

namespace tintbench::link {

// Ports are numbered from 1 to this.
inline constexpr int kMostPorts = 8;
// Size of both buffers of the port: above one Xmodem block of 1024 bytes with its header.
inline constexpr int kPortBufferSize = 1048;

// Which of the machine's two serial lines the tool is on.
inline constexpr const char* kServiceMode = "SERVICE";
inline constexpr const char* kMasterMode = "MASTER";

// Settings of the service line and of the machine's master line.
inline constexpr const char* kServiceSettings = "19200,N,8,1";
inline constexpr const char* kMasterSettings = "9600,N,8,1";

class ComPort {
 public:
  ComPort(SerialPort& port, base::Clock& clock, LinkStatus& status)
      : port_(port), clock_(clock), status_(status) {}

  // Finds the ports that can be opened. False if there is none.
  bool DefinePortList();

  // The usable ports as a run of three-digit numbers, "001002005".
  const std::string& PortList() const { return portList_; }
  // The first port of the list; empty if the list is.
  std::string FirstPort() const { return portList_.substr(0, kDigits); }
  // The port behind the present one in the list; empty at the list's end, and if the present one
  // isn't in the list.
  std::string NextPort() const;
  // Takes a port into the list that wasn't there when the list was made.
  void AddPort(int number);
  // A port number in three digits.
  static std::string FormatPortNumber(int number);

  // Opens a port such as "001", closing it first if it is open, and drops what the line brings in
  // the half second after. True if it is open then; the link state follows.
  bool OpenComPort(const std::string& port, const std::string& settings);
  void CloseComPort();

 private:
  static constexpr std::size_t kDigits = 3;

  SerialPort& port_;
  base::Clock& clock_;
  LinkStatus& status_;
  std::string portList_;
};

}  // namespace tintbench::link
