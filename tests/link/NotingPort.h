// A serial port between the program and another port, for tests that want to know what went over.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "link/SerialPort.h"

namespace tintbench::testing {

// Passes everything on to another port, and notes openings and what goes over the line.
class NotingPort final : public link::SerialPort {
 public:
  explicit NotingPort(link::SerialPort& port) : port_(port) {}

  std::string Written;
  std::size_t Sent = 0;             // bytes written while the port was open
  std::size_t Read = 0;             // bytes read
  std::function<void()> OnWriting;  // called with each piece that is written
  std::vector<std::string> Opened;  // "2: 19200,N,8,1", whether it succeeded or not
  // Given each piece that is read.
  std::function<void(const std::string&)> OnReading;

  int CommPort() const override { return port_.CommPort(); }
  void CommPort(int number) override { port_.CommPort(number); }
  std::string Settings() const override { return port_.Settings(); }
  void Settings(const std::string& settings) override { port_.Settings(settings); }
  bool PortOpen() const override { return port_.PortOpen(); }
  bool DevicePresent() const override { return port_.DevicePresent(); }
  std::string LastProblem() const override { return port_.LastProblem(); }
  bool PortOpen(bool open) override {
    if (open) Opened.push_back(std::to_string(CommPort()) + ": " + Settings());
    return port_.PortOpen(open);
  }
  int InBufferSize() const override { return port_.InBufferSize(); }
  void InBufferSize(int bytes) override { port_.InBufferSize(bytes); }
  int OutBufferSize() const override { return port_.OutBufferSize(); }
  void OutBufferSize(int bytes) override { port_.OutBufferSize(bytes); }
  int InputLen() const override { return port_.InputLen(); }
  void InputLen(int bytes) override { port_.InputLen(bytes); }
  std::size_t InBufferCount() override { return port_.InBufferCount(); }
  std::string Input() override {
    std::string bytes = port_.Input();
    Read += bytes.size();
    if (OnReading) OnReading(bytes);
    return bytes;
  }
  void Output(std::string_view bytes) override {
    Written += bytes;
    if (port_.PortOpen()) Sent += bytes.size();
    if (OnWriting) OnWriting();
    port_.Output(bytes);
  }
  bool WaitForInput(double seconds) override { return port_.WaitForInput(seconds); }

 private:
  link::SerialPort& port_;
};

}  // namespace tintbench::testing
