#include "link/DebugLog.h"

#include <tuple>

#include "base/Text.h"

namespace tintbench::link {

void DebugLog::ApplyDebugLevel() {
  CloseDebugLog();
  logging_ = level_ == kDebugCommands;
  if (logging_) OpenDebugLog();
}

void DebugLog::OpenDebugLog() {
  base::FileResult ignored;
  file_ = files_.OpenToWrite(path_, base::WriteMode::kCreate, ignored);
}

void DebugLog::WriteTransaction(std::string_view command, std::string_view answer) {
  if (!logging_ || file_ == nullptr) return;
  std::string line(command);
  line.append(": ").append(answer).append(base::kCrLf);
  std::ignore = file_->Write(line);
  // A log is wanted most after a crash.
  std::ignore = file_->Flush();
}

}  // namespace tintbench::link
