// The faults that can be switched on in the machine and on its line, by name.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::simulator {

enum class Fault {
  // of an answer
  Silent,
  Late,
  Short,
  Long,
  Pause,
  Refuse,
  Fail,
  Echo,
  Twice,
  Foreign,
  // of a transfer
  Cancel,
  OneCancel,
  Bel,
  Stall,
  BadBlock,
  BadComplement,
  SkipBlock,
  RepeatBlock,
  Nak,
  LoseAck,
  DoubleAck,
  LoseEot,
  NakEot,
  NoStart,
  NoEnd,
  CorruptConfig,
  // of the line
  Drop,
  Garble,
  Flip,
  Insert,
  Double,
  Babble,
  Reset,
  Unplug,
  Replug,
};

// What the value behind a fault's name means. In place of a rate or of the seconds until a moment
// there may be a place on the line: "@N" is the N-th byte from when the fault is set, whichever way
// it goes.
enum class FaultValue { None, Times, Seconds, Characters, Block, Rate, Moment };

// Random numbers that are the same in every run with the same seed.
class Dice {
 public:
  // Begins anew; equal seeds give equal throws.
  void Seed(std::uint32_t seed);
  // True in `rate` of all throws.
  bool Throw(double rate);
  // A byte from 1 to 255.
  unsigned char Byte();
  // A byte of one bit.
  unsigned char Bit() { return static_cast<unsigned char>(1U << (Next() >> 29)); }

 private:
  static constexpr std::uint32_t kState = 2463534242U;

  std::uint32_t Next();

  std::uint32_t state_ = kState;
};

struct FaultKind {
  Fault Id;
  std::string_view Name;
  FaultValue Value;
  double Default;   // the value if none is given; for Times, 0 stands for always
  bool PerCommand;  // can be restricted to one command
  std::string_view Help;
};

// All faults, in the order of the enumeration.
std::span<const FaultKind> FaultKinds();

class FaultSet {
 public:
  // Takes the words behind "fault": "none", or a name with its value or place and, in any order, a
  // command such as "#jf*" or a part of a program such as "part=2" to which it is restricted, or
  // "off". A fault has one value for each command and part, and any number of places. Gives an
  // error in plain words, empty if all went well.
  std::string Set(const std::vector<std::string>& words);

  void Clear() { active_.clear(); }

  // The value of a fault that is on for every command and everywhere, or in this part of a program
  // (from 1); nothing if it isn't on.
  std::optional<double> Value(Fault fault, std::size_t part = 0) const;

  // True if any fault is on; without one no byte needs to be looked at.
  bool Any() const { return !active_.empty(); }

  // Bytes that go over the line: places are counted by them.
  void CountBytes(std::size_t count) { bytes_ += count; }

  // True if the byte that was counted last is the fault's place, or if the dice say so. A fault at
  // a place is over then.
  bool Hits(Fault fault, Dice& dice);

  // The value of a fault that is on for one answer to a command whose frame text is `text` and
  // whose name is `mnemonic`; a fault that is on for a number of times is counted down.
  std::optional<double> Strike(Fault fault, std::string_view mnemonic, std::string_view text);

  // Switches a fault off wherever it is on.
  void Clear(Fault fault);

 private:
  struct Active {
    Fault Id;
    std::string Command;  // folded, without its marks; empty for all
    double Value;
    std::size_t Place = 0;  // the count of bytes at which it strikes; 0 if it has no place
    std::size_t Part = 0;   // of a program, from 1; 0 for every transfer
  };

  bool TakeWord(const FaultKind& kind, const std::string& word, Active& active) const;

  std::vector<Active> active_;
  std::size_t bytes_ = 0;
};

}  // namespace tintbench::simulator
