// Runs a target on every file of the folders that are named, so that seeds and inputs that once
// failed are tried without a fuzzer in any build.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "Target.h"

namespace {

std::vector<std::filesystem::path> FilesOf(int count, char** names) {
  std::vector<std::filesystem::path> files;
  for (int i = 1; i < count; ++i) {
    for (const auto& entry : std::filesystem::directory_iterator(names[i])) {
      if (entry.is_regular_file()) files.push_back(entry.path());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace

int main(int count, char** names) {
  const auto files = FilesOf(count, names);
  for (const auto& file : files) {
    std::cout << file.filename().string() << std::endl;
    std::ifstream stream(file, std::ios::binary);
    const std::string input{std::istreambuf_iterator<char>(stream), {}};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
  }
  if (!files.empty()) return 0;
  std::cerr << "there is no seed\n";
  return 1;
}
