#include <algorithm>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "base/Files.h"

namespace tintbench::base {

namespace {

namespace fs = std::filesystem;

FileResult FromCode(const std::error_code& code) {
  return code ? FileResult(code.message()) : FileResult();
}

// The streams tell only that they failed; the system's error number has the reason, if any.
FileResult StreamFailure() {
  const int number = errno;
  return FileResult(number != 0 ? std::generic_category().message(number) : "Input/output error");
}

// False if a folder, a device or a named pipe has the name.
bool CanBeFile(const std::string& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  return !fs::exists(status) || fs::is_regular_file(status);
}

FileResult NoFile() { return FileResult("Not a regular file"); }

class StreamInput final : public InputFile {
 public:
  explicit StreamInput(const std::string& path) : stream_(path, std::ios::binary) {}

  bool IsOpen() const { return stream_.is_open(); }

  std::size_t Read(char* buffer, std::size_t size) override {
    if (Failed()) return 0;
    stream_.read(buffer, static_cast<std::streamsize>(size));
    return Failed() ? 0 : static_cast<std::size_t>(stream_.gcount());
  }

  bool Failed() const override { return stream_.bad(); }

 private:
  std::ifstream stream_;
};

class StreamOutput final : public OutputFile {
 public:
  StreamOutput(const std::string& path, WriteMode mode)
      : stream_(path, std::ios::binary |
                          (mode == WriteMode::kAppend ? std::ios::app : std::ios::trunc)) {}

  bool IsOpen() const { return stream_.is_open(); }

  FileResult Write(std::string_view bytes) override {
    errno = 0;
    stream_.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return Outcome();
  }

  FileResult Flush() override {
    errno = 0;
    stream_.flush();
    return Outcome();
  }

  FileResult Close() override {
    if (!stream_.is_open()) return Outcome();
    errno = 0;
    stream_.close();
    return Outcome();
  }

 private:
  FileResult Outcome() const { return stream_ ? FileResult() : StreamFailure(); }

  std::ofstream stream_;
};

LocalTime ToLocal(fs::file_time_type time) {
  const auto system = std::chrono::time_point_cast<std::chrono::system_clock::duration>(
      fs::file_time_type::clock::to_sys(time));
  const std::time_t seconds = std::chrono::system_clock::to_time_t(system);
  const std::tm* local = std::localtime(&seconds);
  if (local == nullptr) return {};
  return {local->tm_year + 1900, local->tm_mon + 1, local->tm_mday,
          local->tm_hour,        local->tm_min,     local->tm_sec};
}

}  // namespace

bool StandardFileSystem::FileExists(const std::string& path) const {
  std::error_code code;
  return fs::is_regular_file(path, code);
}

bool StandardFileSystem::DirExists(const std::string& path) const {
  std::error_code code;
  return fs::is_directory(path, code);
}

FileResult StandardFileSystem::MakeDir(const std::string& path) {
  std::error_code code;
  fs::create_directories(path, code);
  return FromCode(code);
}

FileResult StandardFileSystem::Delete(const std::string& path) {
  if (!FileExists(path))
    return FromCode(std::make_error_code(std::errc::no_such_file_or_directory));
  std::error_code code;
  fs::remove(path, code);
  return FromCode(code);
}

FileResult StandardFileSystem::Rename(const std::string& from, const std::string& to) {
  if (!CanBeFile(to)) return NoFile();
  std::error_code code;
  fs::rename(from, to, code);
  return FromCode(code);
}

FileResult StandardFileSystem::Shorten(const std::string& path, std::uint64_t length) {
  const std::optional<std::uint64_t> present = Length(path);
  if (!present) return FromCode(std::make_error_code(std::errc::no_such_file_or_directory));
  std::error_code code;
  if (*present > length) fs::resize_file(path, length, code);
  return FromCode(code);
}

std::unique_ptr<InputFile> StandardFileSystem::OpenToRead(const std::string& path) {
  // Opening a named pipe would wait for its writer, and a folder opens but can't be read.
  if (!FileExists(path)) return nullptr;
  auto file = std::make_unique<StreamInput>(path);
  return file->IsOpen() ? std::move(file) : nullptr;
}

std::unique_ptr<OutputFile> StandardFileSystem::OpenToWrite(const std::string& path, WriteMode mode,
                                                            FileResult& result) {
  // Opening a named pipe would wait for its reader.
  if (!CanBeFile(path)) {
    result = NoFile();
    return nullptr;
  }
  errno = 0;
  auto file = std::make_unique<StreamOutput>(path, mode);
  result = file->IsOpen() ? FileResult() : StreamFailure();
  return result ? std::move(file) : nullptr;
}

std::optional<std::uint64_t> StandardFileSystem::Length(const std::string& path) const {
  std::error_code code;
  const std::uint64_t length = fs::file_size(path, code);
  if (code || !FileExists(path)) return std::nullopt;
  return length;
}

std::optional<LocalTime> StandardFileSystem::TimeStamp(const std::string& path) const {
  std::error_code code;
  const fs::file_time_type time = fs::last_write_time(path, code);
  if (code || !FileExists(path)) return std::nullopt;
  return ToLocal(time);
}

std::vector<std::string> StandardFileSystem::List(const std::string& folder,
                                                  const std::string& pattern) const {
  std::vector<std::string> names;
  std::error_code code;
  for (fs::directory_iterator entry(folder, code), end; !code && entry != end;
       entry.increment(code)) {
    std::error_code ignored;
    const std::string name = entry->path().filename().string();
    if (entry->is_regular_file(ignored) && MatchesPattern(name, pattern)) names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace tintbench::base
