#include "simulator/Memory.h"

namespace tintbench::simulator {

std::uint8_t Memory::Byte(std::uint32_t address) const {
  const auto found = bytes_.find(address);
  return found == bytes_.end() ? std::uint8_t{0} : found->second;
}

std::uint16_t Memory::Word(std::uint32_t address) const {
  return static_cast<std::uint16_t>(Byte(address) << 8 | Byte(address + 1));
}

bool Memory::WriteByte(std::uint32_t address, std::uint8_t value) {
  if (bytes_.size() >= kMostBytes && !bytes_.contains(address)) return false;
  bytes_[address] = value;
  return true;
}

bool Memory::WriteWord(std::uint32_t address, std::uint16_t value) {
  return WriteByte(address, static_cast<std::uint8_t>(value >> 8)) &&
         WriteByte(address + 1, static_cast<std::uint8_t>(value & 0xFF));
}

std::optional<Pwm> PwmChannels::Read(int channel) const {
  if (channel < 1 || channel > kCount) return std::nullopt;
  const auto found = written_.find(channel);
  return found == written_.end() ? Pwm{} : found->second;
}

bool PwmChannels::Write(int channel, const Pwm& value) {
  if (channel < 1 || channel > kCount) return false;
  written_[channel] = value;
  return true;
}

}  // namespace tintbench::simulator
