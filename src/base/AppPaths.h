// Where the program's files lie: every path is built from the folder that the program calls its
// own.
#pragma once

#include <string>
#include <utility>

#include "base/Paths.h"

namespace tintbench::base {

class AppPaths {
 public:
  explicit AppPaths(std::string appPath) : appPath_(std::move(appPath)) {}

  const std::string& AppPath() const { return appPath_; }
  // The folder of configuration files.
  std::string ConfigFolder() const { return JoinPath(appPath_, "CONFIGUR"); }
  std::string SettingsFile() const { return JoinPath(ConfigFolder(), "KSSETTING.TXT"); }
  // The configuration to use when the machine's own can't be had.
  std::string DefaultConfigFile() const { return JoinPath(appPath_, "DEFSLAVE.CFG"); }
  // The configuration that link-up received from the machine; it never outlives a run.
  std::string ReceivedConfigFile() const { return JoinPath(ConfigFolder(), "DEFSLAVE.CFR"); }
  // Where a file is built while it is received; of no use to the next run.
  std::string ReceptionFile() const { return JoinPath(appPath_, "TMP.TMP"); }
  // The folder of the machine's counts, with those that were received last.
  std::string StatFolder() const { return JoinPath(appPath_, "STAT"); }
  std::string LastDataFile() const { return JoinPath(StatFolder(), "LASTSTAT.DAT"); }
  // The folder of the recordings of groups.
  std::string RecordingFolder() const { return JoinPath(appPath_, "MGROUPS"); }
  std::string DebugLog() const { return JoinPath(appPath_, "ksvdebug.txt"); }

 private:
  std::string appPath_;
};

}  // namespace tintbench::base
