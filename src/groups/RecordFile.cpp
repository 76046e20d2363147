#include "groups/RecordFile.h"

#include <array>

#include "base/Text.h"

namespace tintbench::groups {

namespace {

// False if the file's last byte isn't the end of a line. An empty file, and one that can't be read,
// need no end.
bool EndsWhole(base::FileSystem& files, const std::string& path) {
  const std::unique_ptr<base::InputFile> file = files.OpenToRead(path);
  if (file == nullptr) return true;
  std::array<char, 65536> buffer{};
  char last = '\n';
  for (std::size_t count = 1; count > 0;) {
    count = file->Read(buffer.data(), buffer.size());
    if (count > 0) last = buffer.at(count - 1);
  }
  return last == '\n' || file->Failed();
}

}  // namespace

base::FileResult RecordFile::Open(const std::string& path) {
  base::FileResult result;
  const bool whole = EndsWhole(files_, path);
  path_ = path;
  length_ = files_.Length(path).value_or(0);
  file_ = files_.OpenToWrite(path, base::WriteMode::kAppend, result);
  if (file_ != nullptr && !whole) result = Append(base::kCrLf);
  return result;
}

base::FileResult RecordFile::WriteLine(std::string_view line) {
  if (file_ == nullptr) return base::FileResult("No file is open");
  return Append(std::string(line).append(base::kCrLf));
}

base::FileResult RecordFile::Append(std::string_view bytes) {
  base::FileResult result = file_->Write(bytes);
  if (result) result = file_->Flush();
  if (result) {
    length_ += bytes.size();
    return result;
  }
  Close();
  // What can't be cut off either is ended by the next opening.
  if (files_.Length(path_).value_or(0) > length_) static_cast<void>(files_.Shorten(path_, length_));
  return result;
}

}  // namespace tintbench::groups
