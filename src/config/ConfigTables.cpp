#include "config/ConfigTables.h"

#include <algorithm>

namespace tintbench::config {

std::span<const ConfigTable> TablesOf(ConfigGroup group) {
  const auto inGroup = [group](const ConfigTable& table) { return table.Group == group; };
  const auto first = std::find_if(kConfigTables.begin(), kConfigTables.end(), inGroup);
  const auto last = std::find_if_not(first, kConfigTables.end(), inGroup);
  return {first, last};
}

const ConfigTable* FindConfigTable(std::string_view tag) {
  const auto found = std::find_if(kConfigTables.begin(), kConfigTables.end(),
                                  [tag](const ConfigTable& table) { return table.Tag == tag; });
  return found == kConfigTables.end() ? nullptr : found;
}

}  // namespace tintbench::config
