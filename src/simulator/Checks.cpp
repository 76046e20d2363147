#include "simulator/Checks.h"

#include <array>
#include <vector>

#include "base/Numbers.h"
#include "simulator/Plant.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

std::string Numbers(const std::vector<int>& elements) {
  std::vector<std::string> names;
  names.reserve(elements.size());
  for (const int element : elements) names.push_back(base::LastDigits(element, 2));
  return names.empty() ? "none" : Join(names, " ");
}

std::string CapsNotClosed(const Plant& plant, double now) {
  std::vector<int> caps;
  for (const int cap : plant.Config.Elements("@TAP")) {
    if (plant.TheCaps.At(cap, now) != CapPosition::Closed) caps.push_back(cap);
  }
  return Numbers(caps);
}

std::string ShelfState(const Plant& plant, double now) {
  const Shelf& shelf = plant.TheShelf;
  if (const int direction = shelf.Direction(now)) return direction > 0 ? "rising" : "sinking";
  if (shelf.IsLow(now)) return "low";
  return shelf.IsHigh(now) ? "high" : "between";
}

struct State {
  std::string_view Name;
  std::string (*Tell)(const Plant& plant, double now);
};

constexpr std::array kStates = {
    State{"valves", [](const Plant& p, double) { return Numbers(p.TheElements.OpenValves()); }},
    State{"stirrings",
          [](const Plant& p, double) { return Numbers(p.TheElements.WorkingStirrings()); }},
    State{"motors", [](const Plant& p, double) { return Numbers(p.TheElements.RunningMotors()); }},
    State{"caps", CapsNotClosed},
    State{"shelf", ShelfState},
};

}  // namespace

std::optional<std::string> StateOf(const Plant& plant, std::string_view name, double now) {
  for (const State& state : kStates) {
    if (state.Name == name) return state.Tell(plant, now);
  }
  return std::nullopt;
}

}  // namespace tintbench::simulator
