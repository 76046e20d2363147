#include "link/XmodemSession.h"

#include <numeric>

namespace tintbench::link {

namespace {

// How long the operator waits to be served, in seconds.
constexpr double kLongestLockout = 0.1;

}  // namespace

void XmodemSession::ServeEvents() {
  if (serveEvents_) serveEvents_();
  served_ = clock_.Now();
}

bool XmodemSession::Attend() {
  if (clock_.Now() - served_ >= kLongestLockout) ServeEvents();
  return State.XmodemAbortFlag;
}

int XmodemSession::Cancel(int status) {
  Line.CancelTransfer();
  return status;
}

void XmodemSession::SumBlock() {
  const std::string& data = State.BlockData;
  if (State.UseCrc) {
    State.Crc =
        std::accumulate(data.begin(), data.end(), 0U, [](std::uint32_t crc, char character) {
          return Crc16Update(crc, static_cast<unsigned char>(character));
        });
  } else {
    State.Checksum = std::accumulate(data.begin(), data.end(), std::uint8_t{0},
                                     [](std::uint8_t sum, char character) {
                                       return static_cast<std::uint8_t>(sum + character);
                                     });
  }
}

void XmodemSession::CountBlock() {
  ++State.TransferredBlocks;
  State.TransferredBytes += State.BlockSize;
}

}  // namespace tintbench::link
