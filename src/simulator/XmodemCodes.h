// Control characters and check fields of Xmodem as the machine uses them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tintbench::simulator {

inline constexpr char kSoh = 1;
inline constexpr char kStx = 2;
inline constexpr char kEot = 4;
inline constexpr char kAck = 6;
inline constexpr char kBel = 7;
inline constexpr char kNak = 21;
inline constexpr char kCan = 24;
inline constexpr char kPad = 26;
inline constexpr char kCrcRequest = 'C';

inline constexpr std::size_t kShortBlock = 128;
inline constexpr std::size_t kLongBlock = 1024;

// The check field behind a block's data: CRC, high byte first, or the sum modulo 256.
std::string CheckOf(std::string_view data, bool crc);

}  // namespace tintbench::simulator
