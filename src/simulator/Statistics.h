// The machine's working times and event counts, and their copy in flash memory.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <utility>

#include "simulator/Configuration.h"

namespace tintbench::simulator {

// One pair of a working time and a number of events; counts by itself while it runs.
class Counter {
 public:
  // Begins to count time; `eventsPerSecond` lets events follow. Nothing if it runs already.
  void Start(double now, double eventsPerSecond = 0.0);
  void Stop(double now);
  bool Running() const { return running_; }

  void Add(double seconds, double events);
  void Set(double seconds, double events, double now);

  // Neither goes beyond kLargest: a counter that is full stands still.
  double Seconds(double now) const { return std::min(seconds_ + Elapsed(now), kLargest); }
  double Events(double now) const { return std::min(events_ + rate_ * Elapsed(now), kLargest); }

  static constexpr double kLargest = 9999999999.0;  // ten digits on the line

 private:
  double Elapsed(double now) const { return running_ ? now - since_ : 0.0; }

  double seconds_ = 0.0;
  double events_ = 0.0;
  double rate_ = 0.0;
  double since_ = 0.0;
  bool running_ = false;
};

class Statistics {
 public:
  // Letters of the kinds that count for each element: motors M, circuits C, pumps B (by circuit),
  // stirrings A, caps P; and of those that count once: machine time T, shelf S, punching F,
  // plugging E, dispensing D.
  static constexpr std::string_view kElementKinds = "MCBAP";
  static constexpr std::string_view kSingleKinds = "TSFED";

  explicit Statistics(const Configuration& configuration) : configuration_(configuration) {}

  // The elements that a kind counts, in the order of the configuration.
  const std::vector<int>& Elements(char kind) const;

  // The counter of an element, or of a single kind with element 0; nullptr if there is none.
  Counter* Find(char kind, int element);

  // Fills the counters of a machine that has worked for some time, and stores them.
  void Begin(double now);

  // Writes all counters to flash memory, or takes them back from it as after a reset. Storing is
  // false if the memory is broken.
  bool Store(double now);
  void Recall(double now);

  // What wear does to it: a flash memory that takes nothing more, and a number of records in front
  // of all elements of a kind that isn't how many follow.
  bool FlashBroken = false;
  std::optional<int> ToldRecords;

 private:
  using Key = std::pair<char, int>;

  const Configuration& configuration_;
  std::map<Key, Counter> counters_;
  std::map<Key, Counter> flash_;
};

}  // namespace tintbench::simulator
