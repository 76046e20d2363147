// Files through the standard library, of which the n-th operation fails, in the way that is asked
// for. Reading, writing, flushing and closing count as operations too.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "base/Files.h"

namespace tintbench::testing {

enum class DiskFault {
  kNoSpace,
  kInputOutput,
  kShortWrite,  // a write leaves half of its bytes, then the disk is full
  // The program is cut off: a write leaves half of its bytes, and from then on nothing reaches the
  // disk, not even the tidying up.
  kCutOff,
};

class FailingFileSystem final : public base::StandardFileSystem {
 public:
  // The operation number `fails`, counted from 1, fails; with `lasting` all that follow fail too.
  explicit FailingFileSystem(int fails, bool lasting = false, DiskFault fault = DiskFault::kNoSpace)
      : Operation(fails),
        Lasts(lasting || fault == DiskFault::kCutOff),
        left_(fails),
        fault_(fault) {}

  const int Operation;  // the first that fails
  const bool Lasts;
  // Can't be renamed, as if it lay on another device than all other files.
  std::string ForeignPath;

  // True once an operation has failed. If it stays false, the task was done in fewer operations.
  bool HasFailed() const { return left_ <= 0; }

  base::FileResult MakeDir(const std::string& path) override {
    return Fails() ? Failure() : StandardFileSystem::MakeDir(path);
  }
  base::FileResult Delete(const std::string& path) override {
    return Fails() ? Failure() : StandardFileSystem::Delete(path);
  }
  base::FileResult Rename(const std::string& from, const std::string& to) override {
    if (Fails()) return Failure();
    if (from == ForeignPath) return base::FileResult("Invalid cross-device link");
    return StandardFileSystem::Rename(from, to);
  }
  base::FileResult Shorten(const std::string& path, std::uint64_t length) override {
    return Fails() ? Failure() : StandardFileSystem::Shorten(path, length);
  }
  base::FileResult SyncToDevice(const std::string& path) override {
    return Fails() ? Failure() : StandardFileSystem::SyncToDevice(path);
  }
  std::unique_ptr<base::InputFile> OpenToRead(const std::string& path) override {
    if (Fails()) return nullptr;
    auto file = StandardFileSystem::OpenToRead(path);
    return file ? std::make_unique<Input>(*this, std::move(file)) : nullptr;
  }
  std::unique_ptr<base::OutputFile> OpenToWrite(const std::string& path, base::WriteMode mode,
                                                base::FileResult& result) override {
    if (Fails()) {
      result = Failure();
      return nullptr;
    }
    auto file = StandardFileSystem::OpenToWrite(path, mode, result);
    return file ? std::make_unique<Output>(*this, std::move(file)) : nullptr;
  }

 private:
  class Input final : public base::InputFile {
   public:
    Input(FailingFileSystem& owner, std::unique_ptr<InputFile> file)
        : owner_(owner), file_(std::move(file)) {}
    std::size_t Read(char* buffer, std::size_t size) override {
      failed_ = failed_ || owner_.Fails();
      return failed_ ? 0 : file_->Read(buffer, size);
    }
    bool Failed() const override { return failed_ || file_->Failed(); }

   private:
    FailingFileSystem& owner_;
    std::unique_ptr<InputFile> file_;
    bool failed_ = false;
  };

  // Keeps nothing in a buffer, which its end would write after the cut-off.
  class Output final : public base::OutputFile {
   public:
    Output(FailingFileSystem& owner, std::unique_ptr<OutputFile> file)
        : owner_(owner), file_(std::move(file)) {}
    base::FileResult Write(std::string_view bytes) override {
      const bool first = !owner_.HasFailed();
      const bool fails = owner_.Fails();
      if (fails) bytes = bytes.substr(0, first && owner_.IsTorn() ? bytes.size() / 2 : 0);
      base::FileResult result = file_->Write(bytes);
      if (result) result = file_->Flush();
      return fails ? owner_.Failure() : result;
    }
    base::FileResult Flush() override { return owner_.Fails() ? owner_.Failure() : file_->Flush(); }
    base::FileResult Close() override { return owner_.Fails() ? owner_.Failure() : file_->Close(); }

   private:
    FailingFileSystem& owner_;
    std::unique_ptr<OutputFile> file_;
  };

  base::FileResult Failure() const {
    const bool device = fault_ == DiskFault::kInputOutput;
    return base::FileResult(device ? "Input/output error" : "No space left on device");
  }

  // True if the first write that fails leaves a part of its bytes.
  bool IsTorn() const { return fault_ == DiskFault::kShortWrite || fault_ == DiskFault::kCutOff; }

  bool Fails() {
    if (left_ > 0) --left_;
    const bool fails = left_ == 0;
    if (fails && !Lasts) left_ = -1;
    return fails;
  }

  int left_;
  DiskFault fault_;
};

// Does a task under each fault, once and lasting, at its first operation, its second and so on,
// until it needs no more operations. `task` takes the file system.
template <typename Task>
void UnderEachDiskFault(const Task& task) {
  constexpr struct {
    const char* Name;
    DiskFault Fault;
    bool Lasting;
  } kinds[] = {
      {"no space", DiskFault::kNoSpace, false},
      {"no space from here on", DiskFault::kNoSpace, true},
      {"I/O error", DiskFault::kInputOutput, false},
      {"I/O errors from here on", DiskFault::kInputOutput, true},
      {"short write", DiskFault::kShortWrite, false},
      {"short write and no space from here on", DiskFault::kShortWrite, true},
      {"cut off", DiskFault::kCutOff, true},
  };
  for (const auto& kind : kinds) {
    bool failed = true;
    for (int operation = 1; failed; ++operation) {
      SCOPED_TRACE(std::string(kind.Name) + " at operation " + std::to_string(operation));
      ASSERT_LT(operation, 1000) << "the task never ends";
      FailingFileSystem files(operation, kind.Lasting, kind.Fault);
      task(files);
      failed = files.HasFailed();
    }
  }
}

}  // namespace tintbench::testing
