// The configuration of the built-in machine: 24 circuits, 12 motors, three caps of different
// kinds, a shelf with puncher, 16 stirrings and three external groups with all their sensors.
#pragma once

#include <string_view>

namespace tintbench::simulator {

// The whole file of slave 1, framed, with CR LF line ends and no empty parameter.
std::string_view SampleConfiguration();

}  // namespace tintbench::simulator
