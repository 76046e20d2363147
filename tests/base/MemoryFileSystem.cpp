#include "base/MemoryFileSystem.h"

#include <algorithm>
#include <cstring>

namespace tintbench::testing {

namespace {

base::FileResult NoSpace() { return base::FileResult("No space left on device"); }
base::FileResult NotThere() { return base::FileResult("No such file or directory"); }

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

}  // namespace

class MemoryFileSystem::Input final : public base::InputFile {
 public:
  Input(MemoryFileSystem& owner, std::shared_ptr<const std::string> content)
      : owner_(owner), content_(std::move(content)) {}

  std::size_t Read(char* buffer, std::size_t size) override {
    failed_ = failed_ || owner_.Fails();
    if (failed_) return 0;
    const std::size_t left = content_->size() - std::min(at_, content_->size());
    const std::size_t count = std::min({size, left, owner_.ReadSize});
    std::memcpy(buffer, content_->data() + at_, count);
    at_ += count;
    return count;
  }
  bool Failed() const override { return failed_; }

 private:
  MemoryFileSystem& owner_;
  std::shared_ptr<const std::string> content_;
  std::size_t at_ = 0;
  bool failed_ = false;
};

class MemoryFileSystem::Output final : public base::OutputFile {
 public:
  Output(MemoryFileSystem& owner, std::shared_ptr<std::string> content)
      : owner_(owner), content_(std::move(content)) {}

  // A write that fails has written half.
  base::FileResult Write(std::string_view bytes) override {
    const bool fails = owner_.Fails();
    content_->append(bytes.substr(0, fails ? bytes.size() / 2 : bytes.size()));
    return fails ? NoSpace() : base::FileResult();
  }
  base::FileResult Flush() override { return owner_.Fails() ? NoSpace() : base::FileResult(); }
  base::FileResult Close() override { return owner_.Fails() ? NoSpace() : base::FileResult(); }

 private:
  MemoryFileSystem& owner_;
  std::shared_ptr<std::string> content_;
};

bool MemoryFileSystem::Fails() {
  const bool fails = failAt_ > 0 && --failAt_ == 0;
  hasFailed_ = hasFailed_ || fails;
  return fails;
}

void MemoryFileSystem::Put(const std::string& path, std::string content) {
  for (std::string above = FolderOf(path); !above.empty(); above = FolderOf(above)) {
    folders_.insert(above);
  }
  files_[path] = std::make_shared<std::string>(std::move(content));
}

std::string MemoryFileSystem::Get(const std::string& path) const {
  const auto file = files_.find(path);
  return file == files_.end() ? std::string() : *file->second;
}

std::size_t MemoryFileSystem::Size() const {
  std::size_t size = 0;
  for (const auto& [path, content] : files_) size += content->size();
  return size;
}

base::FileResult MemoryFileSystem::MakeDir(const std::string& path) {
  if (Fails()) return NoSpace();
  for (std::string folder = path; !folder.empty(); folder = FolderOf(folder)) {
    folders_.insert(folder);
  }
  return {};
}

base::FileResult MemoryFileSystem::Delete(const std::string& path) {
  if (Fails()) return NoSpace();
  return files_.erase(path) == 1 ? base::FileResult() : NotThere();
}

base::FileResult MemoryFileSystem::Rename(const std::string& from, const std::string& to) {
  if (Fails()) return NoSpace();
  if (!files_.contains(from) || !DirExists(FolderOf(to))) return NotThere();
  const auto content = files_[from];
  files_.erase(from);
  files_[to] = content;
  return {};
}

base::FileResult MemoryFileSystem::Shorten(const std::string& path, std::uint64_t length) {
  if (Fails()) return NoSpace();
  if (!FileExists(path)) return NotThere();
  std::string& content = *files_[path];
  content.resize(std::min<std::size_t>(content.size(), length));
  return {};
}

std::unique_ptr<base::InputFile> MemoryFileSystem::OpenToRead(const std::string& path) {
  const auto file = files_.find(path);
  if (Fails() || file == files_.end()) return nullptr;
  return std::make_unique<Input>(*this, file->second);
}

std::unique_ptr<base::OutputFile> MemoryFileSystem::OpenToWrite(const std::string& path,
                                                                base::WriteMode mode,
                                                                base::FileResult& result) {
  if (!DirExists(FolderOf(path))) {
    result = NotThere();
  } else {
    result = Fails() ? NoSpace() : base::FileResult();
  }
  if (!result) return nullptr;
  const std::string kept = mode == base::WriteMode::kAppend ? Get(path) : std::string();
  files_[path] = std::make_shared<std::string>(kept);
  return std::make_unique<Output>(*this, files_[path]);
}

std::optional<std::uint64_t> MemoryFileSystem::Length(const std::string& path) const {
  if (!FileExists(path)) return std::nullopt;
  return files_.at(path)->size();
}

std::optional<base::LocalTime> MemoryFileSystem::TimeStamp(const std::string& path) const {
  if (!FileExists(path)) return std::nullopt;
  return base::LocalTime();
}

std::vector<std::string> MemoryFileSystem::List(const std::string& folder,
                                                const std::string& pattern) const {
  std::vector<std::string> names;
  for (const auto& [path, content] : files_) {
    const std::string name = path.substr(path.rfind('/') + 1);
    if (FolderOf(path) == folder && base::MatchesPattern(name, pattern)) names.push_back(name);
  }
  return names;
}

base::FileResult MemoryFileSystem::SyncToDevice(const std::string&) {
  return Fails() ? NoSpace() : base::FileResult();
}

}  // namespace tintbench::testing
