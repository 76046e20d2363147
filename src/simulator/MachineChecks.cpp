// Words that are told for later, and those that look instead of doing something.
#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Text.h"
#include "simulator/Checks.h"
#include "simulator/Machine.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr std::size_t kMostErrands = 256;

}  // namespace

std::string Machine::Postpone(const Words& words) {
  const std::optional<double> seconds = words.empty() ? std::nullopt : WholeNumber(words[0]);
  if (words.size() < 2 || !seconds || *seconds < 0) return "usage: after SECONDS WORDS...";
  if (!Knows(words[1])) return "after: no word for later: " + words[1];
  if (errands_.size() >= kMostErrands) return "after: there is too much to do already";
  const double when = now_ + *seconds;
  const auto place =
      std::upper_bound(errands_.begin(), errands_.end(), when,
                       [](double time, const Errand& errand) { return time < errand.When; });
  errands_.insert(place, {when, Join(std::span(words).subspan(1), " ")});
  return {};
}

std::string Machine::Check(const Words& words) const {
  if (words.size() < 2) return "usage: check WHAT STATE...";
  const std::span<const std::string> wished = std::span(words).subspan(1);
  if (words.front() == "heard") return CheckHeard(wished);
  if (words.front() == "display") {
    const std::string shown = Shown().empty() ? "none" : Shown();
    return shown == Join(wished, " ") ? "" : "check display: " + shown;
  }
  const std::optional<std::string> state = StateOf(plant_, words.front(), now_);
  if (!state) return "check: nothing has the name " + words.front();
  return *state == Join(wished, " ") ? "" : "check " + words.front() + ": " + *state;
}

std::string Machine::CheckHeard(std::span<const std::string> commands) const {
  const bool none = commands.size() == 1 && commands.front() == "none";
  const std::size_t count = none ? heard_.size() : std::min(commands.size(), heard_.size());
  const std::vector<std::string> last(std::prev(heard_.end(), static_cast<std::ptrdiff_t>(count)),
                                      heard_.end());
  const std::string text = base::ToLower(Join(last, " "));
  const std::string wished = none ? std::string() : base::ToLower(Join(commands, " "));
  return text == wished ? "" : "check heard: " + (text.empty() ? "none" : text);
}

bool Machine::ForgetHeard(const Words& words) {
  heard_.clear();
  return words.empty();
}

}  // namespace tintbench::simulator
