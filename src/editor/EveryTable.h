// A walk over all tables of a configuration, for all slaves.
#pragma once

#include "config/ConfigFile.h"
#include "editor/Places.h"

namespace tintbench::editor {

// Calls `work` with each table's place: by group, table and slave, in the order of the file.
template <typename Work>
void ForEveryTable(Work work) {
  for (int group = 0; group < config::kConfigGroupCount; ++group) {
    const auto which = static_cast<config::ConfigGroup>(group);
    const int tables = static_cast<int>(config::TablesOf(which).size());
    for (int table = 1; table <= tables; ++table) {
      for (int slave = 1; slave <= config::kSlaveCount; ++slave) {
        work(TablePlace{which, table, slave});
      }
    }
  }
}

}  // namespace tintbench::editor
