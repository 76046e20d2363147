// What a script can check of the machine's parts: the truth behind the answers on the line.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tintbench::simulator {

struct Plant;

// The state of "valves", "stirrings", "motors" (the numbers of those that are on), "caps" (of those
// that aren't closed), each "none" if there is no such, or of the "shelf" ("low", "between",
// "high", "rising", "sinking"). Nothing for any other name.
std::optional<std::string> StateOf(const Plant& plant, std::string_view name, double now);

}  // namespace tintbench::simulator
