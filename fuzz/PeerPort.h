// A serial port on the virtual clock whose far end plays acts that are known beforehand: it sends
// bytes, lets time pass, waits for the program to say something, or takes the line off.
#pragma once

#include <algorithm>
#include <deque>
#include <string>
#include <string_view>

#include "base/Clock.h"
#include "link/SerialPort.h"

namespace tintbench::fuzz {

struct Act {
  enum class Kind { Send, Wait, Await, Unplug };
  Kind What = Kind::Send;
  std::string Bytes = {};  // to send
  double Seconds = 0;      // how long, for an Await at the most
};

class PeerPort final : public link::SerialPort {
 public:
  PeerPort(base::Clock& clock, std::deque<Act> acts) : clock_(clock), acts_(std::move(acts)) {}

  // All that the program has read, and all that it has written while the line was on.
  const std::string& Read() const { return read_; }
  const std::string& Written() const { return written_; }

  int CommPort() const override { return commPort_; }
  void CommPort(int number) override { commPort_ = number; }
  std::string Settings() const override { return settings_; }
  void Settings(const std::string& settings) override { settings_ = settings; }
  bool PortOpen() const override { return open_; }
  bool PortOpen(bool open) override {
    if (open && (open_ || unplugged_)) return false;
    open_ = open;
    input_.clear();
    return true;
  }
  int InBufferSize() const override { return inBufferSize_; }
  void InBufferSize(int bytes) override { inBufferSize_ = bytes; }
  int OutBufferSize() const override { return outBufferSize_; }
  void OutBufferSize(int bytes) override { outBufferSize_ = bytes; }
  int InputLen() const override { return inputLen_; }
  void InputLen(int bytes) override { inputLen_ = bytes; }

  std::size_t InBufferCount() override {
    Play();
    return input_.size();
  }

  std::string Input() override {
    const std::size_t waiting = InBufferCount();
    const std::size_t most = inputLen_ > 0 ? static_cast<std::size_t>(inputLen_) : waiting;
    const std::string taken = input_.substr(0, most);
    input_.erase(0, taken.size());
    read_ += taken;
    return taken;
  }

  void Output(std::string_view bytes) override {
    Play();
    if (!open_) return;
    written_ += bytes;
    heard_ = true;
    Play();
  }

  bool WaitForInput(double seconds) override {
    const double end = clock_.Now() + std::max(seconds, 0.0);
    while (InBufferCount() == 0) {
      if (clock_.Now() >= end) return false;
      clock_.SleepUntil(acts_.empty() || !open_ ? end : std::min(end, ActEnd()));
    }
    return true;
  }

 private:
  double ActEnd() const { return since_ + acts_.front().Seconds; }

  // True if the first act is over.
  bool IsOver() const {
    const bool timeIsUp = clock_.Now() >= ActEnd();
    return acts_.front().What == Act::Kind::Await ? heard_ || timeIsUp : timeIsUp;
  }

  void Play() {
    while (!acts_.empty() && IsOver()) {
      const Act act = acts_.front();
      acts_.pop_front();
      since_ = clock_.Now();
      if (act.What == Act::Kind::Await) heard_ = false;
      if (act.What == Act::Kind::Unplug) Unplug();
      if (act.What == Act::Kind::Send && open_) Receive(act.Bytes);
    }
  }

  // What the buffer can't take is lost.
  void Receive(const std::string& bytes) {
    const auto size = static_cast<std::size_t>(inBufferSize_);
    input_ += bytes.substr(0, size - std::min(size, input_.size()));
  }

  void Unplug() {
    unplugged_ = true;
    open_ = false;
    input_.clear();
  }

  base::Clock& clock_;
  std::deque<Act> acts_;
  double since_ = 0;
  bool heard_ = false;  // the program has written since the last Await
  bool open_ = true;
  bool unplugged_ = false;
  std::string input_;
  std::string read_;
  std::string written_;
  int commPort_ = 1;
  std::string settings_ = "19200,N,8,1";
  int inBufferSize_ = 1048;
  int outBufferSize_ = 1048;
  int inputLen_ = 0;
};

}  // namespace tintbench::fuzz
