// The record of the machine's self-test cycles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
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

  // The record breaks off behind so many characters; nothing: it is whole.
  std::optional<std::size_t> Cut;

  // Adds a cycle. False if there is no room for it.
  bool Add(const std::vector<std::uint32_t>& errors);
  // No cycles done, of none, and the record whole.
  void Clear();

 private:
  std::size_t total_ = 20;
  std::vector<std::vector<std::uint32_t>> cycles_;  // error codes of each cycle done
};

}  // namespace tintbench::simulator
