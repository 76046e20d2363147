// The external dispensing groups: their digital and analogue inputs, how they answer, and the X
// functions that watch them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <utility>

#include "simulator/Configuration.h"
#include "simulator/Elements.h"
#include "simulator/ErrorList.h"
#include "simulator/Instruments.h"

namespace tintbench::simulator {

// One input of one group: kind 0 digital, 1 analogue; the sensor type of the configuration.
struct GroupInput {
  int Group;
  int Kind;
  int Type;

  bool operator<(const GroupInput& other) const {
    return std::tie(Group, Kind, Type) < std::tie(other.Group, other.Kind, other.Type);
  }
};

// What is wrong with the answers to a reading of a group's inputs.
struct AnswerForm {
  std::optional<char> Letter;         // in place of the return letter
  std::optional<char> State;          // in place of the state digit
  std::optional<std::size_t> Length;  // of the whole answer
};

class Groups {
 public:
  static constexpr std::size_t kLongestAnswer = 99;

  Groups(const Configuration& configuration, const Elements& elements)
      : configuration_(configuration), instruments_(configuration, elements) {}

  // What the group's instruments have gone through until `now`.
  void Settle(double now) { instruments_.Settle(now); }

  // The answer to a reading: return letter, state digit, eight hexadecimal digits, unless it was
  // told another form. The value of an analogue input is in tenths of its unit, signed.
  std::string Read(const GroupInput& input, double now, ErrorList& errors) const;

  // Switches an X function, from 1, on or off. False if the group doesn't have it.
  bool SetFunction(int group, int function, bool on);

  // True if an element of the machine lies at this address.
  bool Exists(int group) const;

  // A group that is off answers nothing but an error.
  void SwitchGroup(int group, bool on);
  bool IsOff(int group) const { return off_.contains(group); }

  void Fill(int group) { instruments_.Fill(group); }

  // How the group answers from now on.
  AnswerForm& Answers(int group) { return answers_[group]; }

  // Fixes an input at a value, cuts its wire, or lets it drift again. False if it isn't in the
  // configuration.
  bool Fix(const GroupInput& input, double value);
  bool Cut(const GroupInput& input);
  bool Free(const GroupInput& input);

 private:
  struct Override {
    std::optional<double> Value;  // nothing for a wire that is cut
  };

  bool Has(const GroupInput& input) const;
  std::string Functions(int group) const;
  std::string Answer(const GroupInput& input, double now, ErrorList& errors) const;
  Quantity QuantityOf(const GroupInput& input) const;
  std::pair<std::uint32_t, std::uint32_t> ErrorsOf(const GroupInput& input) const;
  double Measured(const GroupInput& input, double now) const;
  bool Watched(const GroupInput& input) const;
  bool InBand(const GroupInput& input, double value) const;

  const Configuration& configuration_;
  Instruments instruments_;
  std::set<int> off_;
  std::map<int, AnswerForm> answers_;
  std::map<std::pair<int, int>, bool> switched_;  // X functions that were switched
  std::map<GroupInput, Override> fixed_;
};

}  // namespace tintbench::simulator
