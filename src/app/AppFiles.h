// Files on the computer that the program runs on: the folder that it may write to, and a file
// system that brings what is written to the device.
#pragma once

#include <optional>
#include <string>

#include "base/Files.h"

namespace tintbench::app {

// The standard library's files, with flushing to the device by the operating system.
class SyncedFileSystem final : public base::StandardFileSystem {
 public:
  base::FileResult SyncToDevice(const std::string& path) override;
};

// The folder for everything that the program keeps: `dataDir` if given, else the folder of the
// executable if it can be written to, else "tintbench" in the user's data folder. It is made if
// it is missing. Nothing if it can't be made or written to; `error` then is one line.
std::optional<std::string> ChooseAppPath(base::FileSystem& files, const std::string& dataDir,
                                         const std::string& executable, std::string& error);

}  // namespace tintbench::app
