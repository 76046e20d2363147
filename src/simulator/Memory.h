// The memory that service commands read and write, and the PWM channels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>

namespace tintbench::simulator {

class Memory {
 public:
  // The most bytes that can be written; what was never written reads as 0.
  static constexpr std::size_t kMostBytes = 65536;

  std::uint8_t Byte(std::uint32_t address) const;
  // Two bytes, the high one first; addresses go round at the end.
  std::uint16_t Word(std::uint32_t address) const;

  // False if no more can be kept.
  bool WriteByte(std::uint32_t address, std::uint8_t value);
  bool WriteWord(std::uint32_t address, std::uint16_t value);

 private:
  std::map<std::uint32_t, std::uint8_t> bytes_;
};

struct Pwm {
  int Frequency = 200;  // Hertz, 0 to 9999
  int DutyCycle = 0;    // 0 to 9999
};

class PwmChannels {
 public:
  static constexpr int kCount = 16;  // channels 1 to 16

  std::optional<Pwm> Read(int channel) const;
  bool Write(int channel, const Pwm& value);

 private:
  std::map<int, Pwm> written_;
};

}  // namespace tintbench::simulator
