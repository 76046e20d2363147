// One serial line: its format, and a wire that gives each byte no sooner than the speed allows.
#pragma once

#include <cstddef>
#include <deque>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

namespace tintbench::simulator {

// The time of something that isn't going to happen.
inline constexpr double kNever = std::numeric_limits<double>::infinity();

// The frame of one asynchronous character and its speed.
struct LineFormat {
  int Baud = 19200;
  char Parity = 'N';  // N, E, O, M or S; a blank stands for S
  int DataBits = 8;   // 4 to 8
  double StopBits = 1.0;

  // Seconds that one character takes on the line: start bit, data, parity, stop bits.
  double ByteSeconds() const;

  // True if a receiver of the other format reads what a sender of this one writes. The number
  // of stop bits changes the pace and nothing else.
  bool Matches(const LineFormat& other) const;

  // Reads "19200,N,8,1". Nothing if the text isn't of that form.
  static std::optional<LineFormat> Parse(std::string_view settings);
};

// One direction of the line. Bytes come out in the order in which they went in, each when its
// last bit has arrived.
class Wire {
 public:
  // The most bytes that can be under way; what is put in beyond them is lost.
  static constexpr std::size_t kCapacity = std::size_t{1} << 20;

  void ByteSeconds(double seconds) { byteSeconds_ = seconds; }

  // Starts to send the bytes at `now`, behind those that are still being sent.
  void Put(std::string_view bytes, double now);

  // When the last byte put in has arrived, or arrived.
  double Free() const { return free_; }

  // When the next byte arrives; kNever if none is under way.
  double NextArrival() const { return bytes_.empty() ? kNever : bytes_.front().Due; }

  // Takes the next byte. Only to be called when one is under way.
  unsigned char TakeNext();

  // Takes all bytes that have arrived by `now`.
  std::string TakeArrived(double now);

  void Clear() { bytes_.clear(); }

  // The sender stops at once: what hasn't arrived by `now` never will.
  void Cut(double now);

 private:
  struct Travelling {
    double Due;
    unsigned char Value;
  };

  double byteSeconds_ = LineFormat{}.ByteSeconds();
  double free_ = -kNever;
  std::deque<Travelling> bytes_;
};

}  // namespace tintbench::simulator
