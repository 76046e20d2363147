// Files through the standard library, of which the n-th operation fails, and all after it do or
// don't. Writing, flushing and closing count as operations too.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "base/Files.h"

namespace tintbench::testing {

class FailingFileSystem final : public base::StandardFileSystem {
 public:
  // The operation number `fails`, counted from 1, fails; with `lasting` all that follow fail too.
  explicit FailingFileSystem(int fails, bool lasting = false) : left_(fails), lasting_(lasting) {}

  // True once an operation has failed. If it stays false, the task was done in fewer operations.
  bool HasFailed() const { return left_ <= 0; }

  base::FileResult MakeDir(const std::string& path) override {
    return Fails() ? Failure() : StandardFileSystem::MakeDir(path);
  }
  base::FileResult Delete(const std::string& path) override {
    return Fails() ? Failure() : StandardFileSystem::Delete(path);
  }
  base::FileResult Rename(const std::string& from, const std::string& to) override {
    return Fails() ? Failure() : StandardFileSystem::Rename(from, to);
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

  class Output final : public base::OutputFile {
   public:
    Output(FailingFileSystem& owner, std::unique_ptr<OutputFile> file)
        : owner_(owner), file_(std::move(file)) {}
    base::FileResult Write(std::string_view bytes) override {
      return owner_.Fails() ? Failure() : file_->Write(bytes);
    }
    base::FileResult Flush() override { return owner_.Fails() ? Failure() : file_->Flush(); }
    base::FileResult Close() override { return owner_.Fails() ? Failure() : file_->Close(); }

   private:
    FailingFileSystem& owner_;
    std::unique_ptr<OutputFile> file_;
  };

  static base::FileResult Failure() { return base::FileResult("No space left on device"); }

  bool Fails() {
    if (left_ > 0) --left_;
    const bool fails = left_ == 0;
    if (fails && !lasting_) left_ = -1;
    return fails;
  }

  int left_;
  bool lasting_;
};

}  // namespace tintbench::testing
