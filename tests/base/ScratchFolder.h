// A folder of its own for a test, gone with it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tintbench::testing {

class ScratchFolder {
 public:
  ScratchFolder() {
    const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
    path_ = std::filesystem::path(TINTBENCH_BINARY_DIR) / "scratch" /
            (std::string(test->test_suite_name()) + "." + test->name());
    std::filesystem::remove_all(path_);
    std::filesystem::create_directories(path_);
  }
  ~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  std::string Path(const std::string& name = "") const { return (path_ / name).string(); }

  // Makes a file and gives its path.
  std::string Put(const std::string& name, const std::string& content) const {
    std::ofstream(Path(name), std::ios::binary) << content;
    return Path(name);
  }

  std::string Get(const std::string& name) const {
    std::ifstream stream(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  // How many files and folders it holds.
  int Count() const {
    const std::filesystem::directory_iterator entries(path_);
    return static_cast<int>(std::distance(begin(entries), end(entries)));
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tintbench::testing
