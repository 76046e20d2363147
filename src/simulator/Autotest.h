// The record of the machine's self-test cycles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tintbench::simulator {

class Autotest {
 public:
  static constexpr std::size_t kMostCycles = 99;
  static constexpr std::size_t kMostErrors = 16;  // of one cycle

  // A machine that has done five of twenty cycles, the third of them with errors.
  Autotest();

  // The record as it goes on the line: cycles done, total, then each cycle's number, its number
  // of errors and their codes, all hexadecimal.
  std::string Record() const;

  // Adds a cycle. False if there is no room for it.
  bool Add(const std::vector<std::uint32_t>& errors);
  void Clear();

 private:
  std::size_t total_ = 20;
  std::vector<std::vector<std::uint32_t>> cycles_;  // error codes of each cycle done
};

}  // namespace tintbench::simulator
