// A serial port whose line spoils bytes at random, either way, and which keeps what really crossed
// it, so that a test can tell what nobody could have noticed from what the program had to notice.
#pragma once

#include <algorithm>
#include <cstdint>
#include <deque>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Clock.h"
#include "link/SerialPort.h"
#include "link/XmodemBench.h"

namespace tintbench::testing {

// What arrives of bytes that were sent: their values, and of each whether it is what was sent at
// its place, or was changed or put in by the line.
struct Arrived {
  std::string Bytes;
  std::string Genuine;  // '+' or '-'

  void Add(char byte, bool genuine) {
    Bytes += byte;
    Genuine += genuine ? '+' : '-';
  }
};

// Loses, flips a bit of, doubles, or puts a byte behind 5 of 10,000 bytes; equal seeds, equal
// faults.
class Spoiler {
 public:
  explicit Spoiler(std::uint32_t seed) : random_(seed), distance_(NextDistance()) {}

  void Pass(std::string_view bytes, Arrived& arrived) {
    for (const char byte : bytes) {
      if (distance_-- > 0) {
        arrived.Add(byte, true);
      } else {
        distance_ = NextDistance();
        Spoil(byte, arrived);
      }
    }
  }

 private:
  static constexpr double kRate = 5.0 / 10000;

  // How many bytes pass before the next fault: by the rate, each byte's chance is the same.
  std::uint32_t NextDistance() {
    std::geometric_distribution<std::uint32_t> distribution(kRate);
    return distribution(random_);
  }

  void Spoil(char byte, Arrived& arrived) {
    switch (random_() % 4) {
      case 0:
        return;
      case 1:
        return arrived.Add(static_cast<char>(byte ^ (1 << (random_() % 8))), false);
      case 2:
        arrived.Add(byte, true);
        return arrived.Add(byte, false);
      default:
        arrived.Add(byte, true);
        return arrived.Add(static_cast<char>(random_()), false);
    }
  }

  std::mt19937 random_;
  std::uint32_t distance_;
};

class SpoiltPort final : public link::SerialPort {
 public:
  SpoiltPort(link::SerialPort& port, base::Clock& clock, std::uint32_t seed)
      : port_(port), clock_(clock), toProgram_(2 * seed), toMachine_(2 * seed + 1) {}

  Arrived Read;         // what the program has taken
  Arrived Heard;        // what went on to the machine
  std::string Written;  // what the program sent
  // How much had been read when the program sent for the n-th time.
  std::vector<std::size_t> ReadAtOutput;

  int CommPort() const override { return port_.CommPort(); }
  void CommPort(int number) override { port_.CommPort(number); }
  std::string Settings() const override { return port_.Settings(); }
  void Settings(const std::string& settings) override { port_.Settings(settings); }
  bool PortOpen() const override { return port_.PortOpen(); }
  bool DevicePresent() const override { return port_.DevicePresent(); }
  bool PortOpen(bool open) override {
    waiting_ = {};
    taken_ = 0;
    return port_.PortOpen(open);
  }
  int InBufferSize() const override { return port_.InBufferSize(); }
  void InBufferSize(int bytes) override { port_.InBufferSize(bytes); }
  int OutBufferSize() const override { return port_.OutBufferSize(); }
  void OutBufferSize(int bytes) override { port_.OutBufferSize(bytes); }
  int InputLen() const override { return inputLen_; }
  void InputLen(int bytes) override { inputLen_ = bytes; }

  std::size_t InBufferCount() override {
    if (port_.InBufferCount() > 0) toProgram_.Pass(port_.Input(), waiting_);
    return waiting_.Bytes.size() - taken_;
  }

  std::string Input() override {
    std::size_t count = InBufferCount();
    if (inputLen_ > 0) count = std::min(count, static_cast<std::size_t>(inputLen_));
    const std::string bytes = waiting_.Bytes.substr(taken_, count);
    Read.Bytes += bytes;
    Read.Genuine.append(waiting_.Genuine, taken_, count);
    taken_ += count;
    if (taken_ == waiting_.Bytes.size()) {
      waiting_ = {};
      taken_ = 0;
    }
    return bytes;
  }

  void Output(std::string_view bytes) override {
    Written += bytes;
    ReadAtOutput.push_back(Read.Bytes.size());
    const std::size_t before = Heard.Bytes.size();
    toMachine_.Pass(bytes, Heard);
    port_.Output(std::string_view(Heard.Bytes).substr(before));
  }

  bool WaitForInput(double seconds) override {
    const double end = clock_.Now() + seconds;
    while (InBufferCount() == 0) {
      const double rest = end - clock_.Now();
      if (rest <= 0) return false;
      port_.WaitForInput(rest);
    }
    return true;
  }

 private:
  link::SerialPort& port_;
  base::Clock& clock_;
  Spoiler toProgram_;
  Spoiler toMachine_;
  int inputLen_ = 0;
  Arrived waiting_;
  std::size_t taken_ = 0;  // of what waits
};

// True if the line has made one of the words.
inline bool MadeByLine(const Arrived& arrived, std::string_view words) {
  for (std::size_t i = 0; i < arrived.Bytes.size(); ++i) {
    const bool isWord = words.find(arrived.Bytes[i]) != std::string_view::npos;
    if (isWord && arrived.Genuine[i] == '-') return true;
  }
  return false;
}

// A file on its way, with the padding of its last block.
struct SentFile {
  SentFile(std::string file, std::size_t blockSize, bool crc)
      : Padded(std::move(file)), BlockSize(blockSize), Crc(crc) {
    Padded.resize((Padded.size() + BlockSize - 1) / BlockSize * BlockSize, '\x1A');
  }

  std::string Padded;
  std::size_t BlockSize;
  bool Crc;
};

// What comes of a transfer, by the file that is there afterwards. The two excuses are the
// protocol's own.
enum class Outcome {
  Identical,
  Failed,
  EqualCheck,  // a spoilt block had the check of its bytes
  ForgedWord,  // the line has made an answer or an end of file, neither of which carries a check
  Wrong,       // what somebody had to notice
};

// True if each block of `file` crossed the line, in order, with its number and the right check.
inline bool Crossed(std::string_view line, std::string_view file, const SentFile& sent) {
  std::size_t from = 0;
  int number = 1;
  for (std::size_t at = 0; at < file.size(); at += sent.BlockSize, ++number) {
    const std::string data(file.substr(at, sent.BlockSize));
    const std::string block = Block(number, data, sent.BlockSize, sent.Crc);
    from = line.find(block, from);
    if (from == std::string_view::npos) return false;
    from += block.size();
  }
  return true;
}

// Why the program has `got` for `sent`, when it says that all is well. Only what crossed the line
// can excuse another file.
inline Outcome ExplainReceived(const SentFile& sent, const std::string& got,
                               const SpoiltPort& port) {
  if (got == sent.Padded) return Outcome::Identical;
  if (!Crossed(port.Read.Bytes, got, sent)) return Outcome::Wrong;
  if (!sent.Padded.starts_with(got)) return Outcome::EqualCheck;
  const bool forged = MadeByLine(port.Read, kEot) || MadeByLine(port.Heard, kAck);
  return forged ? Outcome::ForgedWord : Outcome::Wrong;
}

// Why the machine has `got` for `sent`, when the program says that all is well. `ended` says
// whether the machine has taken it for the whole file.
inline Outcome ExplainSent(const SentFile& sent, const std::string& got, bool ended,
                           const SpoiltPort& port) {
  if (got == sent.Padded && ended) return Outcome::Identical;
  if (!Crossed(port.Heard.Bytes, got, sent)) return Outcome::Wrong;
  if (!sent.Padded.starts_with(got)) return Outcome::EqualCheck;
  const bool forged = MadeByLine(port.Read, kAck + kNak) || MadeByLine(port.Heard, kEot);
  return forged ? Outcome::ForgedWord : Outcome::Wrong;
}

}  // namespace tintbench::testing
