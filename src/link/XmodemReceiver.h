// The receiving half of an Xmodem transfer.
#pragma once

#include <memory>
#include <string>

#include "link/XmodemSession.h"

namespace tintbench::link {

class XmodemReceiver {
 public:
  explicit XmodemReceiver(XmodemSession& session) : session_(session) {}

  // Receives into `State.FileName`, asking for checksums. The file takes its place only after the
  // whole transfer, padding included; on any failure an earlier file stays as it was. Gives a
  // status. A file that can't be written ends with kXmodemUnwritable, and the sender is told by a
  // cancel if it isn't done yet.
  int Run();

  // Sends the description's character, and from then on NAK, until one of the expected answers
  // comes, which is handed back in `answer`. It asks again only on a line that rests. What carries
  // no check of its own, an end of file, a CAN or a BEL, counts only with silence around it. Gives
  // a status; `answer` isn't meaningful unless that is 0.
  int Handshake(const XmodemRetry& description, int& answer);

  // Reads the block behind a header character, `State.BlockSize` bytes of data, with a checksum
  // or, with `State.UseCrc`, a CRC. Gives a status.
  int ReadBlock();

 private:
  int AwaitAnswer(const XmodemRetry& description);
  bool IsBelieved(int answer, const XmodemRetry& description);
  int ReceiveBlocks(int header);
  int CheckHeader(int header);
  int CheckData();
  int KeepBlock();
  bool DrainLine(int restMs);
  int Finish();
  bool IsKept(const base::FileResult& result);
  bool PutInPlace();
  bool CopyInPlace();

  XmodemSession& session_;
  std::unique_ptr<base::OutputFile> file_;
  std::uint8_t expected_ = 1;
  std::uint8_t lastGood_ = 1;
  bool askedAgain_ = false;  // the block in hand may come twice
};

}  // namespace tintbench::link
