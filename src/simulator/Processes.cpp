#include "simulator/Processes.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tintbench::simulator {

namespace {

struct ProcessKind {
  std::string_view Name;
  ProcessGroup Group;
  int UsualMinutes;           // of its interval
  std::size_t IntervalField;  // of "@TEM", in minutes; 0 for the usual interval
  std::string_view Table;     // of the elements that work
  std::size_t ActivityField;  // in that table, in seconds; 0 for one dispensing
};

constexpr std::size_t kStirring = 0;
constexpr std::size_t kCirculation = 1;
constexpr std::array kProcesses = {
    ProcessKind{"stirring", ProcessGroup::Timed, 120, 5, "@AGI", 6},
    ProcessKind{"circulation", ProcessGroup::Timed, 120, 2, "@MOT", 11},
    ProcessKind{"dispensing", ProcessGroup::Master, 30, 0, "@CIR", 0},
};

constexpr double kDispensingSeconds = 8.0;
constexpr int kDispensingSpeed = 300;
constexpr double kNotComing = std::numeric_limits<double>::infinity();

}  // namespace

double Processes::Interval(std::size_t kind) const {
  const ProcessKind& process = kProcesses[kind];
  const int minutes =
      process.IntervalField == 0
          ? process.UsualMinutes
          : configuration_.Number("@TEM", process.IntervalField, process.UsualMinutes);
  return std::max(minutes, 1) * 60.0;
}

void Processes::Begin(double now) {
  static_assert(kProcesses.size() == kKinds);
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    progress_[kind] = {false, now + Interval(kind), {}};
  }
}

void Processes::Hold(ProcessGroup group, bool hold, double now) {
  Settle(now);
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    Progress& progress = progress_[kind];
    if (kProcesses[kind].Group != group) continue;
    if (progress.Held && !hold) progress.Due = now + Interval(kind);
    progress.Held = hold;
    if (!hold) continue;
    for (const auto& [element, ends] : std::exchange(progress.Working, {})) {
      Switch(kind, element, false, now);
    }
  }
}

bool Processes::Working() const {
  return std::any_of(progress_.begin(), progress_.end(),
                     [](const Progress& progress) { return !progress.Working.empty(); });
}

bool Processes::Prompt(std::string_view name, double now) {
  for (std::size_t kind = 0; kind < kKinds; ++kind) {
    if (kProcesses[kind].Name != name) continue;
    progress_[kind].Due = now;
    Settle(now);
    return true;
  }
  return false;
}

void Processes::Settle(double now) {
  while (true) {
    std::size_t next = 0;
    for (std::size_t kind = 1; kind < kKinds; ++kind) {
      if (NextEvent(kind) < NextEvent(next)) next = kind;
    }
    const double when = NextEvent(next);
    if (when > now) return;
    Step(next, when);
  }
}

// A process that has something under way ends it before it is due again.
double Processes::NextEvent(std::size_t kind) const {
  const Progress& progress = progress_[kind];
  if (progress.Working.empty()) return progress.Held ? kNotComing : progress.Due;
  double next = kNotComing;
  for (const auto& [element, ends] : progress.Working) next = std::min(next, ends);
  return next;
}

void Processes::Step(std::size_t kind, double when) {
  Progress& progress = progress_[kind];
  if (progress.Working.empty()) {
    progress.Due = std::max(progress.Due, when) + Interval(kind);
    return Start(kind, when);
  }
  std::erase_if(progress.Working, [&](const auto& working) {
    if (working.second > when) return false;
    Switch(kind, working.first, false, when);
    return true;
  });
}

void Processes::Start(std::size_t kind, double when) {
  const ProcessKind& process = kProcesses[kind];
  if (process.ActivityField == 0) return Dispense(when);
  for (const int element : configuration_.Elements(process.Table)) {
    const int seconds = configuration_.Number(process.Table, element, process.ActivityField, 0);
    if (seconds <= 0) continue;
    progress_[kind].Working[element] = when + seconds;
    Switch(kind, element, true, when);
  }
}

// One circuit after the other has its turn.
void Processes::Dispense(double when) {
  constexpr std::size_t kDispensing = kKinds - 1;
  Counter& orders = *statistics_.Find('D', 0);
  const std::vector<int>& circuits = configuration_.Elements("@CIR");
  if (!circuits.empty()) {
    const auto turn = static_cast<std::size_t>(orders.Events(when)) % circuits.size();
    progress_[kDispensing].Working[circuits[turn]] = when + kDispensingSeconds;
    Switch(kDispensing, circuits[turn], true, when);
  }
  orders.Add(0.0, 1.0);
}

void Processes::Switch(std::size_t kind, int element, bool on, double when) {
  if (kind == kStirring) {
    elements_.Stirrings({element}, on, when);
    return;
  }
  int motor = element;
  int speed = configuration_.Number("@MOT", element, 9, kDispensingSpeed);
  if (kind != kCirculation) {
    elements_.Valves({element}, on, when);
    motor = configuration_.Number("@CIR", element, 7, 1);
    speed = kDispensingSpeed;
  }
  on ? elements_.MotorOn(motor, speed, when) : elements_.MotorOff(motor, when);
}

}  // namespace tintbench::simulator
