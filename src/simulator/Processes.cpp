#include "simulator/Processes.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace tintbench::simulator {

namespace {

struct Process {
  ProcessGroup Group;
  char Counter;
  int UsualMinutes;           // of its interval
  std::size_t IntervalField;  // of "@TEM", in minutes; 0 for the usual interval
  std::string_view Table;     // of the elements that work
  std::size_t ActivityField;  // in that table, in seconds
};

constexpr std::array kProcesses = {
    Process{ProcessGroup::Timed, 'A', 120, 5, "@AGI", 6},
    Process{ProcessGroup::Timed, 'M', 120, 2, "@MOT", 11},
    Process{ProcessGroup::Master, 'D', 30, 0, "", 0},
};

}  // namespace

double Processes::Interval(std::size_t kind) const {
  const Process& process = kProcesses[kind];
  const int minutes =
      process.IntervalField == 0
          ? process.UsualMinutes
          : configuration_.Number("@TEM", process.IntervalField, process.UsualMinutes);
  return std::max(minutes, 1) * 60.0;
}

void Processes::Begin(double now) {
  static_assert(kProcesses.size() == kKinds);
  for (std::size_t kind = 0; kind < kKinds; ++kind) progress_[kind] = {false, now + Interval(kind)};
}

void Processes::Hold(ProcessGroup group, bool hold, double now) {
  Settle(now);
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    Progress& progress = progress_[kind];
    if (kProcesses[kind].Group != group) continue;
    if (progress.Held && !hold) progress.Due = now + Interval(kind);
    progress.Held = hold;
  }
}

void Processes::Settle(double now) {
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    Progress& progress = progress_[kind];
    if (progress.Held || now < progress.Due) continue;
    const double times = std::floor((now - progress.Due) / Interval(kind)) + 1.0;
    progress.Due += times * Interval(kind);
    Book(kind, times);
  }
}

void Processes::Book(std::size_t kind, double times) {
  const Process& process = kProcesses[kind];
  if (process.Table.empty()) statistics_.Find(process.Counter, 0)->Add(0.0, times);
  for (const int element : configuration_.Elements(process.Table)) {
    const int seconds = configuration_.Number(process.Table, element, process.ActivityField, 0);
    statistics_.Find(process.Counter, element)->Add(times * seconds, times);
  }
}

}  // namespace tintbench::simulator
