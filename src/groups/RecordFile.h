// The file that a recording is written to, line by line behind what it holds. However the program
// ends, and whatever the disk does, it ends with a whole line.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "base/Files.h"

namespace tintbench::groups {

class RecordFile {
 public:
  explicit RecordFile(base::FileSystem& files) : files_(files) {}

  bool IsOpen() const { return file_ != nullptr; }

  // Opens the file to write behind its end, or makes it. A last line that was cut off is ended
  // first, so that it spoils no other. On failure nothing is open.
  base::FileResult Open(const std::string& path);

  // Writes a line, given without its end, and hands it to the system before it returns. On failure
  // the file is closed, without what came of the line.
  base::FileResult WriteLine(std::string_view line);

  void Close() { file_.reset(); }

 private:
  base::FileResult Append(std::string_view bytes);

  base::FileSystem& files_;
  std::string path_;
  std::unique_ptr<base::OutputFile> file_;
  std::uint64_t length_ = 0;  // up to the end of the last whole line
};

}  // namespace tintbench::groups
