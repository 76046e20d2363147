// A sender of Xmodem blocks with CRC, as plain as it can be: what the machine does with what it was
// sent is seen with it. How the machine keeps the protocol is seen with the tool's own engine.
#pragma once

#include <cstdint>
#include <string>

#include "simulator/Desk.h"

namespace tintbench::simulator {

inline std::string PeerBlock(unsigned number, const std::string& data) {
  std::uint16_t crc = 0;
  for (const char byte : data) {
    for (int bit = 7; bit >= 0; --bit) {
      const bool in = ((static_cast<unsigned char>(byte) >> bit) & 1) != 0;
      const bool out = (crc & 0x8000) != 0;
      crc = static_cast<std::uint16_t>(crc << 1);
      if (in != out) crc = static_cast<std::uint16_t>(crc ^ 0x1021);
    }
  }
  std::string block(1, data.size() == 128 ? '\x01' : '\x02');
  block += static_cast<char>(number & 255);
  block += static_cast<char>(255 - (number & 255));
  return block + data + static_cast<char>(crc >> 8) + static_cast<char>(crc & 255);
}

// Sends a file in blocks of `size` bytes; false if the machine doesn't take it.
inline bool PeerSend(Desk& desk, const std::string& file, std::size_t size = 128) {
  if (desk.Next(10.0) != "C") return false;
  unsigned number = 1;
  for (std::size_t place = 0; place < file.size(); place += size, ++number) {
    std::string data = file.substr(place, size);
    data.resize(size, '\x1A');
    desk.Port.Output(PeerBlock(number, data));
    if (desk.Next(5.0) != "\x06") return false;
  }
  desk.Port.Output("\x04");
  return desk.Next(5.0) == "\x06";
}

}  // namespace tintbench::simulator
