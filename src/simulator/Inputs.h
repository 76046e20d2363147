// The machine's sensors, wired to 20 connectors as its configuration says, and the words in which
// inputs, outputs and bridges are told.
#pragma once

#include <cstdint>
#include <string>

namespace tintbench::simulator {

struct Plant;

inline constexpr int kConnectors = 20;
inline constexpr int kOutputRows = 16;

// All 32 input bits: dip-switches in the highest four, then the slave address (0 for 16), four
// driver bits, and the 20 connectors, of which a 0 is the active level.
std::uint32_t InputWord(const Plant& plant, double now);

// All 16 output bits.
std::uint16_t OutputWord(const Plant& plant);

// Six flags: shelf up and down, cap 1 opening and closing, cap 2 opening and closing.
std::string BridgeFlags(const Plant& plant, double now);

// True if the machine would dispense: a can is there, a cap is open and the door is closed.
bool ReadyToDispense(const Plant& plant, double now);

}  // namespace tintbench::simulator
