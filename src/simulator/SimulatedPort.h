// A serial port with the simulated machine at its far end, on either clock, at the line's speed.
#pragma once

#include <map>
#include <vector>

#include "base/Clock.h"
#include "link/SerialPort.h"
#include "simulator/Machine.h"

namespace tintbench::simulator {

class SimulatedPort final : public link::SerialPort {
 public:
  // The ports that exist, by number, and what stands on each: nullptr for nothing. A port with
  // any other number can't be opened. Clock and machines must outlive the port.
  SimulatedPort(base::Clock& clock, std::map<int, Machine*> ports);

  int CommPort() const override { return number_; }
  void CommPort(int number) override { number_ = number; }
  std::string Settings() const override { return settings_; }
  void Settings(const std::string& settings) override;
  bool PortOpen() const override;
  bool DevicePresent() const override;
  std::vector<link::PortDevice> Devices() override;
  std::string LastProblem() const override { return problem_; }
  bool PortOpen(bool open) override;
  int InBufferSize() const override { return inBufferSize_; }
  void InBufferSize(int bytes) override { inBufferSize_ = bytes; }
  int OutBufferSize() const override { return outBufferSize_; }
  void OutBufferSize(int bytes) override { outBufferSize_ = bytes; }
  int InputLen() const override { return inputLen_; }
  void InputLen(int bytes) override { inputLen_ = bytes; }
  std::size_t InBufferCount() override;
  std::string Input() override;
  void Output(std::string_view bytes) override;
  bool WaitForInput(double seconds) override;

 private:
  bool Open();
  std::string Obstacle() const;
  void Close();
  void Collect();

  base::Clock& clock_;
  std::map<int, Machine*> ports_;
  int number_ = 1;
  std::string settings_ = "9600,N,8,1";
  int inBufferSize_ = 1024;
  int outBufferSize_ = 512;
  int inputLen_ = 0;
  bool open_ = false;
  Machine* machine_ = nullptr;  // what stands on the open port
  std::size_t pullsAtOpening_ = 0;
  std::string input_;
  std::string problem_;
};

}  // namespace tintbench::simulator
