// Reads the program's sources as text: the files of the tree and their includes, so that rules
// about the sources can be checked.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::layout {

// A source file as it lies in the tree.
struct SourceFile {
  std::string Path;  // relative to src/, with '/' between folders
  std::string Text;
};

// One #include line.
struct Include {
  int Line = 0;
  std::string Name;     // what stands between the quotes or angle brackets
  bool Quoted = false;  // "..." rather than <...>
};

// All .h and .cpp files below `root`, sorted by path. Empty if there is no such folder.
std::vector<SourceFile> ReadSources(const std::filesystem::path& root);

// The first folder of a path: "base" of "base/Clock.h"; empty if it has none.
std::string FolderOf(std::string_view path);

// The #include lines of a text, in order.
std::vector<Include> IncludesOf(const std::string& text);

}  // namespace tintbench::layout
