// Files that live in memory, so that a run touches no disk and sees what all readers and writers
// leave behind. Operations can be made to fail, and reads to come in small pieces.
#pragma once

#include <map>
#include <memory>
#include <set>
#include <string>

#include "base/Files.h"

namespace tintbench::testing {

class MemoryFileSystem final : public base::FileSystem {
 public:
  // A read gives so many bytes at the most.
  std::size_t ReadSize = 65536;

  // The n-th operation from now that changes files or opens one fails, once; 0: none does.
  void FailAt(int operation) { failAt_ = operation; }
  bool HasFailed() const { return hasFailed_; }

  // Makes a file whatever stands in the way; the folders above it too.
  void Put(const std::string& path, std::string content);
  // What a file holds; empty too if there is none.
  std::string Get(const std::string& path) const;
  // The bytes of all files together.
  std::size_t Size() const;

  bool FileExists(const std::string& path) const override { return files_.contains(path); }
  bool DirExists(const std::string& path) const override { return folders_.contains(path); }
  base::FileResult MakeDir(const std::string& path) override;
  base::FileResult Delete(const std::string& path) override;
  base::FileResult Rename(const std::string& from, const std::string& to) override;
  base::FileResult Shorten(const std::string& path, std::uint64_t length) override;
  std::unique_ptr<base::InputFile> OpenToRead(const std::string& path) override;
  std::unique_ptr<base::OutputFile> OpenToWrite(const std::string& path, base::WriteMode mode,
                                                base::FileResult& result) override;
  std::optional<std::uint64_t> Length(const std::string& path) const override;
  std::optional<base::LocalTime> TimeStamp(const std::string& path) const override;
  std::vector<std::string> List(const std::string& folder,
                                const std::string& pattern) const override;
  base::FileResult SyncToDevice(const std::string& path) override;

 private:
  class Input;
  class Output;

  bool Fails();

  // An open file outlives its name, as on a disk.
  std::map<std::string, std::shared_ptr<std::string>> files_;
  std::set<std::string> folders_;
  int failAt_ = 0;
  bool hasFailed_ = false;
};

}  // namespace tintbench::testing
