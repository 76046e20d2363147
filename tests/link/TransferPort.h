// A serial port with nothing at its far end but one Xmodem transfer of the simulated machine, at
// the line's speed.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "base/Clock.h"
#include "link/SerialPort.h"
#include "simulator/Line.h"
#include "simulator/Xmodem.h"

namespace tintbench::testing {

class TransferPort : public link::SerialPort {
 public:
  TransferPort(base::Clock& clock, simulator::Transfer& transfer)
      : clock_(clock), transfer_(transfer) {}

  int CommPort() const override { return 1; }
  void CommPort(int) override {}
  std::string Settings() const override { return "19200,N,8,1"; }
  void Settings(const std::string&) override {}
  bool PortOpen() const override { return true; }
  bool PortOpen(bool) override { return true; }
  int InBufferSize() const override { return 1048; }
  void InBufferSize(int) override {}
  int OutBufferSize() const override { return 1048; }
  void OutBufferSize(int) override {}
  int InputLen() const override { return 0; }
  void InputLen(int) override {}

  std::size_t InBufferCount() override {
    Live();
    return input_.size();
  }
  std::string Input() override {
    Live();
    return std::exchange(input_, {});
  }
  void Output(std::string_view bytes) override {
    Live();
    toMachine_.Put(bytes, clock_.Now());
  }
  bool WaitForInput(double seconds) override {
    const double end = clock_.Now() + seconds;
    while (InBufferCount() == 0) {
      if (clock_.Now() >= end) return false;
      clock_.SleepUntil(std::min({end, OwnEvent(), fromMachine_.NextArrival()}));
    }
    return true;
  }

 private:
  bool Runs() const { return transfer_.End() == simulator::TransferEnd::Running; }
  double OwnEvent() const {
    const double arrival = toMachine_.NextArrival();
    return Runs() ? std::min(arrival, transfer_.Deadline()) : arrival;
  }

  void Live() {
    while (OwnEvent() <= clock_.Now()) {
      const double when = OwnEvent();
      if (toMachine_.NextArrival() <= when) {
        transfer_.Receive(toMachine_.TakeNext(), when);
      } else {
        transfer_.Tick(when);
      }
      fromMachine_.Put(transfer_.TakeOutput(), when);
    }
    input_ += fromMachine_.TakeArrived(clock_.Now());
  }

  base::Clock& clock_;
  simulator::Transfer& transfer_;
  simulator::Wire toMachine_;
  simulator::Wire fromMachine_;
  std::string input_;
};

}  // namespace tintbench::testing
