// Takes an input apart from left to right. Inputs are mostly readable text, so that seeds can be
// written by hand; what is missing at the end reads as nothing.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tintbench::fuzz {

class FuzzInput {
 public:
  FuzzInput(const std::uint8_t* data, std::size_t size)
      : rest_(reinterpret_cast<const char*>(data), size) {}

  bool AtEnd() const { return rest_.empty(); }

  // The next byte, 0 at the end.
  unsigned char Byte() {
    const std::string byte = Take(1);
    return byte.empty() ? 0 : static_cast<unsigned char>(byte[0]);
  }

  // Decimal digits, six at the most, and one byte behind them: a number from 0 to `most`.
  int Number(int most) {
    int number = 0;
    for (int digits = 0; digits < 6 && !rest_.empty(); ++digits) {
      const char digit = rest_[0];
      if (digit < '0' || digit > '9') break;
      number = number * 10 + (digit - '0');
      rest_.remove_prefix(1);
    }
    Take(1);
    return number % (most + 1);
  }

  bool Flag() { return Number(1) == 1; }

  std::string Take(std::size_t size) {
    const std::string taken(rest_.substr(0, size));
    rest_.remove_prefix(taken.size());
    return taken;
  }

  // What stands before the next LF, which is taken too.
  std::string Line() {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    const std::string line = Take(end);
    Take(1);
    return line;
  }

  std::string Rest() { return Take(rest_.size()); }

 private:
  std::string_view rest_;
};

}  // namespace tintbench::fuzz
