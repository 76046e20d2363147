// What the machine's parts do as time passes.
#include <gtest/gtest.h>

#include "simulator/Desk.h"

namespace tintbench::simulator {
namespace {

int Number(const std::string& digits) { return digits.empty() ? -1 : std::stoi(digits); }

int ShelfSteps(Desk& desk) { return Number(desk.Ask("#ep*", 0.1).substr(1)); }

// True if connector `number` is active in the answer to "#ir*".
bool Connector(Desk& desk, int number) {
  const std::string answer = desk.Ask("#ir*", 0.1);
  const auto word = std::stoul(answer.substr(4), nullptr, 16);
  return (word >> (number - 1) & 1) == 0;
}

constexpr int kShelfHigh = 1;
constexpr int kShelfLow = 2;
constexpr int kDoor = 3;
constexpr int kPhotocell = 6;
constexpr int kCap1Open = 7;
constexpr int kCap1Closed = 8;

TEST(MotionTest, TheShelfTravelsForSecondsAndASecondCommandStopsIt) {
  Desk desk;
  EXPECT_TRUE(Connector(desk, kShelfLow));
  EXPECT_EQ(desk.Ask("#eu*", 1.0), "A");
  const int first = ShelfSteps(desk);
  EXPECT_EQ(desk.Ask("#up*", 0.1), "A100000");
  EXPECT_GT(first, 0);
  EXPECT_GT(ShelfSteps(desk), first);
  desk.Ask("#eu*", 0.1);
  const int stopped = ShelfSteps(desk);
  desk.Clock.Sleep(20.0);
  EXPECT_EQ(ShelfSteps(desk), stopped);
  EXPECT_FALSE(Connector(desk, kShelfLow) || Connector(desk, kShelfHigh));
  desk.Ask("#eu*", 10.0);
  EXPECT_TRUE(Connector(desk, kShelfHigh));
  desk.Ask("#ed*", 0.1);
  EXPECT_EQ(desk.Ask("#up*", 0.1), "A010000");
  desk.Clock.Sleep(3.0);
  desk.Ask("#eu*", 0.1);
  EXPECT_EQ(desk.Ask("#up*", 0.1), "A100000") << "the other command turns it round";
}

TEST(MotionTest, ACanStopsTheShelfAsItHidesThePhotocell) {
  Desk desk;
  desk.Tell("can on");
  EXPECT_FALSE(Connector(desk, kPhotocell));
  desk.Ask("#eu*", 10.0);
  EXPECT_TRUE(Connector(desk, kPhotocell));
  EXPECT_FALSE(Connector(desk, kShelfHigh));
  desk.Tell("can off");
  EXPECT_FALSE(Connector(desk, kPhotocell));
}

TEST(MotionTest, ACapIsBetweenItsEndsWhileItMovesAndTakesNoSecondCommand) {
  Desk desk;
  EXPECT_TRUE(Connector(desk, kCap1Closed));
  desk.Port.Output("#do01*");
  desk.Clock.Sleep(1.0);
  EXPECT_FALSE(Connector(desk, kCap1Closed) || Connector(desk, kCap1Open));
  EXPECT_EQ(desk.Ask("#up*", 0.1), "A001000");
  EXPECT_EQ(desk.Ask("#dc01*", 0.1), "R");
  EXPECT_EQ(desk.Listen(3.0), "A01K");
  EXPECT_TRUE(Connector(desk, kCap1Open));
  const double begin = desk.Clock.Now();
  desk.Port.Output("#dc01*");
  ASSERT_TRUE(desk.Port.WaitForInput(10.0));
  EXPECT_NEAR(desk.Clock.Now() - begin, 2.5, 0.1);
}

TEST(MotionTest, AStuckCapAnswersNAndLeavesAnError) {
  Desk desk;
  desk.Tell("cap 1 stuck");
  EXPECT_EQ(desk.Ask("#do01*", 6.0), "A01N");
  EXPECT_TRUE(Connector(desk, kCap1Closed));
  EXPECT_EQ(desk.Ask("#s*"), "E014001");
  desk.Tell("cap 1 free");
  EXPECT_EQ(desk.Ask("#do01*", 6.0), "A01K");
}

TEST(MotionTest, DispensingNeedsACanAnOpenCapAndAClosedDoor) {
  Desk desk;
  const auto ready = [&] { return desk.Ask("#ns*", 0.1) == "AK"; };
  EXPECT_FALSE(ready());
  desk.Tell("can on");
  desk.Tell("shelf high");
  EXPECT_FALSE(ready());
  desk.Tell("cap 2 middle");
  EXPECT_TRUE(ready());
  desk.Tell("door open");
  EXPECT_TRUE(Connector(desk, kDoor));
  EXPECT_FALSE(ready());
  desk.Tell("door closed");
  desk.Tell("can off");
  EXPECT_FALSE(ready());
}

TEST(MotionTest, AMotorComesToItsSpeed) {
  Desk desk;
  const auto rpm = [&] { return Number(desk.Ask("#o02*", 0.05).substr(11)); };
  desk.Ask("#f02800*", 0.5);
  const int early = rpm();
  EXPECT_GT(early, 10000);
  EXPECT_LT(early, 70000);
  EXPECT_EQ(desk.Ask("#ur*", 0.05), "A3100");
  desk.Clock.Sleep(5.0);
  EXPECT_NEAR(rpm(), 80000, 200);
  EXPECT_GT(Number(desk.Ask("#o02*", 0.05).substr(1, 10)), 0);
  desk.Ask("#l02*", 0.05);
  EXPECT_EQ(rpm(), 0);
  desk.Tell("motor 2 broken");
  desk.Ask("#f02800*", 5.0);
  EXPECT_EQ(rpm(), 0);
  EXPECT_EQ(desk.Ask("#s*"), "E011102");
}

TEST(MotionTest, AllOffStopsWhatIsOn) {
  Desk desk;
  desk.Ask("#a01020304050607*", 0.1);
  EXPECT_EQ(desk.Ask("#a08*", 0.1), "R") << "more than may be open at the same time";
  desk.Ask("#f01500*", 0.1);
  EXPECT_EQ(desk.Ask("#z*", 0.1), "A");
  EXPECT_EQ(desk.Ask("#a08*", 0.1), "A08");
  EXPECT_EQ(desk.Ask("#ur*", 0.1), "A3000");
  desk.Ask("#nd*", 0.1);
  EXPECT_EQ(desk.Ask("#a09*", 0.1), "R") << "the valves hang on the bus";
}

TEST(MotionTest, TheValveTestIsBusyForItsLengthAndFindsBadValves) {
  Desk desk;
  desk.Tell("valve 3 broken");
  desk.Tell("valve 24 shorted");
  EXPECT_EQ(desk.Ask("#v*", 0.1), "A");
  EXPECT_EQ(desk.Ask("#v*", 0.1), "R");
  EXPECT_EQ(desk.Ask("#a01*", 0.1), "R");
  EXPECT_EQ(desk.Ask("#s*", 0.1), "B00");
  desk.Clock.Sleep(6.0);
  EXPECT_EQ(desk.Ask("#s*", 0.1), "B010803");
  desk.Clock.Sleep(40.0);
  EXPECT_EQ(desk.Ask("#s*", 0.1).front(), 'B');
  desk.Clock.Sleep(2.0);
  EXPECT_EQ(desk.Ask("#s*", 0.1), "E0208030718");
}

TEST(MotionTest, AllOffEndsTheValveTestExceptInOldFirmware) {
  for (const auto& [firmware, letter] : {std::pair{"5.2", 'K'}, {"3.0", 'B'}}) {
    MachineOptions options;
    options.Firmware = firmware;
    Desk desk(options);
    desk.Ask("#v*", 1.0);
    desk.Ask("#z*", 0.1);
    EXPECT_EQ(desk.Ask("#s*", 0.1).front(), letter);
  }
}

TEST(MotionTest, PunchingTakesItsTimeAndNeedsALid) {
  Desk desk;
  desk.Tell("can on");
  desk.Ask("#ez*", 0.1);
  EXPECT_EQ(desk.Ask("#ez*", 0.1), "R");
  EXPECT_EQ(desk.Ask("#s*", 0.1), "B00");
  desk.Clock.Sleep(5.0);
  EXPECT_EQ(desk.Ask("#s*", 0.1), "K00");
  desk.Tell("can off");
  desk.Ask("#ez*", 5.0);
  EXPECT_EQ(desk.Ask("#s*", 0.1), "E018011");
}

TEST(MotionTest, AResetAnswersTwiceAndIsDeafInBetween) {
  Desk desk;
  desk.Ask("#f01500*", 0.1);
  desk.Tell("error 1103");
  const double begin = desk.Clock.Now();
  EXPECT_EQ(desk.Ask("#h*", 0.1), "A");
  EXPECT_EQ(desk.Ask("#jf*", 0.1), "");
  ASSERT_TRUE(desk.Port.WaitForInput(24.0));
  EXPECT_EQ(desk.Port.Input(), "K");
  EXPECT_GT(desk.Clock.Now() - begin, 3.0);
  EXPECT_EQ(desk.Ask("#iu*", 0.1).substr(9), "3000");
  EXPECT_EQ(desk.Ask("#s*", 0.1), "K00");
}

TEST(MotionTest, ForcedInputsStayUntilFreed) {
  Desk desk;
  for (const int connector : {2, 20}) {
    const std::string name = "input " + std::to_string(connector);
    const bool before = Connector(desk, connector);
    desk.Tell(name + (before ? " off" : " on"));
    EXPECT_EQ(Connector(desk, connector), !before);
    desk.Tell(name + " auto");
    EXPECT_EQ(Connector(desk, connector), before);
  }
}

}  // namespace
}  // namespace tintbench::simulator
