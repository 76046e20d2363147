#include "layout/SourceText.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

namespace tintbench::layout {

std::vector<SourceFile> ReadSources(const std::filesystem::path& root) {
  std::vector<SourceFile> files;
  std::error_code error;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root, error)) {
    const auto extension = entry.path().extension();
    if (extension != ".h" && extension != ".cpp") continue;
    std::ifstream in(entry.path(), std::ios::binary);
    files.push_back({entry.path().lexically_relative(root).generic_string(),
                     {std::istreambuf_iterator<char>(in), {}}});
  }
  std::sort(files.begin(), files.end(),
            [](const SourceFile& a, const SourceFile& b) { return a.Path < b.Path; });
  return files;
}

std::string FolderOf(std::string_view path) {
  const std::size_t slash = path.find('/');
  return slash == std::string_view::npos ? std::string() : std::string(path.substr(0, slash));
}

std::vector<Include> IncludesOf(const std::string& text) {
  std::vector<Include> includes;
  std::istringstream lines(text);
  std::string line;
  for (int number = 1; std::getline(lines, line); ++number) {
    std::istringstream words(line);
    std::string mark;
    words >> mark;
    if (mark == "#") {
      words >> mark;
      mark.insert(0, "#");
    }
    if (mark.rfind("#include", 0) != 0) continue;
    const std::size_t open = line.find_first_of("\"<");
    if (open == std::string::npos) continue;
    const std::size_t close = line.find_first_of("\">", open + 1);
    if (close == std::string::npos) continue;
    includes.push_back({number, line.substr(open + 1, close - open - 1), line[open] == '"'});
  }
  return includes;
}

}  // namespace tintbench::layout
