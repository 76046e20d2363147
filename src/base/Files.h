// The program's one way to files and folders, so that a test can put another body in its place and
// make any operation fail. On top of it stand a line reader for texts of any origin, the replacing
// of a file, which leaves either the old or the new one at any moment, and the sweeping up of what
// a replacing leaves when the program is cut off in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Clock.h"

namespace tintbench::base {

// The outcome of an operation that changes files: good, or the reason of the failure in words.
class [[nodiscard]] FileResult {
 public:
  FileResult() = default;
  explicit FileResult(std::string error) : error_(std::move(error)), good_(false) {}

  explicit operator bool() const { return good_; }
  // The reason in words, without the file's name. Empty if all is good.
  const std::string& Error() const { return error_; }

 private:
  std::string error_;
  bool good_ = true;
};

// A file opened for reading from its start. Closed by its destruction.
class InputFile {
 public:
  virtual ~InputFile() = default;

  // Reads the next bytes into `buffer`, `size` of them at the most. Gives the number read: 0 at
  // the end, and after a failure.
  virtual std::size_t Read(char* buffer, std::size_t size) = 0;

  // True once a read has failed.
  virtual bool Failed() const = 0;
};

// A file opened for writing. What is written may lie in a buffer until Flush or Close.
class OutputFile {
 public:
  virtual ~OutputFile() = default;

  virtual FileResult Write(std::string_view bytes) = 0;
  // Hands all that was written to the system, so that it outlives a crash of this program.
  virtual FileResult Flush() = 0;
  // Flushes and closes. Closing twice is good. The destructor closes too, without a result.
  virtual FileResult Close() = 0;
};

enum class WriteMode {
  kCreate,  // begins with an empty file
  kAppend,  // keeps what the file holds and writes behind it
};

// Paths are texts in the system's own form. No operation throws.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // True for a regular file; a folder or a device is none.
  virtual bool FileExists(const std::string& path) const = 0;
  virtual bool DirExists(const std::string& path) const = 0;

  // Makes the folder and those above it that are missing. A folder that exists is no error.
  virtual FileResult MakeDir(const std::string& path) = 0;
  // Deletes a file. A file that doesn't exist is an error.
  virtual FileResult Delete(const std::string& path) = 0;
  // Gives the file a new name, in place of a file that has this name. A folder or a device that
  // has it is an error.
  virtual FileResult Rename(const std::string& from, const std::string& to) = 0;

  // Cuts off what a file holds behind its first `length` bytes. A file that doesn't exist is an
  // error.
  virtual FileResult Shorten(const std::string& path, std::uint64_t length) = 0;

  // Null if there is no regular file of that name or it can't be opened.
  virtual std::unique_ptr<InputFile> OpenToRead(const std::string& path) = 0;
  // Null if the file can't be opened; `result` then has the reason.
  virtual std::unique_ptr<OutputFile> OpenToWrite(const std::string& path, WriteMode mode,
                                                  FileResult& result) = 0;

  // Length in bytes, nothing if there is no such file.
  virtual std::optional<std::uint64_t> Length(const std::string& path) const = 0;
  // Local time of the last change, nothing if there is no such file.
  virtual std::optional<LocalTime> TimeStamp(const std::string& path) const = 0;
  // The names that regular files of the folder really have, without the folder, that match the
  // pattern ("*" any run, "?" one character, case ignored), in ascending order of their bytes.
  virtual std::vector<std::string> List(const std::string& folder,
                                        const std::string& pattern) const = 0;

  // Makes sure that the closed file, or the folder with its names, has reached the device. The
  // standard library has no means for that: a body that knows the operating system overrides it.
  virtual FileResult SyncToDevice(const std::string& /*path*/) { return {}; }
};

// Files through the standard library.
class StandardFileSystem : public FileSystem {
 public:
  bool FileExists(const std::string& path) const override;
  bool DirExists(const std::string& path) const override;
  FileResult MakeDir(const std::string& path) override;
  FileResult Delete(const std::string& path) override;
  FileResult Rename(const std::string& from, const std::string& to) override;
  FileResult Shorten(const std::string& path, std::uint64_t length) override;
  std::unique_ptr<InputFile> OpenToRead(const std::string& path) override;
  std::unique_ptr<OutputFile> OpenToWrite(const std::string& path, WriteMode mode,
                                          FileResult& result) override;
  std::optional<std::uint64_t> Length(const std::string& path) const override;
  std::optional<LocalTime> TimeStamp(const std::string& path) const override;
  std::vector<std::string> List(const std::string& folder,
                                const std::string& pattern) const override;
};

// True if the whole name matches the pattern: "*" any run, "?" one character, ASCII case ignored.
bool MatchesPattern(std::string_view name, std::string_view pattern);

// The whole file. Nothing if it can't be read or holds more than `limit` bytes.
std::optional<std::string> ReadFile(FileSystem& files, const std::string& path, std::size_t limit);

// Reads a file line by line. A line ends in LF or CR LF; the last may end with the file. Memory
// is bounded: of a line longer than `limit` the rest is skipped.
class LineReader {
 public:
  // No text line of this program comes near it.
  static constexpr std::size_t kLineLimit = 1U << 20U;

  LineReader(FileSystem& files, const std::string& path, std::size_t limit = kLineLimit);

  // False if the file couldn't be opened.
  bool IsOpen() const { return file_ != nullptr; }
  // Gives the next line without its end. False at the end of the file or after a failure; a line
  // that reading fails in isn't given, as nobody knows how it goes on.
  bool Next(std::string& line);
  // True if the line given last was cut at the limit.
  bool WasCut() const { return cut_; }
  // True if reading stopped at a failure and not at the file's end.
  bool Failed() const { return file_ == nullptr || file_->Failed(); }

 private:
  bool Fill();
  void Take(std::string& line, std::string_view piece);

  std::unique_ptr<InputFile> file_;
  std::size_t limit_;
  std::string buffer_;
  std::size_t position_ = 0;
  bool cut_ = false;
};

// A path in `folder` for a file that isn't to stay. The name is one that nobody else gives to a
// file, not even another copy of the program, and SweepTemporaryFiles knows it again.
std::string TemporaryPath(const std::string& folder);

// Deletes the files in `folder` that TemporaryPath named: no process but one that was cut off
// leaves them. One that can't be deleted stays for the next time. Not for a folder in which another
// copy of the program may be writing: its replacement then fails, with the old file in place.
void SweepTemporaryFiles(FileSystem& files, const std::string& folder);

// Brings the folder of `path`, and so the name that a file was given there, to the device.
FileResult SyncFolderOf(FileSystem& files, const std::string& path);

// A file that is written anew beside its target and takes the target's place at Commit. If it is
// never committed, the target stays as it is.
class ReplacementFile {
 public:
  ReplacementFile(FileSystem& files, std::string path);
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;

  // After a failure every further step fails with the same reason.
  FileResult Write(std::string_view bytes);
  // Brings the file to the device and puts it in the target's place. Nothing can be written after.
  FileResult Commit();

 private:
  bool Keep(FileResult result);

  FileSystem& files_;
  std::string path_;
  std::string temporary_;
  std::unique_ptr<OutputFile> file_;
  FileResult result_;
};

// Puts a file with this content in the place of the file `path`, or makes it. If it fails, the old
// file is still there, or the new one, whole, if only its bringing to the device failed.
FileResult ReplaceFile(FileSystem& files, const std::string& path, std::string_view content);

}  // namespace tintbench::base
