// The machine's record of its self-test cycles, taken apart: which cycles it has done, and the
// errors of each.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::autotest {

// Characters of an error's code in the record.
inline constexpr int kCodeWidth = 4;

struct AutotestCycle {
  std::string Label;  // the cycle's number in decimal, and a mark if there is something with it
  // The number of errors, the codes of four characters each without separator, "," behind both.
  // A number below 0: the record breaks off in this cycle.
  std::string Value;
};

struct AutotestRecord {
  std::optional<int> Done;  // cycles
  std::optional<int> Total;
  std::vector<AutotestCycle> Cycles;
  int Errors = 0;      // of all cycles
  bool Whole = false;  // the answer didn't break off
};

// Takes an answer to "#xa*" in upper case apart: "A", cycles done, total cycles, then for each
// cycle its number, its number of errors, and their codes; all hexadecimal.
AutotestRecord ParseAutotest(std::string_view answer);

}  // namespace tintbench::autotest
