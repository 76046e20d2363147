// Why a serial device can't be opened, in words that say what to do about it.
#pragma once

#include <string>

namespace tintbench::desktop {

// One line for the device; empty if nothing stands in the way as far as can be seen.
std::string DeviceProblem(const std::string& device);

// "picocom (process 4711)": the programs that have the device open, this one left out. Empty if
// there is none or it can't be found out.
std::string DeviceHolders(const std::string& device);

// True for a line that ends in a program instead of in hardware.
bool IsPseudoTerminal(const std::string& device);

}  // namespace tintbench::desktop
