// How a transfer goes, in figures: per cent, bytes, speed, the time left, blocks repeated.
#pragma once

#include <cstdint>
#include <string>

#include "base/Clock.h"
#include "link/Xmodem.h"
#include "transfer/XmodWindow.h"

namespace tintbench::transfer {

class TransferDisplay {
 public:
  TransferDisplay(XmodWindow& window, const link::Xmodem& engine, const base::Clock& clock)
      : window_(window), engine_(engine), clock_(clock) {}

  // What the engine reports on.
  link::XmodemDisplay Controls();
  // Everything from nothing, for the file of that name.
  void Clear(const std::string& file);
  // A transfer begins. `left` are the bytes of this file and of those that are to go behind it; 0
  // if nobody knows.
  void Begin(const std::string& file, std::uint64_t size, std::uint64_t left);
  // The transfer is over.
  void End();

 private:
  void Show();

  XmodWindow& window_;
  const link::Xmodem& engine_;
  const base::Clock& clock_;
  std::uint64_t size_ = 0;
  std::uint64_t left_ = 0;
  double since_ = 0;
  bool running_ = false;
};

}  // namespace tintbench::transfer
