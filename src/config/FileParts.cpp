#include "config/FileParts.h"

#include <tuple>

#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"

namespace tintbench::config {

namespace {

constexpr std::size_t kPartSize = 65000;
constexpr std::size_t kOpeningSize = 8;  // what the opening line is counted as, in every part
constexpr int kMostParts = 1000;         // part numbers have three digits

// The source's lines, of which the next is always known, and so is its end.
class SourceLines {
 public:
  SourceLines(base::FileSystem& files, const std::string& path) : reader_(files, path) { Step(); }

  bool AtEnd() const { return atEnd_; }
  const std::string& Line() const { return line_; }
  void Step() {
    atEnd_ = !reader_.Next(line_);
    cut_ = cut_ || reader_.WasCut();
  }
  // What keeps the source from being copied whole; empty if nothing does.
  std::string Error() const {
    if (!reader_.IsOpen()) return "the file can't be opened";
    if (reader_.Failed()) return "the file can't be read";
    return cut_ ? "the file has a line that is too long" : "";
  }

 private:
  base::LineReader reader_;
  std::string line_;
  bool atEnd_ = false;
  bool cut_ = false;
};

std::string WithEnd(const std::string& line) { return line + std::string(base::kCrLf); }

// Takes lines from the source until the part is full or the source ends.
std::string NextPart(SourceLines& source, bool first, const std::string& identifier) {
  std::string part = first ? WithEnd("@IPS " + identifier) : "";
  for (std::size_t size = kOpeningSize; size < kPartSize; source.Step()) {
    if (source.AtEnd()) {
      return part + WithEnd("@EPS " + identifier) + WithEnd("@PDD " + identifier);
    }
    const std::string line = WithEnd(source.Line());
    part += line;
    size += line.size();
  }
  return part;
}

base::FileResult WritePart(base::FileSystem& files, const std::string& path,
                           const std::string& content) {
  base::FileResult result;
  const auto file = files.OpenToWrite(path, base::WriteMode::kCreate, result);
  if (file == nullptr) return result;
  result = file->Write(content);
  return result ? file->Close() : result;
}

FileParts Abandoned(base::FileSystem& files, const std::string& appPath, int last,
                    const std::string& error) {
  for (int number = 0; number <= last; ++number) {
    std::ignore = files.Delete(FilePartPath(appPath, number));
  }
  return {-1, error};
}

}  // namespace

std::string FilePartPath(const std::string& appPath, int number) {
  return base::JoinPath(appPath, "_FW_." + base::LastDigits(number, 3));
}

FileParts SplitFileForSending(base::FileSystem& files, const std::string& appPath,
                              const std::string& path, const std::string& extension,
                              const std::string& identifier) {
  SourceLines source(files, path + "." + extension);
  FileParts parts;
  while (!source.AtEnd()) {
    if (++parts.Last == kMostParts) {
      return Abandoned(files, appPath, kMostParts - 1, "the file is too long");
    }
    const std::string part = NextPart(source, parts.Last == 0, identifier);
    const auto written = WritePart(files, FilePartPath(appPath, parts.Last), part);
    if (!written) return Abandoned(files, appPath, parts.Last, written.Error());
  }
  const std::string error = source.Error();
  return error.empty() ? parts : Abandoned(files, appPath, parts.Last, error);
}

}  // namespace tintbench::config
