// A serial port with faults on its line: bytes are lost, changed, doubled or put in at given
// places of either direction, and something can be done at a place. The rest it passes on.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "base/Clock.h"
#include "link/SerialPort.h"

namespace tintbench::fuzz {

struct LineFault {
  enum class Kind { Drop, Change, Insert, Double, Do };
  Kind What = Kind::Drop;
  unsigned char Byte = 1;             // to be put in, or what is changed in the byte
  std::function<void()> Action = {};  // to be done behind the byte
};

// Faults by the number of the byte of one direction, counted from 0 over all openings.
using FaultPlan = std::multimap<std::size_t, LineFault>;

class FaultyPort final : public link::SerialPort {
 public:
  FaultyPort(link::SerialPort& port, base::Clock& clock, FaultPlan toProgram, FaultPlan toMachine)
      : port_(port),
        clock_(clock),
        toProgram_{std::move(toProgram)},
        toMachine_{std::move(toMachine)} {}

  // All that the program has read, and all that it has written.
  const std::string& Read() const { return read_; }
  const std::string& Written() const { return written_; }

  int CommPort() const override { return port_.CommPort(); }
  void CommPort(int number) override { port_.CommPort(number); }
  std::string Settings() const override { return port_.Settings(); }
  void Settings(const std::string& settings) override { port_.Settings(settings); }
  bool PortOpen() const override { return port_.PortOpen(); }
  bool PortOpen(bool open) override {
    const bool good = port_.PortOpen(open);
    if (good) input_.clear();
    return good;
  }
  int InBufferSize() const override { return port_.InBufferSize(); }
  void InBufferSize(int bytes) override { port_.InBufferSize(bytes); }
  int OutBufferSize() const override { return port_.OutBufferSize(); }
  void OutBufferSize(int bytes) override { port_.OutBufferSize(bytes); }
  int InputLen() const override { return inputLen_; }
  void InputLen(int bytes) override { inputLen_ = bytes; }

  std::size_t InBufferCount() override {
    Collect();
    return input_.size();
  }
  std::string Input() override {
    Collect();
    const std::size_t most = inputLen_ > 0 ? static_cast<std::size_t>(inputLen_) : input_.size();
    const std::string taken = input_.substr(0, most);
    input_.erase(0, taken.size());
    read_ += taken;
    return taken;
  }
  void Output(std::string_view bytes) override {
    written_ += bytes;
    port_.Output(toMachine_.Pass(bytes));
  }
  bool WaitForInput(double seconds) override {
    const double end = clock_.Now() + seconds;
    while (InBufferCount() == 0) {
      const double rest = end - clock_.Now();
      if (rest <= 0) return false;
      port_.WaitForInput(rest);
    }
    return true;
  }

 private:
  struct Direction {
    FaultPlan Plan;
    std::size_t Passed = 0;

    std::string Pass(std::string_view bytes) {
      std::string passed;
      for (const char byte : bytes) {
        std::string piece(1, byte);
        const auto [first, last] = Plan.equal_range(Passed++);
        for (auto fault = first; fault != last; ++fault) Strike(fault->second, piece);
        passed += piece;
      }
      return passed;
    }

    static void Strike(const LineFault& fault, std::string& piece) {
      switch (fault.What) {
        case LineFault::Kind::Drop:
          piece.clear();
          break;
        case LineFault::Kind::Change:
          for (char& byte : piece) byte = static_cast<char>(byte ^ fault.Byte);
          break;
        case LineFault::Kind::Insert:
          piece += static_cast<char>(fault.Byte);
          break;
        case LineFault::Kind::Double:
          if (!piece.empty()) piece += piece.back();
          break;
        case LineFault::Kind::Do:
          fault.Action();
      }
    }
  };

  void Collect() {
    if (!port_.PortOpen()) input_.clear();
    input_ += toProgram_.Pass(port_.Input());
    const auto room = static_cast<std::size_t>(std::max(InBufferSize(), 0));
    if (input_.size() > room) input_.resize(room);
  }

  link::SerialPort& port_;
  base::Clock& clock_;
  Direction toProgram_;
  Direction toMachine_;
  int inputLen_ = 0;
  std::string input_;
  std::string read_;
  std::string written_;
};

}  // namespace tintbench::fuzz
