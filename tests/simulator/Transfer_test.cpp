#include <gtest/gtest.h>

#include "simulator/Desk.h"
#include "simulator/SampleConfiguration.h"
#include "simulator/XmodemPeer.h"

namespace tintbench::simulator {
namespace {

std::string Padded(std::string text, std::size_t size) {
  text.resize((text.size() + size - 1) / size * size, '\x1A');
  return text;
}

const std::string kSample{SampleConfiguration()};
const std::string kSmall = "@ICS 1\r\n@GEN 1 1,1,0,0,0,0,0,0,4,\"SMALL\",0\r\n@ECS 1\r\n@PDD 1\r\n";

struct Way {
  std::size_t Block;
  char Ask;
};

TEST(TransferTest, TheMachineSendsItsConfigurationInEveryWay) {
  for (const Way& way : {Way{128, '\x15'}, {128, 'C'}, {1024, '\x15'}, {1024, 'C'}}) {
    MachineOptions options;
    options.BlockSize = way.Block;
    Desk desk(options);
    ASSERT_EQ(desk.Ask("#cr*"), "A");
    std::size_t blocks = 0;
    EXPECT_EQ(PeerReceive(desk, way.Ask, blocks), Padded(kSample, way.Block));
    EXPECT_EQ(blocks, Padded(kSample, way.Block).size() / way.Block);
    EXPECT_EQ(desk.Listen(), "K");
    EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2");
  }
}

struct Reception {
  bool Crc;
  std::size_t Block;
  std::string Asks;
};

TEST(TransferTest, TheMachineTakesAConfigurationAndRunsItAfterwards) {
  for (const Reception& way : {Reception{true, 128, "C"},
                               {true, 1024, "C"},
                               {false, 128, "\x15"},
                               {false, 1024, "\x15"}}) {
    MachineOptions options;
    options.AsksForCrc = way.Crc;
    Desk desk(options);
    ASSERT_EQ(desk.Ask("#ct*", 0.1), "A");
    EXPECT_EQ(PeerSend(desk, kSmall, way.Block), way.Asks);
    EXPECT_EQ(desk.Next(2.0), "K");
    EXPECT_EQ(desk.Ask("#jf*", 0.2), "") << "the machine restarts, and is deaf meanwhile";
    desk.Clock.Sleep(10.0);
    ASSERT_EQ(desk.Ask("#cr*"), "A");
    std::size_t blocks = 0;
    EXPECT_EQ(PeerReceive(desk, '\x15', blocks), Padded(kSmall, 128));
  }
}

TEST(TransferTest, ABlockNumberGoesRoundBehind255) {
  Desk desk;
  std::string text = kSmall;
  while (text.size() < 300 * 128) text += "% a comment that fills the file\r\n";
  desk.Ask("#ct*", 0.1);
  EXPECT_EQ(PeerSend(desk, text, 128), "C");
  EXPECT_EQ(desk.Listen(), "K");
}

TEST(TransferTest, ABadConfigurationIsNotTakenIntoUse) {
  const std::string start = "@ICS 1\r\n";
  for (const std::string& text :
       {std::string("nothing of use\r\n"), start, start + "@@@@ 1 1\r\n@GEN 1 1,2\r\n",
        start + "@GEN 1 1,,3\r\n", start + "@GEN 1 1,2,3,\r\n", start + "@GEN 2 1,2,3\r\n"}) {
    Desk desk;
    desk.Ask("#ct*", 0.1);
    EXPECT_EQ(PeerSend(desk, text, 128), "C");
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
  EXPECT_EQ(PeerSend(desk, kSmall, 128), "C");
  EXPECT_EQ(desk.Listen(), "");
}

TEST(TransferTest, ACancelledTransferLeavesTheMachineListening) {
  for (const char* command : {"#cr*", "#ct*"}) {
    Desk desk;
    ASSERT_EQ(desk.Ask(command, 0.1), "A");
    desk.Port.Output("\x18\x18\x18\x18\x18\x18\x18\x18\b\b\b\b\b\b\b\b");
    desk.Listen();
    EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2") << command;
  }
}

TEST(TransferTest, ATransferThatNobodyTakesUpEndsByItself) {
  for (const char* command : {"#cr*", "#ct*"}) {
    Desk desk;
    desk.Ask(command, 0.1);
    desk.Clock.Sleep(120.0);
    desk.Port.Input();
    EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2") << command;
  }
}

TEST(TransferTest, WithoutAnAnswerToCTheMachineAsksForAChecksum) {
  Desk desk;
  ASSERT_EQ(desk.Ask("#ct*", 0.1), "A");
  EXPECT_EQ(desk.Listen(3.5).substr(0, 5), "CCC\x15\x15");
}

struct TransferFault {
  const char* Words;
  const char* Received;  // what a reception from the machine ends with; nullptr for the file
  const char* Sent;      // what a sending to it ends with
};

// A plain peer gives up at anything that isn't what it waits for.
TEST(TransferTest, FaultsOfATransfer) {
  for (const TransferFault& fault :
       {TransferFault{"fault cancel 3", "failed: cancelled", "failed: cancelled"},
        TransferFault{"fault stall 2", "failed: silence", "failed: tries"},
        TransferFault{"fault bad-block 2", nullptr, "C"},
        TransferFault{"fault bad-complement 2", nullptr, "C"},
        TransferFault{"fault skip-block 2", "failed: cancelled", "failed: cancelled"},
        TransferFault{"fault repeat-block 2", nullptr, "C"},
        TransferFault{"fault nak 2", nullptr, "C"}, TransferFault{"fault lose-ack 2", nullptr, "C"},
        TransferFault{"fault double-ack 2", nullptr, "C"},
        TransferFault{"fault one-can 2", "failed: cancelled", "failed: cancelled"},
        TransferFault{"fault bel 1", "failed: silence", "failed: no request"},
        TransferFault{"fault lose-eot", nullptr, "C"},
        TransferFault{"fault lose-eot 0", "failed: silence", "failed: end"},
        TransferFault{"fault nak-eot 3", nullptr, "C"}}) {
    Desk desk;
    EXPECT_EQ(desk.Tell(fault.Words), "");
    desk.Ask("#ct*", 0.1);
    EXPECT_EQ(PeerSend(desk, kSample, 128), fault.Sent) << fault.Words;
    desk.Clock.Sleep(60.0);
    desk.Port.Input();
    desk.Ask("#cr*");
    std::size_t blocks = 0;
    const std::string received = PeerReceive(desk, '\x15', blocks);
    EXPECT_EQ(received, fault.Received == nullptr ? Padded(kSample, 128) : fault.Received)
        << fault.Words;
  }
}

TEST(TransferTest, TheEndCanBeMissingAndTheConfigurationCorrupt) {
  Desk desk;
  desk.Tell("fault no-end");
  desk.Tell("fault corrupt-config");
  desk.Ask("#cr*");
  std::size_t blocks = 0;
  EXPECT_NE(PeerReceive(desk, 'C', blocks).find("\r\n@@@@ 1 "), std::string::npos);
  EXPECT_EQ(desk.Listen(), "");
}

}  // namespace
}  // namespace tintbench::simulator
