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

  // Sends the description's character until one of its expected answers comes, which is handed
  // back in `answer`. It is sent again only to a line that rests, and then, where something strange
  // has come meanwhile, a NAK is sent in its place. An end of file counts only with silence around
  // it. Gives a status; `answer` isn't meaningful unless that is 0.
  int Handshake(const XmodemRetry& description, int& answer);

  // Reads the block behind a header character, `State.BlockSize` bytes of data, with a checksum
  // or, with `State.UseCrc`, a CRC. Gives a status.
  int ReadBlock();

 private:
  int AwaitAnswer(const XmodemRetry& description);
  bool LineIsQuiet();
  int ReceiveBlocks(int header);
  int CheckHeader(int header);
  bool ReadData();
  int CheckData();
  int KeepBlock();
  bool DrainLine();
  int Finish();
  bool IsKept(const base::FileResult& result);
  bool PutInPlace();
  bool CopyInPlace();

  XmodemSession& session_;
  std::unique_ptr<base::OutputFile> file_;
  std::uint8_t expected_ = 1;
  std::uint8_t lastGood_ = 1;
};

}  // namespace tintbench::link
