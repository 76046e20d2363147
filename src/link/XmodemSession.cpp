#include "link/XmodemSession.h"

namespace tintbench::link {

namespace {

constexpr double kLongestLockout = 2.0;

}  // namespace

void XmodemSession::ServeEvents() {
  served_ = clock_.Now();
  if (serveEvents_) serveEvents_();
}

bool XmodemSession::AbortedMeanwhile() {
  if (clock_.Now() - served_ < kLongestLockout) return false;
  ServeEvents();
  return State.XmodemAbortFlag;
}

int XmodemSession::Cancel(int status) {
  Line.CancelTransfer();
  return status;
}

void XmodemSession::SumBlock() {
  State.Checksum = 0;
  State.Crc = 0;
  for (const char character : State.BlockData) {
    const auto byte = static_cast<unsigned char>(character);
    State.Checksum = static_cast<std::uint8_t>(State.Checksum + byte);
    State.Crc = Crc16Update(State.Crc, byte);
  }
}

void XmodemSession::CountBlock() {
  ++State.TransferredBlocks;
  State.TransferredBytes += State.BlockSize;
}

}  // namespace tintbench::link
