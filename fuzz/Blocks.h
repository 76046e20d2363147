// The Xmodem protocol seen from outside: what blocks look like on the wire, and whether a file and
// the bytes of a line can belong together. Made by other means than the engine's.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tintbench::fuzz {

inline constexpr char kSoh = 1;
inline constexpr char kStx = 2;
inline constexpr char kEot = 4;
inline constexpr char kAck = 6;
inline constexpr char kBel = 7;
inline constexpr char kNak = 21;
inline constexpr char kCan = 24;
inline constexpr char kPad = 26;

// A block of 128 or 1024 bytes as it goes on the wire; `number` counts on beyond 255.
std::string Block(std::size_t number, std::string_view data, bool crc);

// True if `stream` brings `file` whole: all its blocks with a right checksum, in their order and
// whatever lies between them, and an end of file behind them.
bool Brings(std::string_view stream, std::string_view file);

// What a sender wrote, taken apart.
struct SentFile {
  std::string Data;    // of all blocks, each once
  bool Clean = false;  // there is nothing but whole blocks, each number in turn, then ends of file
                       // or a cancel
  bool Ended = false;  // the last byte is an end of file
};

// Takes apart what a sender wrote in blocks of `size` bytes.
SentFile TakeApart(std::string_view stream, std::size_t size, bool crc);

}  // namespace tintbench::fuzz
