#include "simulator/Commands.h"

namespace tintbench::simulator {

std::span<const CommandRow> ElementCommands() { return {}; }

}  // namespace tintbench::simulator
