// The debug level and the log that its value 15 switches on: one line for each transaction with
// the machine.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/Files.h"

namespace tintbench::link {

// The levels are values, not thresholds: each switches on one kind of trace and no other.
inline constexpr int kDebugTransfers = 3;
inline constexpr int kDebugXmodem = 7;
inline constexpr int kDebugCommands = 15;

class DebugLog {
 public:
  // `path` is the log's file. Nothing is opened before ApplyDebugLevel.
  DebugLog(base::FileSystem& files, std::string path) : files_(files), path_(std::move(path)) {}

  int DebugLevel() const { return level_; }
  void DebugLevel(int level) { level_ = level; }

  // Closes the log; at level 15 starts it from empty and switches logging on, otherwise off.
  void ApplyDebugLevel();

  // A log that can't be opened isn't reported: nothing is written then.
  void OpenDebugLog();
  void CloseDebugLog() { file_.reset(); }

  bool DebugLogging() const { return logging_; }

  // Whether transactions are noted at all; a window that sends for ever switches that off.
  void EchoTransactions(bool on) { echo_ = on; }

  // Writes the line of one transaction, if logging is on and the log is open: the command, ": "
  // and the answer as it was received.
  void WriteTransaction(std::string_view command, std::string_view answer);

  // Writes a line on something else, on the same condition.
  void WriteNote(std::string_view text);

 private:
  base::FileSystem& files_;
  std::string path_;
  std::unique_ptr<base::OutputFile> file_;
  int level_ = 0;
  bool logging_ = false;
  bool echo_ = true;
};

}  // namespace tintbench::link
