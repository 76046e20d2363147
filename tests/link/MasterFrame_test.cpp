#include "link/MasterFrame.h"

#include <gtest/gtest.h>

namespace tintbench::link {
namespace {

TEST(MasterFrame, FillsTheCheckField) {
  struct Case {
    const char* Text;
    const char* Frame;
  };
  const Case cases[] = {
      {"01SM____000", "01SM002?000"},  // 0x2F: a digit above nine is the character behind "9"
      {"01C1____000", "01C10043000"},  // the machine's answer
      {"____", "0000"},
      {"____\xFF", "00??\xFF"},  // a byte, not a signed number
      {"A____A", "A0000A"},      // both sides count, the field itself doesn't
      {"01SM___000", "01SM___000"},
      {"", ""},
  };
  for (const Case& one : cases) EXPECT_EQ(MakeMasterFrame(one.Text), one.Frame) << one.Text;
}

TEST(MasterFrame, StandsBetweenItsTwoCodesOnTheWire) {
  EXPECT_EQ(MasterWireFrame(kStartOfService),
            "\x01"
            "01SM002?000\x03");
  EXPECT_EQ(MasterStartAnswer(),
            "\x01"
            "01C10043000\x03");
}

}  // namespace
}  // namespace tintbench::link
