#include "simulator/Xmodem.h"

#include <utility>

#include "simulator/XmodemCodes.h"

namespace tintbench::simulator {

std::uint16_t Crc16(std::string_view bytes) {
  unsigned crc = 0;
  for (const char byte : bytes) {
    crc ^= static_cast<unsigned>(static_cast<unsigned char>(byte)) << 8;
    for (int bit = 0; bit < 8; ++bit) {
      crc = (crc & 0x8000U) != 0 ? (crc << 1) ^ 0x1021U : crc << 1;
    }
    crc &= 0xFFFFU;
  }
  return static_cast<std::uint16_t>(crc);
}

std::string CheckOf(std::string_view data, bool crc) {
  if (crc) {
    const unsigned value = Crc16(data);
    return {static_cast<char>(value >> 8), static_cast<char>(value & 0xFFU)};
  }
  unsigned sum = 0;
  for (const char byte : data) sum += static_cast<unsigned char>(byte);
  return std::string(1, static_cast<char>(sum & 0xFFU));
}

bool Strikes(std::size_t& fault, std::size_t block) {
  if (fault == 0 || fault != block) return false;
  fault = 0;
  return true;
}

std::string Transfer::TakeOutput() { return std::exchange(output_, {}); }

void Transfer::Finish(TransferEnd end) {
  end_ = end;
  deadline_ = kNever;
}

void Transfer::CancelFromHere() {
  Emit(kCan);
  Emit(kCan);
  Finish(TransferEnd::Failed);
}

void Transfer::RefuseFromHere() {
  Emit(kBel);
  Finish(TransferEnd::Failed);
}

bool Transfer::IsSecondCancel(unsigned char byte) {
  const bool isCancel = static_cast<char>(byte) == kCan;
  const bool second = isCancel && cancelSeen_;
  cancelSeen_ = isCancel;
  return second;
}

}  // namespace tintbench::simulator
