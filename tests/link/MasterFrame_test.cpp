#include "link/MasterFrame.h"

#include <gtest/gtest.h>

#include "link/ScriptedPort.h"
#include "ui/NotingScreen.h"

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

TEST(MasterFrame, IsAwaitedUntilItsEndForTenSecondsOrAsLongAsThereIsAPort) {
  const struct {
    void (*Play)(testing::ScriptedPort& port);
    const char* Text;
    double Seconds;
  } cases[] = {
      {[](testing::ScriptedPort& port) { port.Wait(2).Reply("A").Wait(1).Reply("B\x03"); },
       "AB\x03", 3},
      {[](testing::ScriptedPort& port) { port.Wait(2).Reply("A"); }, "A", 10},
      {[](testing::ScriptedPort& port) { port.Wait(2).Disconnect(); }, "", 2},
  };
  for (const auto& one : cases) {
    base::VirtualClock clock;
    testing::NotingScreen screen(clock);
    testing::ScriptedPort port(clock);
    one.Play(port);
    EXPECT_EQ(CollectUntilFrameEnd(port, screen), one.Text);
    EXPECT_NEAR(clock.Now(), one.Seconds, 0.06);
  }
}

}  // namespace
}  // namespace tintbench::link
