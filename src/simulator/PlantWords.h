// What hands, wires and wear do to the machine: the words of `Machine::Tell` about its parts.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::simulator {

struct Plant;

struct PlantWord {
  std::string_view Verb;
  std::string_view Usage;
  std::string_view Help;
  // Takes the words behind the verb; false if they make no sense.
  bool (*Run)(Plant& plant, const std::vector<std::string>& words, double now);
};

std::span<const PlantWord> PlantWords();

}  // namespace tintbench::simulator
