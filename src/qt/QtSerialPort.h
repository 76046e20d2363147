// The serial port of the real world, over the toolkit's own: real ports and pseudo-terminals, used
// from one thread without any event loop.
#pragma once

#include <QSerialPort>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "base/Clock.h"
#include "link/SerialPort.h"
#include "qt/PortTable.h"

namespace tintbench::desktop {

class QtSerialPort final : public link::SerialPort {
 public:
  // Takes one line in plain words: why a port can't be opened, or that it was lost.
  using Report = std::function<void(const std::string&)>;

  // Every problem is told once, until a port has been open again. Numbers without a device, and
  // ports of the system's own list that just don't open, are tried in silence.
  QtSerialPort(base::Clock& clock, PortTable ports, Report report);
  ~QtSerialPort() override;

  int CommPort() const override { return number_; }
  void CommPort(int number) override { number_ = number; }
  std::string Settings() const override { return settings_; }
  void Settings(const std::string& settings) override;
  bool DevicePresent() const override;
  std::vector<link::PortDevice> Devices() override;
  std::string LastProblem() const override { return problem_; }
  bool PortOpen() const override { return serial_.isOpen(); }
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
  std::string TryToOpen(const std::string& device);
  bool IsWorthTelling(const std::string& device) const;
  bool Apply(const std::string& settings);
  bool Reserve();
  void Close();
  void Collect(int waitMs);
  void Drain();
  bool IsLost() const;
  void NoticeLoss();
  void Tell(const std::string& problem);
  std::string Name(int number) const;

  base::Clock& clock_;
  PortTable ports_;
  Report report_;
  std::set<std::string> told_;
  std::string problem_;
  QSerialPort serial_;
  int number_ = 1;
  int openNumber_ = 0;  // the number that the port was opened under
  std::string settings_ = "9600,N,8,1";
  int inBufferSize_ = 1024;
  int outBufferSize_ = 512;
  int inputLen_ = 0;
  std::string input_;
  std::size_t taken_ = 0;  // how much of `input_` has been read
};

}  // namespace tintbench::desktop
