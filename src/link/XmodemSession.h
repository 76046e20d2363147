// One Xmodem transfer in the making: the state that both directions keep, and the means that they
// share.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/Clock.h"
#include "base/Files.h"
#include "link/XmodemLine.h"
#include "link/XmodemProtocol.h"
#include "link/XmodemReport.h"

namespace tintbench::link {

struct XmodemState {
  bool XmodemAbortFlag = false;  // the operator wants the transfer to end
  int RequestedBlockSize = kXmodemSmallBlock;
  int BlockSize = kXmodemSmallBlock;
  int HeaderChar = kXmodemSoh;
  bool UseCrc = false;  // a CRC behind each block, or else a checksum
  std::uint8_t BlockNumber = 0;
  std::uint8_t BlockComplement = 255;
  std::uint8_t Checksum = 0;
  std::uint32_t Crc = 0;
  std::string BlockData;
  std::int64_t TransferredBlocks = 0;
  std::int64_t TotalBlocks = 0;
  std::int64_t TransferredBytes = 0;
  std::int64_t RepeatedBlocks = 0;  // how often a block went once more
  int Percent = 0;
  std::string FileName;
  std::string Problem;  // why the file couldn't be kept here, in words
};

class XmodemSession {
 public:
  XmodemSession(SerialPort& port, base::Clock& clock, base::FileSystem& files,
                std::function<void()> serveEvents)
      : Line(port, clock, [this] { return Attend(); }),
        Files(files),
        clock_(clock),
        serveEvents_(std::move(serveEvents)) {}
  XmodemSession(const XmodemSession&) = delete;
  XmodemSession& operator=(const XmodemSession&) = delete;

  XmodemLine Line;
  XmodemState State;
  XmodemReport Report;
  XmodemRetries Retries;
  base::FileSystem& Files;
  std::string TempFile;  // where a reception builds the file

  // The clock's time, for limits on what characters alone don't end.
  double Now() const { return clock_.Now(); }

  // Gives the window its chance, and with it the operator's stop button.
  void ServeEvents();

  // For waits, and for loops that only the other end can bring to their end: serves events if that
  // hasn't been done for a while, so that neither a silent line nor one that never rests can lock
  // the operator out. True once the operator wants to stop.
  bool Attend();

  // Cancels the transfer at the other end; gives the status back.
  int Cancel(int status);

  // Adds up the check of `BlockData` that is in use.
  void SumBlock();

  // Counts `BlockData` as transferred.
  void CountBlock();

 private:
  base::Clock& clock_;
  std::function<void()> serveEvents_;
  double served_ = 0;  // when events were served last
};

}  // namespace tintbench::link
