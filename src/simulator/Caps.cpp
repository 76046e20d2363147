#include "simulator/Caps.h"

#include <algorithm>

namespace tintbench::simulator {

namespace {

constexpr int kByHand = 0;
constexpr int kThreePositions = 3;
constexpr int kUsualSeconds = 15;
constexpr double kShareOfTime = 0.5;  // a sound cap takes half of the time that it is given
constexpr double kIdleSeconds = 0.3;  // to find that it stands there already

int Height(CapPosition position) { return static_cast<int>(position); }

}  // namespace

std::optional<Caps::Move> Caps::Begin(int cap, CapPosition target, double now) {
  if (!configuration_.Has("@TAP", cap) || Type(cap) == kByHand) return std::nullopt;
  if (target == CapPosition::Middle && Type(cap) != kThreePositions) return std::nullopt;
  Cap& moved = caps_[cap];
  if (now < moved.Ends) return std::nullopt;
  const double given = std::clamp(configuration_.Number("@TAP", cap, 4, kUsualSeconds), 1, 60);
  const bool there = moved.To == target;
  const bool good = there || !moved.Stuck;
  const double seconds = there ? kIdleSeconds : (good ? given * kShareOfTime : given);
  moved.From = moved.To;
  if (good) moved.To = target;
  moved.Began = now;
  moved.Ends = now + seconds;
  return Move{seconds, good};
}

const Caps::Cap* Caps::Find(int cap) const {
  const auto found = caps_.find(cap);
  return found == caps_.end() ? nullptr : &found->second;
}

CapPosition Caps::At(int cap, double now) const {
  if (!configuration_.Has("@TAP", cap)) return CapPosition::Between;
  const Cap* found = Find(cap);
  if (found == nullptr) return CapPosition::Closed;
  const bool moving = now < found->Ends && found->From != found->To;
  return moving ? CapPosition::Between : found->To;
}

int Caps::Direction(int cap, double now) const {
  const Cap* found = Find(cap);
  if (found == nullptr || now >= found->Ends) return 0;
  const int change = Height(found->To) - Height(found->From);
  return change > 0 ? 1 : (change < 0 ? -1 : 0);
}

bool Caps::AnyMoving(double now) const {
  return std::any_of(caps_.begin(), caps_.end(),
                     [now](const auto& entry) { return now < entry.second.Ends; });
}

bool Caps::AnyPassage(double now) const {
  bool driven = false;
  for (const int cap : configuration_.Elements("@TAP")) {
    if (Type(cap) == kByHand) continue;
    driven = true;
    const CapPosition position = At(cap, now);
    if (position == CapPosition::Open || position == CapPosition::Middle) return true;
  }
  return !driven;
}

bool Caps::Put(int cap, CapPosition position) {
  if (!configuration_.Has("@TAP", cap)) return false;
  const bool stuck = caps_[cap].Stuck;
  caps_[cap] = {position, position, 0.0, 0.0, stuck};
  return true;
}

bool Caps::Stick(int cap, bool stuck) {
  if (!configuration_.Has("@TAP", cap)) return false;
  caps_[cap].Stuck = stuck;
  return true;
}

}  // namespace tintbench::simulator
