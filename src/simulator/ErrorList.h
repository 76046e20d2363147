// The errors that the machine has found and tells in its status.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tintbench::simulator {

class ErrorList {
 public:
  // The most that are kept; further ones are dropped.
  static constexpr std::size_t kMost = 64;

  // Adds an error that shows from `when` on. One that is there already isn't added again.
  void Add(std::uint32_t code, double when);

  // The codes that show at `now`, in the order in which they came up.
  std::vector<std::uint32_t> Shown(double now) const;

  void Remove(std::uint32_t code);

  // Drops all, or those that haven't come up yet.
  void Clear() { errors_.clear(); }
  void ForgetComing(double now);

 private:
  struct Error {
    std::uint32_t Code;
    double When;
  };

  std::vector<Error> errors_;
};

}  // namespace tintbench::simulator
