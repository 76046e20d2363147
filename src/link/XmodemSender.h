// The sending half of an Xmodem transfer.
#pragma once

#include <cstdint>
#include <string>

#include "link/XmodemSession.h"

namespace tintbench::link {

class XmodemSender {
 public:
  explicit XmodemSender(XmodemSession& session) : session_(session) {}

  // Sends `State.FileName` as the receiver demands. Gives a status. A file that can't be opened,
  // or that turns out shorter than it was, ends with kXmodemUnreadable; the receiver, who waits
  // for a block by then, is told by a cancel.
  int Run();

 private:
  int WaitForStart();
  int SendFile();
  int SendBlocks(base::InputFile& file, std::uint64_t length);
  int SendBlock();
  std::string WireBlock();
  int AwaitAcknowledge(int& cancels);
  bool AsksForFirstBlock(double sent) const;
  int EndTransfer();
  XmodemProgress Progress() const;

  XmodemSession& session_;
};

}  // namespace tintbench::link
