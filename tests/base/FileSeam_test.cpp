// The program's files are touched in one place only, or a test could make no operation fail.
#include <gtest/gtest.h>

#include <set>

#include "layout/SourceText.h"

namespace tintbench::base {
namespace {

TEST(FileSeam, OnlyTheFileSystemsBodyTouchesFiles) {
  const std::set<std::string> tools{
      "ifstream", "ofstream",         "fstream",           "filebuf",   "fopen",
      "freopen",  "QSaveFile",        "QTemporaryFile",    "QSettings", "mkstemp",
      "rename",   "create_directory", "create_directories"};
  const std::string body = "base/StandardFileSystem.cpp";
  const std::string machine = "app/machine_main.cpp";  // another program
  int found = 0;
  for (const auto& file : layout::ReadSources(TINTBENCH_SOURCE_DIR "/src")) {
    for (const auto& token : layout::TokensOf(file.Text)) {
      if (!tools.contains(token.Text) || file.Path == machine) continue;
      if (file.Path == body) {
        ++found;
      } else {
        ADD_FAILURE() << file.Path << ":" << token.Line << ": " << token.Text;
      }
    }
  }
  EXPECT_GT(found, 3) << "the rule has lost what it looks for";
}

}  // namespace
}  // namespace tintbench::base
