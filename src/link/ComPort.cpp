#include "link/ComPort.h"

#include "base/Numbers.h"

namespace tintbench::link {

namespace {

// What an opening may stir up on the line has come by then, in seconds.
constexpr double kSettleTime = 0.5;

}  // namespace

bool ComPort::DefinePortList() {
  CloseComPort();
  portList_.clear();
  for (int number = 1; number <= kMostPorts; ++number) {
    port_.CommPort(number);
    if (!port_.PortOpen(true)) continue;
    portList_ += FormatPortNumber(number);
    port_.PortOpen(false);
  }
  return !portList_.empty();
}

void ComPort::AddPort(int number) {
  const std::string added = FormatPortNumber(number);
  std::size_t at = 0;
  while (at < portList_.size() && portList_.compare(at, kDigits, added) < 0) at += kDigits;
  if (portList_.compare(at, kDigits, added) != 0) portList_.insert(at, added);
}

std::string ComPort::NextPort() const {
  const std::string present = FormatPortNumber(port_.CommPort());
  for (std::size_t at = 0; at < portList_.size(); at += kDigits) {
    if (portList_.compare(at, kDigits, present) == 0)
      return portList_.substr(at + kDigits, kDigits);
  }
  return {};
}

std::string ComPort::FormatPortNumber(int number) {
  return base::LastDigits(number, static_cast<int>(kDigits));
}

bool ComPort::OpenComPort(const std::string& port, const std::string& settings) {
  CloseComPort();
  port_.InBufferSize(kPortBufferSize);
  port_.OutBufferSize(kPortBufferSize);
  port_.InputLen(0);
  port_.CommPort(base::LeadingInt(port));
  port_.Settings(settings);
  if (!port_.PortOpen(true)) return false;
  clock_.Sleep(kSettleTime);
  if (port_.InBufferCount() > 0) port_.Input();
  status_.LinkState = kPortOpen;
  return true;
}

void ComPort::CloseComPort() {
  if (port_.PortOpen()) port_.PortOpen(false);
  status_.LinkState = kPortClosed;
}

}  // namespace tintbench::link
