// A serial line between two file descriptors, for measuring: bytes go both ways at the speed of the
// line and no faster, at once or as an adapter hands them over, whole or with faults.
#pragma once

#include <poll.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <deque>
#include <limits>
#include <random>
#include <string>

#include "base/Clock.h"

namespace tintbench::bench {

struct LineRules {
  double ByteSeconds = 10.0 / 19200.0;  // start bit, eight data bits, stop bit
  double HandOver = 0;     // an adapter hands over what has come this often; 0: at once
  double FaultRate = 0;    // faults of a byte
  std::uint32_t Seed = 1;  // of the faults
  double Patience = 60;    // seconds after which the line is taken off
};

// What was seen on the line, in seconds of the clock.
struct LineTimes {
  double FirstByte = 0;         // the sender gave its first byte
  double LastToReceiver = 0;    // the last byte was handed to the receiver
  double LastFromReceiver = 0;  // the receiver gave its last byte
  double LastToSender = 0;      // which was handed to the sender

  double Whole() const { return LastToSender - FirstByte; }
  // Without what the receiver waits before it confirms the end.
  double WithoutEndWait() const {
    return Whole() - std::max(0.0, LastFromReceiver - LastToReceiver);
  }
};

// One direction of the line.
class PacedWire {
 public:
  PacedWire(const LineRules& rules, std::uint32_t seed, int to)
      : rules_(rules), random_(seed), to_(to) {}

  double FirstArrival = 0;
  double LastArrival = 0;
  double LastDelivery = 0;

  void Accept(std::string_view bytes, double now) {
    if (FirstArrival == 0) FirstArrival = now;
    LastArrival = now;
    for (const char byte : bytes) Spoil(byte, now);
  }

  // When the next byte is to be handed over.
  double Due() const {
    return line_.empty() ? std::numeric_limits<double>::infinity() : line_.front().Due;
  }

  // What an end that has hung up doesn't take is lost.
  void Deliver(double now) {
    std::string bytes;
    for (; Due() <= now; line_.pop_front()) bytes += line_.front().Byte;
    if (!bytes.empty() && ::write(to_, bytes.data(), bytes.size()) > 0) LastDelivery = now;
  }

 private:
  struct Passing {
    char Byte;
    double Due;
  };

  // The faults depend on the place of the byte alone: they are the same for whoever sends it.
  void Spoil(char byte, double now) {
    const auto draw = static_cast<std::uint32_t>(random_());
    const bool whole = draw >= rules_.FaultRate * std::pow(2.0, 32);
    const std::uint32_t kind = whole ? kKinds : draw % kKinds;
    if (kind == kDropped) return;
    const auto bit = static_cast<char>(1U << (draw / kKinds % 8U));
    Put(kind == kFlipped ? static_cast<char>(byte ^ bit) : byte, now);
    if (kind == kDoubled) Put(byte, now);
    if (kind == kInserted) Put(bit, now);
  }

  void Put(char byte, double now) {
    free_ = std::max(free_, now) + rules_.ByteSeconds;
    const double tick = rules_.HandOver;
    line_.push_back({byte, tick > 0 ? std::ceil(free_ / tick) * tick : free_});
  }

  enum Fault : std::uint32_t { kDropped, kFlipped, kDoubled, kInserted, kKinds };

  const LineRules& rules_;
  std::mt19937 random_;
  int to_;
  double free_ = 0;  // when the wire has carried all that it was given
  std::deque<Passing> line_;
};

class PacedRelay {
 public:
  // Takes over both descriptors.
  PacedRelay(const base::Clock& clock, const LineRules& rules, int sender, int receiver)
      : clock_(clock),
        rules_(rules),
        ends_{sender, receiver},
        watched_{sender, receiver},
        wires_{PacedWire(rules_, 2 * rules.Seed, receiver),
               PacedWire(rules_, 2 * rules.Seed + 1, sender)} {}

  // Carries bytes until both ends have hung up. One that doesn't follow the other is left soon: it
  // has had the time to take what was under way.
  void Run() {
    prctl(PR_SET_TIMERSLACK, 1UL);
    end_ = clock_.Now() + rules_.Patience;
    while (clock_.Now() < end_ && (watched_[0] >= 0 || watched_[1] >= 0)) {
      Await(std::min({end_, wires_[0].Due(), wires_[1].Due()}));
      const double now = clock_.Now();
      for (PacedWire& wire : wires_) wire.Deliver(now);
    }
    for (const int descriptor : ends_) ::close(descriptor);
  }

  LineTimes Times() const {
    return {wires_[0].FirstArrival, wires_[0].LastDelivery, wires_[1].LastArrival,
            wires_[1].LastDelivery};
  }

 private:
  static constexpr double kFarewell = 2.0;

  // Waits until `when`, or until bytes come, and takes them.
  void Await(double when) {
    const double rest = std::max(0.0, when - clock_.Now());
    const timespec wait{static_cast<time_t>(rest), static_cast<long>(std::fmod(rest, 1.0) * 1e9)};
    std::array<pollfd, 2> ends{{{watched_[0], POLLIN, 0}, {watched_[1], POLLIN, 0}}};
    if (::ppoll(ends.data(), ends.size(), &wait, nullptr) <= 0) return;
    for (std::size_t i = 0; i < ends.size(); ++i) {
      if (ends[i].revents != 0) Take(i);
    }
  }

  void Take(std::size_t end) {
    std::array<char, 4096> buffer;
    const ssize_t count = ::read(ends_[end], buffer.data(), buffer.size());
    const double now = clock_.Now();
    if (count > 0) {
      wires_[end].Accept({buffer.data(), static_cast<std::size_t>(count)}, now);
    } else {
      watched_[end] = -1;
      end_ = std::min(end_, now + kFarewell);
    }
  }

  const base::Clock& clock_;
  LineRules rules_;
  std::array<int, 2> ends_;
  std::array<int, 2> watched_;  // -1 once it has hung up
  std::array<PacedWire, 2> wires_;
  double end_ = 0;
};

}  // namespace tintbench::bench
