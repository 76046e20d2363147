// What the machine counts: ten types of parts, with the words that the operator reads, the keys
// that files use and the letters that go over the line. Built once and never changed.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "config/MachineFacts.h"

namespace tintbench::stats {

inline constexpr int kStatTypes = 10;
inline constexpr int kNoElements = -1;  // a type that counts for the whole machine

struct StatType {
  std::string_view Caption;
  std::string_view Key;     // in files
  std::string_view Tag;     // on the line, and in the catalogue
  std::string_view Data;    // the data that it has: 1 a time in seconds, 2 a number of events
  int Elements;             // a config::ElementKind, or kNoElements
  std::string_view Time;    // the label of datum 1, empty without one
  std::string_view Events;  // the label of datum 2
};

// In the order of their tabs.
inline constexpr std::array<StatType, kStatTypes> kTypes{{
    {"Motors", "MOTOR", "M", "1,2", config::kMotors, "motor working time( seconds )",
     "zero-pump events"},
    {"Circuits", "CIRCUIT", "C", "1,2", config::kCircuits, "open-valve time( seconds )",
     "open-valve events"},
    {"Pumps", "PUMP", "B", "1,2", config::kCircuits, "pump working time( seconds )",
     "zero-pump events"},
    {"Stirrings", "STIRRING", "A", "1,2", config::kStirrings, "stirring working time( seconds )",
     "stirring events"},
    {"Caps", "CAP", "P", "1,2", config::kCaps, "cap working time( seconds )", "open-cap events"},
    {"Machine", "TMACHINE", "T", "1", kNoElements, "machine working time( seconds )", ""},
    {"Shelf", "CSHELF", "S", "2", kNoElements, "", "shelf-movement events"},
    {"Puncher", "CPUNCHER", "F", "2", kNoElements, "", "punching events"},
    {"Plugger", "CPLUGGER", "E", "2", kNoElements, "", "plugging-cap events"},
    {"Dispensation", "CDISP", "D", "2", kNoElements, "", "dispensing events"},
}};

// The type of a tab, 0 to 9.
const StatType& TypeOf(int tab);

// The tab of the type with this key; nothing if there is none.
std::optional<int> TabOfKey(std::string_view key);

// A table of texts under keys that begin with a type's letter: "M" gives the data that motors have,
// "M,K" the list that their elements stand in, "M,1" and "M,2" the labels of the data.
class StatCatalogue {
 public:
  using Rows = std::map<std::string, std::string, std::less<>>;

  // The rows of all types.
  static Rows AllRows();

  explicit StatCatalogue(Rows rows = AllRows()) : rows_(std::move(rows)) {}

  // Nothing if there is no such key.
  std::optional<std::string> Find(std::string_view key) const;
  // The label of a datum, empty if the type has no such datum.
  std::string Label(int tab, int datum) const;
  // True if the type of this tab has the datum 1 or 2.
  bool HasDatum(int tab, int datum) const;

  // The list of the tab's elements, a config::ElementKind or kNoElements; kNoList if the catalogue
  // can't tell.
  static constexpr int kNoList = -1000;
  int ListIndexOfTab(int tab) const;

 private:
  Rows rows_;
};

// The elements of each type that a machine has.
struct StatElements {
  explicit StatElements(const config::MachineFacts& facts);

  // The element numbers without leading zeros, each with "," behind. A type without elements has
  // one with an empty name.
  std::array<std::string, kStatTypes> List;
  std::array<int, kStatTypes> Count{};

  // Over all types.
  int Total() const;
};

}  // namespace tintbench::stats
