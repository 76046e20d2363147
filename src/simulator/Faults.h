// The faults that can be switched on in the machine and on its line, by name.
#pragma once

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
  // of a transfer
  Cancel,
  Stall,
  BadBlock,
  LoseAck,
  NoEnd,
  CorruptConfig,
  // of the line
  Drop,
  Garble,
  Double,
  Unplug,
};

// What the value behind a fault's name means.
enum class FaultValue { None, Times, Seconds, Characters, Block, Rate };

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
  // Takes the words behind "fault": "none", or a name with its value and, in any order, a command
  // such as "#jf*" to which it is restricted, or "off". Gives an error in plain words, empty if
  // all went well.
  std::string Set(const std::vector<std::string>& words);

  void Clear() { active_.clear(); }

  // The value of a fault that is on for every command, nothing if it isn't on.
  std::optional<double> Value(Fault fault) const;

  // The same for one answer to a command whose frame text is `text` and whose name is `mnemonic`;
  // a fault that is on for a number of times is counted down.
  std::optional<double> Strike(Fault fault, std::string_view mnemonic, std::string_view text);

  // Switches a fault off wherever it is on.
  void Clear(Fault fault);

 private:
  struct Active {
    Fault Id;
    std::string Command;  // folded, without its marks; empty for all
    double Value;
  };

  std::vector<Active> active_;
};

// Random numbers that are the same in every run.
class Dice {
 public:
  // True in `rate` of all throws.
  bool Throw(double rate);
  // A byte from 1 to 255.
  unsigned char Byte();

 private:
  std::uint32_t Next();

  std::uint32_t state_ = 2463534242U;
};

}  // namespace tintbench::simulator
