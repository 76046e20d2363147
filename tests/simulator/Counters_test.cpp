// Statistics, processes that run by themselves, and the inputs of external groups.
#include <gtest/gtest.h>

#include <array>
#include <set>

#include "simulator/Desk.h"

namespace tintbench::simulator {
namespace {

int Field(Desk& desk, const std::string& command, std::size_t place) {
  return std::stoi(desk.Ask(command, 0.05).substr(place, 10));
}

int Seconds(Desk& desk, const std::string& element) {
  return Field(desk, "#kr" + element + "*", 3);
}

int Events(Desk& desk, const std::string& element) {
  return Field(desk, "#kr" + element + "*", 13);
}

TEST(CountersTest, WorkIsCounted) {
  Desk desk;
  for (const char* clear : {"M02", "C03", "B03", "A01", "P01"}) {
    EXPECT_EQ(desk.Ask(std::string("#kt") + clear + std::string(20, '0') + "*", 0.05), "A");
  }
  desk.Ask("#a03*", 0.05);
  desk.Ask("#f02600*", 0.05);
  desk.Ask("#b01*", 0.05);
  desk.Clock.Sleep(100.0);
  desk.Ask("#z*", 0.05);
  desk.Ask("#do01*", 3.0);
  desk.Clock.Sleep(1000.0);
  for (const char* element : {"M02", "C03", "B03", "A01"}) {
    EXPECT_NEAR(Seconds(desk, element), 100, 1) << element;
  }
  EXPECT_NEAR(Events(desk, "M02"), 500, 5);
  EXPECT_EQ(Events(desk, "C03"), 1);
  EXPECT_EQ(Events(desk, "P01"), 1);
}

TEST(CountersTest, SinglesCountTheirOwn) {
  Desk desk;
  const auto single = [&](char kind) { return Field(desk, std::string("#kr") + kind + "*", 1); };
  desk.Ask("#ktS0000000041*", 0.05);
  desk.Ask("#ktF00000000070000000009*", 0.05);
  desk.Ask("#ktT0000001000*", 0.05);
  desk.Tell("can on");
  desk.Ask("#eu*", 8.0);
  desk.Ask("#ez*", 8.0);
  EXPECT_EQ(single('S'), 42);
  EXPECT_EQ(single('F'), 8);
  EXPECT_NEAR(single('T'), 1016, 2);
}

TEST(CountersTest, OnlyWhatIsStoredSurvivesAReset) {
  Desk desk;
  desk.Ask("#ktM0500000001110000000222*", 0.05);
  desk.Ask("#km*", 1.0);
  desk.Ask("#ktM0500000009990000000999*", 0.05);
  EXPECT_EQ(Seconds(desk, "M05"), 999);
  desk.Ask("#h*", 12.0);
  EXPECT_EQ(Seconds(desk, "M05"), 111);
  EXPECT_EQ(Events(desk, "M05"), 222);
}

TEST(CountersTest, WearShowsInWhatIsCountedAndKept) {
  Desk desk;
  // A full counter stands still.
  desk.Tell("counter M 2 9999999990 9999999999");
  desk.Ask("#f02600*", 0.05);
  desk.Clock.Sleep(100.0);
  EXPECT_EQ(desk.Ask("#krM02*", 0.05), "A0299999999999999999999");
  desk.Ask("#z*", 0.05);
  EXPECT_EQ(desk.Ask("#krM02*", 0.05), "A0299999999999999999999");
  // What the flash memory doesn't take is gone with the next reset.
  desk.Tell("counter flash broken");
  EXPECT_EQ(desk.Ask("#km*", 1.0), "R");
  desk.Ask("#h*", 12.0);
  EXPECT_LT(Events(desk, "M02"), 10000);
  desk.Tell("counter flash good");
  EXPECT_EQ(desk.Ask("#km*", 1.0), "A");
  for (const auto& [words, told] :
       {std::pair("counter records 3", "A03"), std::pair("counter records right", "A12")}) {
    desk.Tell(words);
    EXPECT_EQ(desk.Ask("#kvM*").substr(0, 3), told);
  }
  desk.Tell("autotest cut 4");
  EXPECT_EQ(desk.Ask("#xa*"), "A0514");
}

TEST(CountersTest, ABulkReadingHoldsAllElementsInOrder) {
  Desk desk;
  const std::string answer = desk.Ask("#kvM*");
  ASSERT_EQ(answer.size(), 12U * 22 + 3);
  EXPECT_EQ(answer.substr(0, 3), "A12");
  for (int motor = 1; motor <= 12; ++motor) {
    const std::string record = answer.substr(3 + static_cast<std::size_t>(motor - 1) * 22, 22);
    EXPECT_EQ(std::stoi(record.substr(0, 2)), motor);
    EXPECT_EQ("A" + record, desk.Ask("#krM" + record.substr(0, 2) + "*", 0.05));
  }
}

TEST(CountersTest, TimedProcessesWorkUnlessHeld) {
  Desk desk;
  const auto hours = [&](double count) { desk.Clock.Sleep(count * 3600.0); };
  const int start = Seconds(desk, "A01");
  hours(2.1);
  EXPECT_EQ(Seconds(desk, "A01"), start + 30);
  desk.Ask("#pb*", 0.05);
  hours(10);
  EXPECT_EQ(Seconds(desk, "A01"), start + 30);
  desk.Ask("#pr*", 0.05);
  hours(4.1);
  EXPECT_EQ(Seconds(desk, "A01"), start + 90);
  desk.Ask("#pm*", 0.05);
  const int orders = Field(desk, "#krD*", 1);
  hours(5);
  EXPECT_EQ(Field(desk, "#krD*", 1), orders);
  desk.Ask("#ps*", 0.05);
  hours(1.1);
  EXPECT_EQ(Field(desk, "#krD*", 1), orders + 2);
}

double Reading(Desk& desk, const char* command) {
  const std::string answer = desk.Ask(command, 0.1);
  EXPECT_EQ(answer.substr(0, 2), "A2");
  return static_cast<std::int32_t>(std::stoul(answer.substr(2), nullptr, 16)) / 10.0;
}

TEST(CountersTest, GroupReadingsDriftWithinTheirBand) {
  Desk desk;
  std::set<double> temperatures;
  for (int round = 0; round < 200; ++round) {
    const double temperature = Reading(desk, "#ig11104*");
    EXPECT_GE(temperature, 5.0);
    EXPECT_LE(temperature, 40.0);
    temperatures.insert(temperature);
    desk.Clock.Sleep(3.0);
  }
  EXPECT_GT(temperatures.size(), 50U);
  EXPECT_EQ(desk.Ask("#s*"), "K00");
}

TEST(CountersTest, AGroupReadingCanBeFixedCutAndWatched) {
  Desk desk;
  EXPECT_EQ(desk.Tell("reading 1 1 1 -0.7"), "");
  EXPECT_DOUBLE_EQ(Reading(desk, "#ig01101*"), -0.7);
  EXPECT_EQ(desk.Ask("#s*"), "E01290A") << "below its band, and watched";
  desk.Tell("error none");
  EXPECT_EQ(desk.Ask("#ix01090*", 0.1), "A");
  EXPECT_DOUBLE_EQ(Reading(desk, "#ig01101*"), -0.7);
  EXPECT_EQ(desk.Ask("#s*"), "K00");
  desk.Tell("reading 1 1 1 cut");
  EXPECT_EQ(desk.Ask("#ig01101*"), "A100000000");
  desk.Tell("reading 1 0 31 1");
  EXPECT_EQ(desk.Ask("#ig01031*"), "A200000001");
  desk.Tell("reading 1 0 31 auto");
  EXPECT_EQ(desk.Ask("#ig01031*"), "A200000000");
  desk.Tell("group 1 off");
  EXPECT_EQ(desk.Ask("#ig01031*"), "E100000000");
  EXPECT_EQ(desk.Ask("#ix01091*"), "E");
}

// What a group reads: suction and delivery pressure, level.
std::array<double, 3> Instruments(Desk& desk) {
  desk.Clock.Sleep(20.0);
  return {Reading(desk, "#ig01101*"), Reading(desk, "#ig01102*"), Reading(desk, "#ig01103*")};
}

TEST(CountersTest, PressuresFollowMotorAndValveAndTheLevelFallsWhileDispensing) {
  Desk desk;
  const auto rest = Instruments(desk);
  desk.Ask("#f10400*", 0.1);
  const auto running = Instruments(desk);
  desk.Ask("#a22*", 0.1);
  const auto dispensing = Instruments(desk);
  EXPECT_LT(running[0], rest[0]);
  EXPECT_LT(dispensing[0], running[0]);
  EXPECT_GT(running[1], dispensing[1]);
  EXPECT_GT(dispensing[1], rest[1]);
  EXPECT_EQ(running[2], rest[2]);
  EXPECT_NEAR(dispensing[2], rest[2] - 20.0 / 800.0 * 85.0, 0.3);
  EXPECT_EQ(desk.Ask("#s*"), "K00");
  desk.Clock.Sleep(800.0);
  EXPECT_EQ(Reading(desk, "#ig01103*"), 0.0);
  EXPECT_EQ(desk.Ask("#s*"), "E012B0A") << "the tank is empty";
  EXPECT_EQ(desk.Ask("#ig01038*"), "A200000001");
  desk.Ask("#z*");
  desk.Tell("group 1 fill");
  EXPECT_EQ(Instruments(desk)[2], rest[2]);
}

TEST(CountersTest, AnswersAboutAGroupAreSpoiltByWord) {
  struct Case {
    const char* Words;
    const char* Answer;
  };
  Desk desk;
  for (const Case& wrong : {Case{"group 1 digital 31 1", "A200000001"},
                            {"group 1 answer letter R", "R200000001"},
                            {"group 1 answer state 7", "R700000001"},
                            {"group 1 answer length 9", "R70000000"},
                            {"group 1 answer length 12", "R70000000100"},
                            {"group 1 answer length 0", ""},
                            {"group 1 answer right", "A200000001"},
                            {"group 1 digital 31 cut", "A100000000"}}) {
    EXPECT_EQ(desk.Tell(wrong.Words), "");
    EXPECT_EQ(desk.Ask("#ig01031*"), wrong.Answer) << wrong.Words;
  }
  desk.Tell("group 1 analogue 01 -25.3");
  EXPECT_DOUBLE_EQ(Reading(desk, "#ig01101*"), -25.3);
}

TEST(CountersTest, AGroupThatIsOffHasNothingOnAndObeysNothing) {
  Desk desk;
  for (const char* command : {"#a2201*", "#b1401*", "#f10400*", "#f01400*"}) desk.Ask(command, 0.1);
  desk.Tell("group 1 off");
  EXPECT_EQ(desk.Tell("check valves 01"), "");
  EXPECT_EQ(desk.Tell("check stirrings 01"), "");
  EXPECT_EQ(desk.Tell("check motors 01"), "");
  for (const char* command : {"#a22*", "#g22*", "#b14*", "#m14*", "#l10*"}) {
    EXPECT_EQ(desk.Ask(command)[0], 'E') << command;
  }
  desk.Tell("group 1 on");
  EXPECT_EQ(desk.Ask("#a22*"), "A22");
}

TEST(CountersTest, TheFlowmeterFollowsTheGroupsMotor) {
  Desk desk;
  desk.Ask("#f11400*", 0.1);
  EXPECT_EQ(desk.Ask("#ig02035*"), "A200000001");
  desk.Ask("#l11*", 0.1);
  EXPECT_EQ(desk.Ask("#ig02035*"), "A200000000");
}

}  // namespace
}  // namespace tintbench::simulator
