// What both directions of an Xmodem transfer share: control characters, status words, the
// descriptions of the receiver's retries, and the CRC. The protocol is XMODEM, XMODEM-CRC and
// XMODEM-1K as Chuck Forsberg's "XMODEM/YMODEM Protocol Reference" tells them.
#pragma once

#include <array>
#include <cstdint>

namespace tintbench::link {

enum XmodemCharacter : int {
  kXmodemSilence = -1,  // no character came in time
  kXmodemStopped = -2,  // the operator wants the transfer to end
  kXmodemSoh = 1,
  kXmodemStx = 2,
  kXmodemEot = 4,
  kXmodemAck = 6,
  kXmodemBel = 7,
  kXmodemBs = 8,
  kXmodemNak = 21,
  kXmodemCan = 24,
  kXmodemSub = 26,  // pads the last block
  kXmodemCrcStart = 'C',
};

enum XmodemStatus : int {
  kXmodemProgress = -101,  // progress only
  kXmodemStarted = -100,
  kXmodemCleared = -99,
  kXmodemNoPort = -1,
  kXmodemSuccessful = 0,
  kXmodemReceiverCancelled = 3,  // sending
  kXmodemSenderCancelled = 4,    // receiving
  kXmodemAborted = 5,            // by the operator
  kXmodemUnreadable = 6,         // sending: the file can't be opened or gave fewer bytes
  kXmodemUnwritable = 7,         // receiving: a block or the whole file can't be kept
  kXmodemNotAcknowledged = 8,    // sending
  kXmodemNoStart = 9,            // sending
  kXmodemRetriesUsedUp = 10,     // receiving
  kXmodemBlockTimeout = 11,      // receiving
  kXmodemNoEndReply = 12,        // sending
  kXmodemWrongHeader = 13,       // receiving
  kXmodemWrongComplement = 14,   // receiving
  kXmodemWrongCrc = 15,          // receiving
  kXmodemWrongChecksum = 16,     // receiving
  kXmodemOutOfSequence = 17,     // receiving
  kXmodemRefusedBlock = 20,      // sending: shown while the block is sent again
  kXmodemMachineRefuses = 255,
};

enum XmodemDirection : int { kXmodemSend = 0, kXmodemReceive = 1 };

inline constexpr int kXmodemSmallBlock = 128;
inline constexpr int kXmodemLargeBlock = 1024;

// How the receiver asks: what it sends, how often, how long it waits each time, and the answers
// that it can use. -1 is a free place.
struct XmodemRetry {
  int Send;
  int Retries;
  int TimeoutMs;
  std::array<int, 4> Expected;
};

// The table of these descriptions. No reception begins with `StartCrc`: the machine's senders are
// asked for checksums.
struct XmodemRetries {
  XmodemRetry StartCrc{kXmodemCrcStart, 4, 3000, {kXmodemSoh, kXmodemStx, kXmodemCan, -1}};
  XmodemRetry StartChecksum{kXmodemNak, 10, 10000, {kXmodemSoh, kXmodemStx, kXmodemCan, -1}};
  XmodemRetry RepeatBlock{kXmodemNak, 10, 10000, {kXmodemSoh, kXmodemStx, kXmodemCan, kXmodemEot}};
  XmodemRetry NextBlock{kXmodemAck, 10, 10000, {kXmodemSoh, kXmodemStx, kXmodemCan, kXmodemEot}};
};

// The CRC-16/XMODEM of each single byte: polynomial 0x1021, start 0, highest bit first.
inline constexpr std::array<std::uint16_t, 256> kCrc16OfByte = [] {
  std::array<std::uint16_t, 256> table{};
  for (std::uint32_t byte = 0; byte < table.size(); ++byte) {
    std::uint32_t crc = byte << 8U;
    for (int bit = 0; bit < 8; ++bit) crc = (crc << 1U) ^ ((crc & 0x8000U) != 0 ? 0x1021U : 0U);
    table[byte] = static_cast<std::uint16_t>(crc);
  }
  return table;
}();

// One byte more in such a CRC.
constexpr std::uint32_t Crc16Update(std::uint32_t crc, unsigned char byte) {
  return ((crc << 8U) & 0xFF00U) ^ kCrc16OfByte[((crc >> 8U) ^ byte) & 0xFFU];
}

}  // namespace tintbench::link
