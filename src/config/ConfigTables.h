// The tables that a configuration file may hold, one tag each, in the order in which they are
// shown and written.
#pragma once

#include <array>
#include <span>
#include <string_view>

namespace tintbench::config {

// Sorts the tables by feature. A file may hold tables of all groups.
enum class ConfigGroup { kStandard = 0, kAdvanced = 1, kIndustrial = 2 };

inline constexpr int kConfigGroupCount = 3;

enum class Elements { kOne, kSeveral };

struct ConfigTable {
  std::string_view Tag;  // four characters, upper case
  ConfigGroup Group;
  std::string_view Caption;
  Elements Count;              // whether the table has several lines, told apart by parameter 1
  int Parameters;              // fields of a line
  std::string_view ErrorCode;  // the machine's code for a fault in this table; empty if none
};

// clang-format off
inline constexpr std::array<ConfigTable, 22> kConfigTables{{
    {"@GEN", ConfigGroup::kStandard,   "General Parameters",             Elements::kOne,      11, "9100"},
    {"@TEM", ConfigGroup::kStandard,   "Timings",                        Elements::kOne,       9, "9120"},
    {"@SGA", ConfigGroup::kStandard,   "Shelf",                          Elements::kOne,      20, "9130"},
    {"@TAP", ConfigGroup::kStandard,   "Caps",                           Elements::kSeveral,   6, "9150"},
    {"@CIR", ConfigGroup::kStandard,   "Circuits",                       Elements::kSeveral,  10, "9170"},
    {"@MOT", ConfigGroup::kStandard,   "Motors",                         Elements::kSeveral,  24, "9180"},
    {"@AGI", ConfigGroup::kStandard,   "Stirrings",                      Elements::kSeveral,   9, "91A0"},
    {"@ILE", ConfigGroup::kStandard,   "Sensors",                        Elements::kSeveral,   5, "91C0"},
    {"@IVE", ConfigGroup::kStandard,   "Encoders",                       Elements::kSeveral,   3, "91D0"},
    {"@VEL", ConfigGroup::kStandard,   "Serial port speed",              Elements::kOne,       2, "91E0"},
    {"@TA3", ConfigGroup::kAdvanced,   "Electric cap( 3 positions )",    Elements::kSeveral,   2, "9160"},
    {"@MEX", ConfigGroup::kAdvanced,   "Motor EX",                       Elements::kSeveral,   3, "91F0"},
    {"@TDA", ConfigGroup::kAdvanced,   "Single stirring timings",        Elements::kOne,       1, ""},
    {"@TDR", ConfigGroup::kAdvanced,   "Single recirculation timings",   Elements::kOne,       1, ""},
    {"@TEL", ConfigGroup::kAdvanced,   "Washing cap timings",            Elements::kOne,       3, ""},
    {"@BX2", ConfigGroup::kAdvanced,   "On Brixel2 output",              Elements::kSeveral,   4, ""},
    {"@IND", ConfigGroup::kIndustrial, "External Group",                 Elements::kOne,       3, "9200"},
    {"@LIN", ConfigGroup::kIndustrial, "PLC Line",                       Elements::kSeveral,   4, "9210"},
    {"@MIN", ConfigGroup::kIndustrial, "Motor Informations",             Elements::kSeveral,   4, ""},
    {"@IDI", ConfigGroup::kIndustrial, "Digital Input",                  Elements::kSeveral,   5, "9220"},
    {"@IAN", ConfigGroup::kIndustrial, "Analogical Input",               Elements::kSeveral,  12, "9230"},
    {"@FUN", ConfigGroup::kIndustrial, "Group Functionalities",          Elements::kSeveral,   2, ""},
}};
// clang-format on

// The tables of one group, in order.
std::span<const ConfigTable> TablesOf(ConfigGroup group);

// The table of a tag in upper case; null if no table has it.
const ConfigTable* FindConfigTable(std::string_view tag);

}  // namespace tintbench::config
