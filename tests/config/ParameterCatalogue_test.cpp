#include "config/ParameterCatalogue.h"

#include <gtest/gtest.h>

#include <set>

#include "config/LimitsString.h"

namespace tintbench::config {
namespace {

constexpr ConfigGroup kStandard = ConfigGroup::kStandard;
constexpr ConfigGroup kAdvanced = ConfigGroup::kAdvanced;
constexpr ConfigGroup kIndustrial = ConfigGroup::kIndustrial;

struct Place {
  ConfigGroup Group;
  int Table;
  int Parameter;
};

class Parameters : public testing::Test {
 protected:
  const SelectorCatalogue selectors_;
  const ParameterCatalogue catalogue_{selectors_};
};

TEST_F(Parameters, PlacesOutsideTheTablesHaveNoTexts) {
  const Place places[] = {
      {kStandard, 0, 1},
      {kStandard, 1, 0},
      {kStandard, 1, 12},
      {kIndustrial, 6, 3},
      {static_cast<ConfigGroup>(3), 1, 1},
      {static_cast<ConfigGroup>(-1), 1, 1},
  };
  for (const auto& [group, table, parameter] : places) {
    EXPECT_EQ(catalogue_.Description(group, table, parameter), "");
    EXPECT_EQ(catalogue_.Limits(group, table, parameter), "");
    EXPECT_EQ(catalogue_.ParameterTitle(group, table, parameter, "1"), "");
    EXPECT_EQ(catalogue_.ParameterRangeText(group, table, parameter), "");
    EXPECT_EQ(catalogue_.ParameterDefault(group, table, parameter), "");
  }
}

TEST_F(Parameters, TitlesTellTheMeaningOfASelectorsValue) {
  struct Case {
    Place At;
    const char* Value;
    const char* Title;
  };
  const Case cases[] = {
      {{kStandard, 1, 1}, "16", "Circuits"},
      {{kStandard, 6, 2},
       "3",
       "Motor type = electric motor with inverter( EX stirrings )  [see table]"},
      {{kStandard, 6, 2}, "7", "Motor type = UNKNOWN  [see table]"},
      {{kStandard, 6, 2}, "", "Motor type = UNKNOWN  [see table]"},
      {{kStandard, 6, 2}, "03", "Motor type = UNKNOWN  [see table]"},
      {{kStandard, 5, 3}, "8000", "Physical -> Logical connection of valve"},
      {{kStandard, 4, 2}, "0", "Cap type = manual cap  [see table]"},
      {{kIndustrial, 2, 1}, "2", "PLC-line type = END_FORMULA  [see table]"},
      {{kIndustrial, 6, 2}, "1", "List of enabled functionalities ( 0=disabled, 1=disabled )"},
      {{kAdvanced, 6, 1},
       "1",
       "Output number = output water (only machine with wash cap)  [see table]"},
  };
  for (const auto& [at, value, title] : cases) {
    EXPECT_EQ(catalogue_.ParameterTitle(at.Group, at.Table, at.Parameter, value), title) << value;
  }
}

TEST_F(Parameters, RangesAndDefaultsComeFromTheLimits) {
  struct Case {
    Place At;
    const char* Range;
    const char* Default;
  };
  const Case cases[] = {
      {{kStandard, 1, 9}, "[ min. = 1, max. = 64, default = 16 ]", "16"},
      {{kStandard, 3, 2}, "[ min. = free, max. = free, default = 3 ]", "3"},
      {{kStandard, 10, 2}, "[ min. = 2400, max. = 38400, default = 9600 ]", "9600"},
      {{kIndustrial, 1, 3}, "[ min. = 5, max. = 160, default = ? ]", ""},
      {{kIndustrial, 5, 12},
       "[ min. = 0_characters, max. = 64_characters, default = \"\" ]",
       "\"\""},
  };
  for (const auto& [at, range, value] : cases) {
    EXPECT_EQ(catalogue_.ParameterRangeText(at.Group, at.Table, at.Parameter), range);
    EXPECT_EQ(catalogue_.ParameterDefault(at.Group, at.Table, at.Parameter), value);
  }
}

// Every row is of a kind that an editor exists for, and what it chooses from is there.
TEST_F(Parameters, EveryRowIsWellFormed) {
  const std::set<std::string> editors{".",    "0_1",  "0_2",  "0_3",  "0_4",    "HEX_1",  "X_FUN",
                                      "UM_1", "UM_2", "UM_4", "UM_5", "EDGE_1", "HELP_13"};
  int rows = 0;
  for (const ConfigGroup group : {kStandard, kAdvanced, kIndustrial}) {
    int table = 0;
    for (const ConfigTable& config : TablesOf(group)) {
      ++table;
      for (int parameter = 1; parameter <= config.Parameters; ++parameter, ++rows) {
        const auto text = catalogue_.Limits(group, table, parameter);
        const LimitsString limits(text);
        EXPECT_FALSE(catalogue_.Description(group, table, parameter).empty()) << text;
        EXPECT_NE(limits.IsSelector(), editors.contains(limits.EditorKey)) << text;
        EXPECT_TRUE(!limits.IsSelector() || selectors_.Find(limits.EditorKey)) << text;
        EXPECT_EQ(limits.RangeText().find('!'), std::string::npos) << text;
      }
    }
  }
  EXPECT_EQ(rows, 143);
}

}  // namespace
}  // namespace tintbench::config
