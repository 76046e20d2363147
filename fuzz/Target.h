// What every fuzz target shares: its entry, and how it says that something that must always hold
// doesn't.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// One run on one input. Called by libFuzzer, or for each file by the program that replays seeds.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tintbench::fuzz {

// Ends the program with `what` on standard error unless `holds`.
void Require(bool holds, std::string_view what);

}  // namespace tintbench::fuzz
