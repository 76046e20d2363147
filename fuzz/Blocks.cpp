#include "Blocks.h"

#include <array>

namespace tintbench::fuzz {

namespace {

constexpr std::array<std::size_t, 2> kSizes{128, 1024};
constexpr std::size_t kHeadSize = 3;

char ByteOf(std::size_t value) { return static_cast<char>(value & 0xFFU); }

// The remainder of the bytes and two zeros, divided by x^16 + x^12 + x^5 + 1.
unsigned CrcOf(std::string_view data) {
  unsigned remainder = 0;
  for (std::size_t i = 0; i < data.size() + 2; ++i) {
    const unsigned byte = i < data.size() ? static_cast<unsigned char>(data[i]) : 0U;
    for (int bit = 7; bit >= 0; --bit) {
      remainder = remainder << 1U | (byte >> bit & 1U);
      if (remainder > 0xFFFFU) remainder ^= 0x11021U;
    }
  }
  return remainder;
}

bool BringsFrom(std::string_view stream, std::string_view file, std::size_t number) {
  if (file.empty()) return stream.find(kEot) != std::string_view::npos;
  for (const std::size_t size : kSizes) {
    if (size > file.size()) continue;
    const std::string block = Block(number, file.substr(0, size), false);
    const std::size_t at = stream.find(block);
    if (at == std::string_view::npos) continue;
    if (BringsFrom(stream.substr(at + block.size()), file.substr(size), number + 1)) return true;
  }
  return false;
}

// What the sender may write behind its blocks.
bool IsEnding(std::string_view rest) {
  const std::string cancel = std::string(8, kCan) + std::string(8, '\x08');
  if (rest.ends_with(cancel)) rest.remove_suffix(cancel.size());
  return rest.find_first_not_of(kEot) == std::string_view::npos;
}

}  // namespace

std::string Block(std::size_t number, std::string_view data, bool crc) {
  std::string block{data.size() == kSizes[0] ? kSoh : kStx, ByteOf(number), ByteOf(~number)};
  block += data;
  if (crc) {
    const unsigned remainder = CrcOf(data);
    return block + ByteOf(remainder >> 8U) + ByteOf(remainder);
  }
  std::size_t sum = 0;
  for (const char byte : data) sum += static_cast<unsigned char>(byte);
  return block + ByteOf(sum);
}

bool Brings(std::string_view stream, std::string_view file) { return BringsFrom(stream, file, 1); }

SentFile TakeApart(std::string_view stream, std::size_t size, bool crc) {
  SentFile sent;
  const std::size_t blockSize = kHeadSize + size + (crc ? 2 : 1);
  std::size_t number = 0;
  std::string last;
  while (stream.size() >= blockSize && (stream[0] == kSoh || stream[0] == kStx)) {
    const std::string_view data = stream.substr(kHeadSize, size);
    const std::string_view block = stream.substr(0, blockSize);
    if (block != last) {
      last = Block(++number, data, crc);
      if (block != last) return sent;
      sent.Data += data;
    }
    stream.remove_prefix(blockSize);
  }
  sent.Clean = IsEnding(stream);
  sent.Ended = stream.ends_with(kEot);
  return sent;
}

}  // namespace tintbench::fuzz
