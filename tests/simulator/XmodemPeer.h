// The other end of an Xmodem transfer, as plain as it can be, to test the machine's against.
#pragma once

#include <cstdint>
#include <string>

#include "simulator/Desk.h"

namespace tintbench::simulator {

inline std::uint16_t PeerCrc(const std::string& data) {
  std::uint16_t crc = 0;
  for (const char byte : data) {
    for (int bit = 7; bit >= 0; --bit) {
      const bool in = ((static_cast<unsigned char>(byte) >> bit) & 1) != 0;
      const bool out = (crc & 0x8000) != 0;
      crc = static_cast<std::uint16_t>(crc << 1);
      if (in != out) crc = static_cast<std::uint16_t>(crc ^ 0x1021);
    }
  }
  return crc;
}

inline std::string PeerBlock(unsigned number, const std::string& data, bool crc) {
  std::string block(1, data.size() == 128 ? '\x01' : '\x02');
  block += static_cast<char>(number & 255);
  block += static_cast<char>(255 - (number & 255));
  block += data;
  if (crc) {
    block += static_cast<char>(PeerCrc(data) >> 8);
    block += static_cast<char>(PeerCrc(data) & 255);
  } else {
    unsigned sum = 0;
    for (const char byte : data) sum += static_cast<unsigned char>(byte);
    block += static_cast<char>(sum & 255);
  }
  return block;
}

// Reads `count` bytes, fewer if they don't come.
inline std::string PeerRead(Desk& desk, std::size_t count) {
  std::string bytes;
  while (bytes.size() < count) {
    const std::string next = desk.Next(2.0);
    if (next.empty()) break;
    bytes += next;
  }
  return bytes;
}

// Receives a whole file after the request `ask`; gives what came in, or "failed: " and why.
inline std::string PeerReceive(Desk& desk, char ask, std::size_t& blocks) {
  const bool crc = ask == 'C';
  const std::string ack = "\x06", nak = "\x15", cancel = "\x18";
  std::string file, reply(1, ask);
  blocks = 0;
  for (int round = 0; round < 1000; ++round) {
    desk.Port.Output(reply);
    const std::string header = desk.Next(15.0);
    if (header.empty()) return "failed: silence";
    if (header == cancel) return "failed: cancelled";
    if (header == "\x04") {
      desk.Port.Output(ack);
      return file;
    }
    const std::size_t size = header == "\x02" ? 1024 : 128;
    const std::string block = header + PeerRead(desk, size + (crc ? 4 : 3));
    const std::string data = block.size() > size + 3 ? block.substr(3, size) : std::string();
    if (block == PeerBlock(static_cast<unsigned>(blocks + 1), data, crc)) {
      ++blocks;
      file += data;
      reply = ack;
    } else if (blocks > 0 && block == PeerBlock(static_cast<unsigned>(blocks), data, crc)) {
      reply = ack;
    } else {
      desk.Listen(0.5);
      reply = nak;
    }
  }
  return "failed: endless";
}

// Sends a file in blocks; gives the machine's first request, or "failed: " and why.
inline std::string PeerSend(Desk& desk, const std::string& file, std::size_t size) {
  std::string ask = desk.Next(10.0);
  if (ask != "C" && ask != "\x15") return "failed: no request";
  unsigned number = 1;
  for (std::size_t place = 0; place < file.size(); place += size, ++number) {
    std::string data = file.substr(place, size);
    data.resize(size, '\x1A');
    for (int tries = 0;; ++tries) {
      if (tries == 10) return "failed: tries";
      desk.Port.Output(PeerBlock(number, data, ask == "C"));
      const std::string reply = desk.Next(5.0);
      if (reply == "\x18") return "failed: cancelled";
      if (reply == "\x06") break;
    }
  }
  for (int tries = 0; tries < 10; ++tries) {
    desk.Port.Output("\x04");
    if (desk.Next(5.0) == "\x06") return ask;
  }
  return "failed: end";
}

}  // namespace tintbench::simulator
