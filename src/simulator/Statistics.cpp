#include "simulator/Statistics.h"

namespace tintbench::simulator {

namespace {

std::string_view TableOf(char kind) {
  switch (kind) {
    case 'M':
      return "@MOT";
    case 'C':
    case 'B':
      return "@CIR";
    case 'A':
      return "@AGI";
    case 'P':
      return "@TAP";
    default:
      return "";
  }
}

bool IsSingle(char kind) { return Statistics::kSingleKinds.find(kind) != std::string_view::npos; }

}  // namespace

void Counter::Start(double now, double eventsPerSecond) {
  if (running_) return;
  running_ = true;
  since_ = now;
  rate_ = eventsPerSecond;
}

void Counter::Stop(double now) {
  if (!running_) return;
  const double elapsed = Elapsed(now);
  running_ = false;
  Add(elapsed, rate_ * elapsed);
  rate_ = 0.0;
}

void Counter::Add(double seconds, double events) {
  seconds_ = std::min(seconds_ + seconds, kLargest);
  events_ = std::min(events_ + events, kLargest);
}

void Counter::Set(double seconds, double events, double now) {
  seconds_ = seconds;
  events_ = events;
  since_ = now;
}

const std::vector<int>& Statistics::Elements(char kind) const {
  return configuration_.Elements(TableOf(kind));
}

Counter* Statistics::Find(char kind, int element) {
  const bool known = IsSingle(kind) ? element == 0 : configuration_.Has(TableOf(kind), element);
  return known ? &counters_[{kind, element}] : nullptr;
}

void Statistics::Begin(double now) {
  for (const char kind : kElementKinds) {
    for (const int element : Elements(kind)) {
      const double used = 40.0 + 17.0 * (element * 29 % 23);
      Find(kind, element)->Set(used * 60.0, used * 3.0, now);
    }
  }
  Find('T', 0)->Set(1200.0 * 3600.0, 0.0, now);
  double events = 800.0;
  for (const char kind : kSingleKinds.substr(1)) Find(kind, 0)->Set(0.0, events += 111.0, now);
  static_cast<void>(Store(now));
}

bool Statistics::Store(double now) {
  if (FlashBroken) return false;
  flash_.clear();
  for (const auto& [key, counter] : counters_) {
    flash_[key].Set(counter.Seconds(now), counter.Events(now), now);
  }
  return true;
}

void Statistics::Recall(double now) {
  counters_ = flash_;
  Find('T', 0)->Start(now);
}

}  // namespace tintbench::simulator
