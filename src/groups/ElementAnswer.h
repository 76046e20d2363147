// What a machine's answer to a command of the group monitor says.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "link/CommandId.h"

namespace tintbench::groups {

// The faults, in words, of an answer in upper case to the command of a row; empty if it is good.
// A whole answer has `length` characters and repeats `echo` behind its first.
std::string ElementFaults(link::CommandId row, std::string_view echo, std::string_view answer,
                          std::size_t length);

}  // namespace tintbench::groups
