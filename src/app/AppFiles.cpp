#include "app/AppFiles.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "base/Paths.h"

#ifndef _WIN32
#include <fcntl.h>
#include <unistd.h>
#endif

namespace tintbench::app {

#ifdef _WIN32
base::FileResult SyncedFileSystem::SyncToDevice(const std::string&) { return {}; }
#else
base::FileResult SyncedFileSystem::SyncToDevice(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return base::FileResult(std::strerror(errno));
  // A file system that has nothing to flush says EINVAL; that is no loss.
  const bool good = ::fsync(file) == 0 || errno == EINVAL;
  const std::string reason = good ? "" : std::strerror(errno);
  ::close(file);
  return good ? base::FileResult() : base::FileResult(reason);
}
#endif

namespace {

bool CanWriteTo(base::FileSystem& files, const std::string& folder) {
  const std::string probe = base::TemporaryPath(folder);
  base::FileResult result;
  if (!files.OpenToWrite(probe, base::WriteMode::kCreate, result)) return false;
  return static_cast<bool>(files.Delete(probe));
}

// By the XDG base directory rules: $XDG_DATA_HOME, or ~/.local/share.
std::string UserDataFolder() {
  const char* data = std::getenv("XDG_DATA_HOME");
  if (data != nullptr && *data == '/') return base::JoinPath(data, "tintbench");
  const char* home = std::getenv("HOME");
  if (home == nullptr || *home == '\0') return {};
  return base::JoinPath(base::JoinPath(base::JoinPath(home, ".local"), "share"), "tintbench");
}

std::string ExecutableFolder(const std::string& executable) {
  std::error_code fault;
  const std::filesystem::path self = std::filesystem::read_symlink("/proc/self/exe", fault);
  const std::filesystem::path path = fault ? std::filesystem::path(executable) : self;
  return path.parent_path().string();
}

}  // namespace

std::optional<std::string> ChooseAppPath(base::FileSystem& files, const std::string& dataDir,
                                         const std::string& executable, std::string& error) {
  std::string folder = dataDir;
  if (folder.empty()) {
    folder = ExecutableFolder(executable);
    if (!folder.empty() && CanWriteTo(files, folder)) return folder;
    folder = UserDataFolder();
  }
  if (folder.empty()) {
    error = "there is no folder to keep files in: use --data-dir";
    return std::nullopt;
  }
  if (const base::FileResult made = files.MakeDir(folder); !made) {
    error = "can't make the data folder " + folder + ": " + made.Error();
    return std::nullopt;
  }
  if (!CanWriteTo(files, folder)) {
    error = "can't write to the data folder " + folder;
    return std::nullopt;
  }
  return folder;
}

}  // namespace tintbench::app
