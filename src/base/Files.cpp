#include "base/Files.h"

#include <array>
#include <filesystem>
#include <random>
#include <tuple>

#include "base/Text.h"

namespace tintbench::base {

namespace {

constexpr std::size_t kReadSize = 65536;

constexpr std::string_view kTemporaryStart = ".tintbench-";
constexpr std::string_view kTemporaryEnd = ".tmp";
constexpr std::string_view kTemporaryDigits = "0123456789abcdef";
constexpr std::size_t kTemporaryDigitCount = 16;

bool IsTemporaryName(std::string_view name) {
  if (!name.starts_with(kTemporaryStart) || !name.ends_with(kTemporaryEnd)) return false;
  if (name.size() != kTemporaryStart.size() + kTemporaryDigitCount + kTemporaryEnd.size()) {
    return false;
  }
  const std::string_view digits = name.substr(kTemporaryStart.size(), kTemporaryDigitCount);
  return digits.find_first_not_of(kTemporaryDigits) == std::string_view::npos;
}

std::string FolderOf(const std::string& path) {
  const std::string folder = std::filesystem::path(path).parent_path().string();
  return folder.empty() ? "." : folder;
}

std::string PathIn(const std::string& folder, const std::string& name) {
  return (std::filesystem::path(folder) / name).string();
}

}  // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  const std::string text = ToUpper(name);
  const std::string mask = ToUpper(pattern);
  // Where to go on when a match fails: behind the last "*", with one more character taken by it.
  std::size_t star = std::string::npos;
  std::size_t resume = 0;
  std::size_t at = 0;
  std::size_t wanted = 0;
  while (at < text.size()) {
    if (wanted < mask.size() && mask[wanted] == '*') {
      star = wanted++;
      resume = at;
    } else if (wanted < mask.size() && (mask[wanted] == '?' || mask[wanted] == text[at])) {
      ++at;
      ++wanted;
    } else if (star != std::string::npos) {
      wanted = star + 1;
      at = ++resume;
    } else {
      return false;
    }
  }
  return mask.find_first_not_of('*', wanted) == std::string::npos;
}

std::optional<std::string> ReadFile(FileSystem& files, const std::string& path, std::size_t limit) {
  const std::unique_ptr<InputFile> file = files.OpenToRead(path);
  if (file == nullptr) return std::nullopt;
  std::string content;
  std::array<char, kReadSize> buffer{};
  while (const std::size_t count = file->Read(buffer.data(), buffer.size())) {
    if (count > limit - content.size()) return std::nullopt;
    content.append(buffer.data(), count);
  }
  if (file->Failed()) return std::nullopt;
  return content;
}

LineReader::LineReader(FileSystem& files, const std::string& path, std::size_t limit)
    : file_(files.OpenToRead(path)), limit_(limit) {}

bool LineReader::Fill() {
  buffer_.resize(kReadSize);
  buffer_.resize(file_->Read(buffer_.data(), kReadSize));
  position_ = 0;
  return !buffer_.empty();
}

void LineReader::Take(std::string& line, std::string_view piece) {
  // One character more than the limit is kept until the line's end is known: it may be a CR.
  line.append(piece.substr(0, limit_ + 1 - line.size()));
}

bool LineReader::Next(std::string& line) {
  line.clear();
  cut_ = false;
  if (file_ == nullptr) return false;
  std::size_t length = 0;
  bool begun = false;
  bool ended = false;
  while (!ended && (position_ < buffer_.size() || Fill())) {
    begun = true;
    const std::string_view rest = std::string_view(buffer_).substr(position_);
    const std::size_t end = rest.find('\n');
    ended = end != std::string_view::npos;
    const std::string_view piece = rest.substr(0, end);
    Take(line, piece);
    length += piece.size();
    position_ += piece.size() + (ended ? 1 : 0);
  }
  const bool whole = length == line.size();
  if (whole && line.ends_with('\r')) line.pop_back();
  cut_ = !whole || line.size() > limit_;
  if (cut_) line.resize(limit_);
  return begun && !file_->Failed();
}

std::string TemporaryPath(const std::string& folder) {
  std::random_device source;
  std::string name(kTemporaryStart);
  for (std::size_t i = 0; i < kTemporaryDigitCount; ++i) {
    name += kTemporaryDigits[source() % kTemporaryDigits.size()];
  }
  return PathIn(folder, name.append(kTemporaryEnd));
}

void SweepTemporaryFiles(FileSystem& files, const std::string& folder) {
  for (const std::string& name : files.List(folder, "*")) {
    if (IsTemporaryName(name)) std::ignore = files.Delete(PathIn(folder, name));
  }
}

FileResult SyncFolderOf(FileSystem& files, const std::string& path) {
  return files.SyncToDevice(FolderOf(path));
}

ReplacementFile::ReplacementFile(FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)), temporary_(TemporaryPath(FolderOf(path_))) {
  file_ = files_.OpenToWrite(temporary_, WriteMode::kCreate, result_);
}

ReplacementFile::~ReplacementFile() {
  if (file_ == nullptr) return;
  file_.reset();
  std::ignore = files_.Delete(temporary_);
}

bool ReplacementFile::Keep(FileResult result) {
  if (result_) result_ = std::move(result);
  return static_cast<bool>(result_);
}

FileResult ReplacementFile::Write(std::string_view bytes) {
  if (result_) Keep(file_ ? file_->Write(bytes) : FileResult("The file is complete"));
  return result_;
}

FileResult ReplacementFile::Commit() {
  if (!result_ || file_ == nullptr) return result_;
  if (Keep(file_->Close()) && Keep(files_.SyncToDevice(temporary_)) &&
      Keep(files_.Rename(temporary_, path_))) {
    file_.reset();
    Keep(SyncFolderOf(files_, path_));
  }
  return result_;
}

FileResult ReplaceFile(FileSystem& files, const std::string& path, std::string_view content) {
  ReplacementFile file(files, path);
  std::ignore = file.Write(content);
  return file.Commit();
}

}  // namespace tintbench::base
