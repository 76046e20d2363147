// Keeps a second copy of the program out of the data folder that the first one works in.
#pragma once

#include <memory>
#include <string>

class QLockFile;

namespace tintbench::desktop {

// Holds the folder while it lives. What a copy that was killed has left is no hindrance.
class FolderLock {
 public:
  FolderLock();
  ~FolderLock();
  FolderLock(const FolderLock&) = delete;
  FolderLock& operator=(const FolderLock&) = delete;

  // False if the folder can't be had; `error` is then one line that says who works there, or why
  // else, and what to do.
  bool Take(const std::string& folder, std::string& error);

 private:
  std::unique_ptr<QLockFile> lock_;
};

}  // namespace tintbench::desktop
