// A serial port on an open file descriptor: one end of a socket or pipe to another program.
#pragma once

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>
#include <string_view>

#include "base/Clock.h"
#include "link/SerialPort.h"

namespace tintbench::testing {

// Takes over the descriptor of a socket. It can't be opened again once it is closed, by the
// program or by the other end.
class FdPort : public link::SerialPort {
 public:
  FdPort(base::Clock& clock, int descriptor) : clock_(clock), descriptor_(descriptor) {}
  ~FdPort() override { Close(); }
  FdPort(const FdPort&) = delete;
  FdPort& operator=(const FdPort&) = delete;

  int CommPort() const override { return 1; }
  void CommPort(int) override {}
  std::string Settings() const override { return "19200,N,8,1"; }
  void Settings(const std::string&) override {}
  int InBufferSize() const override { return inBufferSize_; }
  void InBufferSize(int bytes) override { inBufferSize_ = bytes; }
  int OutBufferSize() const override { return inBufferSize_; }
  void OutBufferSize(int) override {}
  int InputLen() const override { return inputLen_; }
  void InputLen(int bytes) override { inputLen_ = bytes; }

  bool PortOpen() const override { return descriptor_ >= 0; }
  bool PortOpen(bool open) override {
    if (!open) Close();
    return !open;
  }

  std::size_t InBufferCount() override {
    Fill();
    return input_.size();
  }

  std::string Input() override {
    std::size_t count = InBufferCount();
    if (inputLen_ > 0) count = std::min(count, static_cast<std::size_t>(inputLen_));
    const std::string bytes = input_.substr(0, count);
    input_.erase(0, count);
    return bytes;
  }

  void Output(std::string_view bytes) override {
    while (PortOpen() && !bytes.empty()) {
      const ssize_t count = send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
      if (count < 0 && errno != EINTR) Close();
    }
  }

  bool WaitForInput(double seconds) override {
    const double until = clock_.Now() + seconds;
    while (InBufferCount() == 0 && PortOpen()) {
      const double rest = until - clock_.Now();
      if (rest <= 0) return false;
      pollfd wanted{descriptor_, POLLIN, 0};
      poll(&wanted, 1, static_cast<int>(rest * 1000) + 1);
    }
    if (input_.empty()) clock_.SleepUntil(until);
    return !input_.empty();
  }

 private:
  void Close() {
    if (descriptor_ >= 0) close(descriptor_);
    descriptor_ = -1;
    input_.clear();
  }

  // Takes what has come. The other end's going is noticed when all it sent has been read.
  void Fill() {
    std::array<char, 4096> buffer;
    while (PortOpen() && input_.size() < static_cast<std::size_t>(inBufferSize_)) {
      const std::size_t room = static_cast<std::size_t>(inBufferSize_) - input_.size();
      const ssize_t count =
          recv(descriptor_, buffer.data(), std::min(room, buffer.size()), MSG_DONTWAIT);
      if (count > 0) input_.append(buffer.data(), static_cast<std::size_t>(count));
      const bool nothingYet = count < 0 && (errno == EAGAIN || errno == EINTR);
      if (nothingYet || (count <= 0 && !input_.empty())) return;
      if (count <= 0) Close();
    }
  }

  base::Clock& clock_;
  int descriptor_;
  std::string input_;
  int inBufferSize_ = 1048;
  int inputLen_ = 0;
};

}  // namespace tintbench::testing
