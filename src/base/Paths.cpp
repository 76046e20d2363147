#include "base/Paths.h"

#include <filesystem>

namespace tintbench::base {

namespace {

constexpr std::string_view kSeparators = "\\/:";

std::size_t NameStart(std::string_view path) { return path.find_last_of(kSeparators) + 1; }

}  // namespace

std::string FilePath(std::string_view path) { return std::string(path.substr(0, NameStart(path))); }

std::string FileName(std::string_view path) { return std::string(path.substr(NameStart(path))); }

std::string FileStem(std::string_view path) {
  const std::string name = FileName(path);
  return name.substr(0, name.rfind('.'));
}

std::string FileExtension(std::string_view path) {
  const std::string name = FileName(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string JoinPath(std::string_view folder, std::string_view name) {
  std::string joined(folder);
  if (!joined.empty() && kSeparators.find(joined.back()) == std::string_view::npos) {
    joined += static_cast<char>(std::filesystem::path::preferred_separator);
  }
  return joined.append(name);
}

}  // namespace tintbench::base
