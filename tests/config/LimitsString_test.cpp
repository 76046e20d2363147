#include "config/LimitsString.h"

#include <gtest/gtest.h>

namespace tintbench::config {
namespace {

TEST(LimitsString, TellsRangeDefaultAndSelector) {
  struct Case {
    const char* Text;
    const char* Range;
    const char* Default;
    bool Selector;
  };
  const Case cases[] = {
      {"", "[ min. = !, max. = !, default = \"\" ]", "\"\"", false},
      {",,,,,", "[ min. = !, max. = !, default = \"\" ]", "\"\"", false},
      {".", "[ min. = !, max. = !, default = \"\" ]", "\"\"", false},
      {".,1,64,16", "[ min. = 1, max. = 64, default = 16 ]", "16", false},
      {".,.,.,3", "[ min. = free, max. = free, default = 3 ]", "3", false},
      {".,c0,c20,", "[ min. = 0_characters, max. = 20_characters, default = \"\" ]", "\"\"", false},
      {".,C1,c3", "[ min. = 1_characters, max. = 3_characters, default = \"\" ]", "\"\"", false},
      {".,c,.5, 7 ,8", "[ min. = _characters, max. = free, default =  7  ]", " 7 ", false},
      {".,-1.5,,.x", "[ min. = -1.5, max. = !, default = ? ]", "", false},
      {"0_1,.,.,.", "[ min. = free, max. = free, default = ? ]", "", false},
      {"2,0,31,2", "[ min. = 0, max. = 31, default = 2 ]", "2", true},
      {" 81 ,31,38,.", "[ min. = 31, max. = 38, default = ? ]", "", true},
      {"-1,0,0,0", "[ min. = 0, max. = 0, default = 0 ]", "0", false},
      {"X_FUN,c0,c20", "[ min. = 0_characters, max. = 20_characters, default = \"\" ]", "\"\"",
       false},
  };
  for (const Case& c : cases) {
    const LimitsString limits(c.Text);
    EXPECT_EQ(limits.RangeText(), c.Range) << c.Text;
    EXPECT_EQ(limits.DefaultValue(), c.Default) << c.Text;
    EXPECT_EQ(limits.IsSelector(), c.Selector) << c.Text;
  }
}

}  // namespace
}  // namespace tintbench::config
