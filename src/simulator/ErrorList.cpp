#include "simulator/ErrorList.h"

#include <algorithm>

namespace tintbench::simulator {

void ErrorList::Add(std::uint32_t code, double when) {
  const bool known = std::any_of(errors_.begin(), errors_.end(),
                                 [code](const Error& error) { return error.Code == code; });
  if (known || errors_.size() >= kMost) return;
  const auto place = std::upper_bound(errors_.begin(), errors_.end(), when,
                                      [](double time, const Error& e) { return time < e.When; });
  errors_.insert(place, {code, when});
}

std::vector<std::uint32_t> ErrorList::Shown(double now) const {
  std::vector<std::uint32_t> shown;
  for (const Error& error : errors_) {
    if (error.When <= now) shown.push_back(error.Code);
  }
  return shown;
}

void ErrorList::Remove(std::uint32_t code) {
  std::erase_if(errors_, [code](const Error& error) { return error.Code == code; });
}

void ErrorList::ForgetComing(double now) {
  std::erase_if(errors_, [now](const Error& error) { return error.When > now; });
}

}  // namespace tintbench::simulator
