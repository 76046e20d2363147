// The external dispensing groups: their digital and analogue inputs, which drift, and the X
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

class Groups {
 public:
  Groups(const Configuration& configuration, const Elements& elements)
      : configuration_(configuration), elements_(elements) {}

  // The answer to a reading: return letter, state digit, eight hexadecimal digits. The value of an
  // analogue input is in tenths of its unit, signed.
  std::string Read(const GroupInput& input, double now, ErrorList& errors) const;

  // Switches an X function, from 1, on or off. False if the group doesn't have it.
  bool SetFunction(int group, int function, bool on);

  // True if an element of the machine lies at this address.
  bool Exists(int group) const;

  // A group that is off answers nothing but an error.
  void SwitchGroup(int group, bool on);

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
  int Motor(int group) const;
  std::string Functions(int group) const;
  double Drifting(const GroupInput& input, double now) const;
  bool Watched(const GroupInput& input) const;
  bool InBand(const GroupInput& input, double value) const;

  const Configuration& configuration_;
  const Elements& elements_;
  std::set<int> off_;
  std::map<std::pair<int, int>, bool> switched_;  // X functions that were switched
  std::map<GroupInput, Override> fixed_;
};

}  // namespace tintbench::simulator
