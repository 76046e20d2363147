#include "simulator/Autotest.h"

#include <algorithm>

#include "simulator/Text.h"

namespace tintbench::simulator {

Autotest::Autotest() : cycles_{{}, {}, {0x1103, 0x8009}, {}, {}} {}

std::string Autotest::Record() const {
  std::string record = Hex(cycles_.size(), 2) + Hex(std::max(total_, cycles_.size()), 2);
  std::size_t number = 0;
  for (const std::vector<std::uint32_t>& errors : cycles_) {
    record += Hex(++number, 2) + Hex(errors.size(), 2);
    for (const std::uint32_t code : errors) record += Hex(code, 4);
  }
  return record;
}

bool Autotest::Add(const std::vector<std::uint32_t>& errors) {
  if (cycles_.size() >= kMostCycles || errors.size() > kMostErrors) return false;
  cycles_.push_back(errors);
  return true;
}

void Autotest::Clear() {
  total_ = 0;
  cycles_.clear();
}

}  // namespace tintbench::simulator
