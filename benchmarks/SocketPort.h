// A serial port at one end of a socket, for measuring the engine and not its port: it asks the
// system for bytes only when it has none left.
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

namespace tintbench::bench {

class SocketPort final : public link::SerialPort {
 public:
  // Takes over the descriptor. Once closed, by either end, it stays closed.
  SocketPort(base::Clock& clock, int descriptor) : clock_(clock), descriptor_(descriptor) {}
  ~SocketPort() override { PortOpen(false); }
  SocketPort(const SocketPort&) = delete;
  SocketPort& operator=(const SocketPort&) = delete;

  int CommPort() const override { return 1; }
  void CommPort(int) override {}
  std::string Settings() const override { return "19200,N,8,1"; }
  void Settings(const std::string&) override {}
  int InBufferSize() const override { return static_cast<int>(buffer_.size()); }
  void InBufferSize(int) override {}
  int OutBufferSize() const override { return InBufferSize(); }
  void OutBufferSize(int) override {}
  int InputLen() const override { return inputLen_; }
  void InputLen(int bytes) override { inputLen_ = bytes; }
  bool PortOpen() const override { return descriptor_ >= 0; }
  bool PortOpen(bool open) override {
    if (!open && descriptor_ >= 0) {
      ::close(descriptor_);
      descriptor_ = -1;
    }
    return !open;
  }

  std::size_t InBufferCount() override {
    if (taken_ == filled_ && PortOpen()) Fill();
    return filled_ - taken_;
  }

  std::string Input() override {
    std::size_t count = InBufferCount();
    if (inputLen_ > 0) count = std::min(count, static_cast<std::size_t>(inputLen_));
    const std::string bytes(&buffer_[taken_], count);
    taken_ += count;
    return bytes;
  }

  void Output(std::string_view bytes) override {
    while (PortOpen() && !bytes.empty()) {
      const ssize_t count = ::send(descriptor_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
      if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
      if (count < 0 && errno != EINTR) PortOpen(false);
    }
  }

  bool WaitForInput(double seconds) override {
    const double until = clock_.Now() + seconds;
    while (InBufferCount() == 0 && PortOpen()) {
      const double rest = until - clock_.Now();
      if (rest <= 0) return false;
      pollfd line{descriptor_, POLLIN, 0};
      ::poll(&line, 1, static_cast<int>(rest * 1000) + 1);
    }
    return filled_ > taken_;
  }

 private:
  void Fill() {
    const ssize_t count = ::recv(descriptor_, buffer_.data(), buffer_.size(), MSG_DONTWAIT);
    const bool nothingYet = count < 0 && (errno == EAGAIN || errno == EINTR);
    if (count <= 0 && !nothingYet) PortOpen(false);
    taken_ = 0;
    filled_ = count > 0 ? static_cast<std::size_t>(count) : 0;
  }

  base::Clock& clock_;
  int descriptor_;
  int inputLen_ = 0;
  std::array<char, 4096> buffer_{};
  std::size_t taken_ = 0;
  std::size_t filled_ = 0;
};

}  // namespace tintbench::bench
