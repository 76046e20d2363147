// Keeps on disk how far a firmware load has come, so that the next opening of the window can tell
// where one was broken off and what state the machine is in, even if the program was killed.
#pragma once

#include <optional>
#include <string>

#include "base/Files.h"
#include "transfer/FirmwareGuide.h"

namespace tintbench::transfer {

struct FirmwareProgress {
  int Step = kGuideEnter;  // GuideStepValue
  int Part = 0;            // from 1; the one that travelled last
  int Parts = 0;
  int Status = 0;    // the transfer's, if it failed
  std::string File;  // the image's name, without its folder
};

class FirmwareRecord {
 public:
  FirmwareRecord(base::FileSystem& files, const std::string& folder);

  // What can't be written is not there later; the load goes on all the same.
  void Write(const FirmwareProgress& progress);
  // The load has gone through, or the operator knows.
  void Forget();
  // Nothing if no load was broken off.
  std::optional<FirmwareProgress> Read() const;

 private:
  base::FileSystem& files_;
  std::string path_;
};

// Where it stopped, what state the machine is in, and what to do.
std::string BrokenOffText(const FirmwareProgress& progress);

}  // namespace tintbench::transfer
