// Loads a firmware: cuts the image into parts, guides the operator's hands through the machine's
// loader, and sends part after part.
#pragma once

#include <cstdint>
#include <string>

#include "config/FileParts.h"
#include "transfer/FirmwareRecord.h"
#include "transfer/TransferDisplay.h"
#include "transfer/TransferParts.h"
#include "transfer/XmodWindow.h"

namespace tintbench::transfer {

class FirmwareLoad {
 public:
  FirmwareLoad(XmodWindow& window, const TransferParts& parts, TransferDisplay& display);

  // Loads the image `path`.`extension` in blocks of `size` bytes; `tag` marks its beginning and
  // end. Gives 0, -1 if the operator gave it up or the image can't be cut, or the transfer's
  // status.
  int LoadFirmware(const std::string& path, const std::string& extension, const std::string& tag,
                   int size);

  // Why the image couldn't be cut, in words; empty if it could.
  const std::string& Problem() const { return problem_; }

  FirmwareRecord& Record() { return record_; }

 private:
  bool OperatorEnters();
  int SendParts(int size);
  int SendPart(int number, int size, std::uint64_t left);
  void AwaitFlash(const std::string& image);
  void OperatorLeaves();
  void GoTo(GuideStepValue step, int part = 0);
  std::uint64_t Length(int number) const;

  XmodWindow& window_;
  const TransferParts& parts_;
  TransferDisplay& display_;
  FirmwareRecord record_;
  FirmwareProgress progress_;
  std::string problem_;
};

}  // namespace tintbench::transfer
