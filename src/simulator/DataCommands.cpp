#include "simulator/Commands.h"

namespace tintbench::simulator {

std::span<const CommandRow> DataCommands() { return {}; }

}  // namespace tintbench::simulator
