// Flushes colorant circuits, in batches that the machine can bear, until the operator stops it, and
// closes everything again in reverse order.
#pragma once

#include <string>
#include <string_view>

#include "commands/CommWindow.h"
#include "commands/ElementSender.h"
#include "commands/ShelfAndValves.h"

namespace tintbench::commands {

// Walks `list` in pieces of `width` characters, finds each in the comma-separated `keys` and takes
// the value at the same place of `values`; of equal values one, if `unique`. The values adjacent.
std::string MapList(std::string_view list, std::string_view keys, std::string_view values,
                    int width, bool unique);

class PurgeProcess {
 public:
  PurgeProcess(CommWindow& window, ElementSender& sender, ShelfAndValves& shelf)
      : window_(window), sender_(sender), shelf_(shelf) {}

  // One press of the purge's key: a batch from its start to its end. `afresh` forgets what earlier
  // presses have left.
  void PurgeRun(bool afresh);

 private:
  CommWindow& window_;
  ElementSender& sender_;
  ShelfAndValves& shelf_;
};

}  // namespace tintbench::commands
