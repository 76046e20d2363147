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
  if (echo_) WriteNote(std::string(command).append(": ").append(answer));
}

void DebugLog::WriteNote(std::string_view text) {
  if (!logging_ || file_ == nullptr) return;
  std::ignore = file_->Write(std::string(text).append(base::kCrLf));
  // A log is wanted most after a crash.
  std::ignore = file_->Flush();
}

}  // namespace tintbench::link
