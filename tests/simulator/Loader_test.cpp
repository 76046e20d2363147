// The program loader behind dip-switch 4, and what the machine is afterwards.
#include <gtest/gtest.h>

#include "simulator/Desk.h"
#include "simulator/XmodemPeer.h"

namespace tintbench::simulator {
namespace {

const std::string kFirst = "@IPS 1\r\n@VER 1 6.1\r\nfirst\r\n";
const std::string kLast = "last\r\n@EPS 1\r\n@PDD 1\r\n";

struct LoaderBench : Desk {
  LoaderBench() {
    Tell("dip 4 on");
    Tell("button reset");
    Clock.Sleep(1.0);
  }

  void LeaveLoader() {
    Tell("dip 4 off");
    Tell("button reset");
    Clock.Sleep(60.0);
    Port.Input();
  }
};

TEST(LoaderTest, PartAfterPartIsTakenKeptWrittenAndRun) {
  LoaderBench desk;
  EXPECT_EQ(desk.Tell("check display BOOT"), "");
  EXPECT_TRUE(PeerSend(desk, kFirst, 1024));
  EXPECT_EQ(desk.Tell("check display XM 01 FILE 01"), "");
  EXPECT_TRUE(PeerSend(desk, "@EPS 2, within\r\n"));
  EXPECT_TRUE(PeerSend(desk, kLast));
  EXPECT_EQ(desk.Tell("check display WRITING FLASH"), "");
  EXPECT_EQ(desk.Ask("#jf*", 30.0), "") << "asks for nothing more, and obeys nothing";
  EXPECT_EQ(desk.Tell("check display TURN OFF SLAVE"), "");
  EXPECT_EQ(desk.TheMachine.TheLoader().Program(), kFirst + "@EPS 2, within\r\n" + kLast);
  desk.LeaveLoader();
  EXPECT_EQ(desk.Ask("#jf*"), "A V 6.1");
  EXPECT_EQ(desk.Tell("check display READY"), "");
}

TEST(LoaderTest, WhatIsNoWholeProgramIsNotWritten) {
  struct Case {
    std::vector<std::string> Parts;
    const char* Display;
  };
  for (const Case& wrong : {Case{{"no beginning\r\n"}, "XM 01 ERROR"},
                            {{"@IPS 1\r\n@PDD 1\r\n"}, "XM 01 ERROR"},
                            {{kFirst, kFirst}, "XM 01 FILE 01"},
                            {{kFirst, ""}, "XM 01 FILE 01"},
                            {{kFirst, "no end\r\n"}, "XM 01 FILE 02"}}) {
    LoaderBench desk;
    for (const std::string& part : wrong.Parts) EXPECT_TRUE(PeerSend(desk, part));
    EXPECT_EQ(desk.Tell(std::string("check display ") + wrong.Display), "");
    desk.LeaveLoader();
    EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2") << "the old program runs on";
  }
}

TEST(LoaderTest, AProgramThatWasNotWrittenToItsEndIsNone) {
  LoaderBench desk;
  PeerSend(desk, kFirst);
  PeerSend(desk, kLast);
  desk.LeaveLoader();
  EXPECT_EQ(desk.Ask("#jf*"), "");
  EXPECT_EQ(desk.Tell("check display NO PROGRAM"), "");
}

TEST(LoaderTest, AFaultCanWaitForOnePart) {
  for (const char* fault : {"fault cancel 1 part=2", "fault bel 1 part=2", "fault stall 1 part=2",
                            "fault no-start part=2"}) {
    LoaderBench desk;
    desk.Tell(fault);
    EXPECT_TRUE(PeerSend(desk, kFirst)) << fault;
    EXPECT_FALSE(PeerSend(desk, kLast)) << fault;
    desk.Tell("fault none");
    desk.Port.Output("\x18\x18");
    desk.Listen(0.2);
    EXPECT_TRUE(PeerSend(desk, kLast)) << fault;
    EXPECT_EQ(desk.TheMachine.TheLoader().Program(), kFirst + kLast) << fault;
  }
}

TEST(LoaderTest, GroupsThatAreToldSomethingNewComeUpOneAfterAnother) {
  Desk desk;
  desk.Ask("#ct*", 0.1);
  ASSERT_TRUE(PeerSend(desk, "@GEN 1 1,1,0,0,0,0,0,3,4,\"NEW\",0\r\n"));
  EXPECT_EQ(desk.Next(2.0), "K");
  for (const char* shown : {"GROUP 01", "GROUP 02", "GROUP 03", "READY"}) {
    desk.Clock.Sleep(8.0);
    EXPECT_EQ(desk.Tell(std::string("check display ") + shown), "");
  }
}

}  // namespace
}  // namespace tintbench::simulator
