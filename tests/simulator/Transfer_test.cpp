// What the machine does with a file that it was sent.
#include <gtest/gtest.h>

#include "simulator/Desk.h"
#include "simulator/XmodemPeer.h"

namespace tintbench::simulator {
namespace {

const std::string kSmall = "@ICS 1\r\n@GEN 1 1,1,0,0,0,0,0,0,4,\"SMALL\",0\r\n@ECS 1\r\n@PDD 1\r\n";

TEST(TransferTest, TheMachineTakesAConfigurationAndRunsItAfterwards) {
  Desk desk;
  EXPECT_EQ(desk.Ask("#a02*", 0.1), "A02");
  ASSERT_EQ(desk.Ask("#ct*", 0.1), "A");
  EXPECT_TRUE(PeerSend(desk, kSmall));
  EXPECT_EQ(desk.Next(2.0), "K");
  EXPECT_EQ(desk.Ask("#jf*", 0.2), "") << "the machine restarts, and is deaf meanwhile";
  desk.Clock.Sleep(10.0);
  EXPECT_EQ(desk.Ask("#a02*", 0.1), "R");
}

TEST(TransferTest, ABadConfigurationIsNotTakenIntoUse) {
  const std::string start = "@ICS 1\r\n";
  for (const std::string& text :
       {std::string("nothing of use\r\n"), start, start + "@@@@ 1 1\r\n@GEN 1 1,2\r\n",
        start + "@GEN 1 1,,3\r\n", start + "@GEN 1 1,2,3,\r\n", start + "@GEN 2 1,2,3\r\n"}) {
    Desk desk;
    desk.Ask("#ct*", 0.1);
    EXPECT_TRUE(PeerSend(desk, text));
    EXPECT_EQ(desk.Listen(), "N") << text;
    EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2") << text;
  }
}

TEST(TransferTest, OldFirmwareTakesAConfigurationWithoutAWordAndGivesNone) {
  MachineOptions options;
  options.Firmware = "3";
  Desk desk(options);
  EXPECT_EQ(desk.Ask("#jf*"), "A V 3  ");
  EXPECT_EQ(desk.Ask("#cr*"), "");
  EXPECT_EQ(desk.Ask("#ct*", 0.1), "");
  EXPECT_TRUE(PeerSend(desk, kSmall));
  EXPECT_EQ(desk.Listen(), "");
}

TEST(TransferTest, ATransferThatIsCancelledOrThatNobodyTakesUpEnds) {
  const std::string cancel = "\x18\x18\x18\x18\x18\x18\x18\x18\b\b\b\b\b\b\b\b";
  for (const char* command : {"#cr*", "#ct*"}) {
    for (const auto& [bytes, seconds] : {std::pair{cancel, 1.0}, {std::string(), 120.0}}) {
      Desk desk;
      ASSERT_EQ(desk.Ask(command, 0.1), "A");
      desk.Port.Output(bytes);
      desk.Clock.Sleep(seconds);
      desk.Port.Input();
      EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2") << command << " " << seconds;
    }
  }
}

}  // namespace
}  // namespace tintbench::simulator
