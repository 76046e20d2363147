#include "simulator/Autotest.h"

#include <algorithm>

#include "base/Numbers.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

Autotest::Autotest() : cycles_{{}, {}, {0x1103, 0x8009}, {}, {}} {}

std::string Autotest::Record() const {
  std::string record =
      base::ToHex(cycles_.size(), 2) + base::ToHex(std::max(total_, cycles_.size()), 2);
  std::size_t number = 0;
  for (const std::vector<std::uint32_t>& errors : cycles_) {
    record += base::ToHex(++number, 2) + base::ToHex(errors.size(), 2);
    for (const std::uint32_t code : errors) record += base::ToHex(code, 4);
  }
  return record.substr(0, Cut.value_or(record.size()));
}

bool Autotest::Add(const std::vector<std::uint32_t>& errors) {
  if (cycles_.size() >= kMostCycles || errors.size() > kMostErrors) return false;
  cycles_.push_back(errors);
  return true;
}

void Autotest::Clear() {
  total_ = 0;
  cycles_.clear();
  Cut.reset();
}

}  // namespace tintbench::simulator
