#include "qt/FolderLock.h"

#include <QFile>
#include <QLockFile>
#include <chrono>

#include "base/Paths.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

constexpr const char* kLockFile = "tintbench.lock";

// Who holds the lock, as far as its file tells.
std::string HolderOf(const QLockFile& lock) {
  qint64 process = 0;
  QString host;
  QString program;
  if (!lock.getLockInfo(&process, &host, &program)) return "another copy";
  return "another copy (process " + std::to_string(process) + " on " + host.toStdString() + ")";
}

}  // namespace

FolderLock::FolderLock() = default;
FolderLock::~FolderLock() = default;

bool FolderLock::Take(const std::string& folder, std::string& error) {
  const QByteArray path = QByteArray::fromStdString(base::JoinPath(folder, kLockFile));
  lock_ = std::make_unique<QLockFile>(QFile::decodeName(path));
  // However long a copy works: only one that lives no more has left its lock behind.
  lock_->setStaleLockTime(std::chrono::milliseconds(0));
  if (lock_->tryLock()) return true;
  error = lock_->error() == QLockFile::LockFailedError
              ? HolderOf(*lock_) + " works in the data folder " + folder +
                    ": give this one a folder of its own with --data-dir"
              : "can't lock the data folder " + folder + ": use --data-dir";
  return false;
}

}  // namespace tintbench::desktop
