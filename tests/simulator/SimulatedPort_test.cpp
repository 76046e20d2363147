#include "simulator/SimulatedPort.h"

#include <gtest/gtest.h>

#include "simulator/Desk.h"

namespace tintbench::simulator {
namespace {

TEST(SimulatedPortTest, OpensOnlyPortsOfTheTableAndOnlyOnce) {
  base::VirtualClock clock;
  Machine machine(clock);
  SimulatedPort port(clock, {{1, nullptr}, {5, &machine}});
  for (const auto& [number, exists] : {std::pair{1, true}, {2, false}, {5, true}, {8, false}}) {
    port.CommPort(number);
    EXPECT_EQ(port.PortOpen(true), exists) << number;
    EXPECT_EQ(port.PortOpen(), exists) << number;
    EXPECT_FALSE(port.PortOpen(true)) << number << ": open already, or missing";
    port.PortOpen(false);
    EXPECT_FALSE(port.PortOpen());
  }
}

TEST(SimulatedPortTest, RefusesSettingsThatNoPortHas) {
  Desk desk;
  desk.Port.PortOpen(false);
  for (const char* settings : {"", "19200", "19200,N,8", "x,N,8,1", "19200,Q,8,1", "19200,N,9,1",
                               "19200,N,8,3", "0,N,8,1", "19200,N,8,1,1", "19200,NE,8,1"}) {
    desk.Port.Settings(settings);
    EXPECT_FALSE(desk.Port.PortOpen(true)) << settings;
  }
}

TEST(SimulatedPortTest, NothingOnThePortIsSilenceForTheWholeWait) {
  base::VirtualClock clock;
  SimulatedPort port(clock, {{1, nullptr}});
  ASSERT_TRUE(port.PortOpen(true));
  port.Output("#jf*");
  EXPECT_FALSE(port.WaitForInput(5.0));
  EXPECT_DOUBLE_EQ(clock.Now(), 5.0);
}

struct Pace {
  const char* Settings;
  double ByteSeconds;
};

TEST(SimulatedPortTest, BytesArriveNoSoonerThanTheLineAllows) {
  for (const Pace& pace : {Pace{"19200,N,8,1", 10 / 19200.0}, Pace{"19200,N,8,2", 11 / 19200.0}}) {
    Desk desk({}, pace.Settings);
    desk.Port.Output("#jf*");
    const double sent = 4 * pace.ByteSeconds;
    for (int count = 1; count <= 7; ++count) {
      ASSERT_TRUE(desk.Port.WaitForInput(1.0)) << pace.Settings;
      EXPECT_NEAR(desk.Clock.Now(), sent + 0.005 + count * pace.ByteSeconds, 1e-9);
      EXPECT_EQ(desk.Port.InBufferCount(), 1U);
      desk.Port.Input();
    }
    EXPECT_FALSE(desk.Port.WaitForInput(1.0));
  }
}

TEST(SimulatedPortTest, TheBufferHoldsNoMoreThanItsSize) {
  Desk desk;
  desk.Port.InBufferSize(4);
  desk.Port.Output("#jf*");
  desk.Clock.Sleep(1.0);
  EXPECT_EQ(desk.Port.InBufferCount(), 4U);
  desk.Port.InputLen(3);
  EXPECT_EQ(desk.Port.Input(), "A V");
  EXPECT_EQ(desk.Port.Input(), " ");
  EXPECT_EQ(desk.Port.Input(), "");
}

TEST(SimulatedPortTest, AnotherFormatThanTheMachinesGivesNoAnswer) {
  for (const char* settings :
       {"9600,N,8,1", "28800,N,8,1", "19200,E,8,1", "19200,N,7,1", "19200, ,8,1"}) {
    Desk desk({}, settings);
    EXPECT_EQ(desk.Ask("#jf*"), "") << settings;
    desk.Port.Settings("19200,N,8,1");
    EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2") << settings;
  }
}

TEST(SimulatedPortTest, ChangingTheSpeedUnderAnAnswerGivesRubbish) {
  Desk desk;
  desk.Port.Output("#jf*");
  desk.Clock.Sleep(0.003);
  desk.Port.Settings("300,N,8,1");
  const std::string heard = desk.Listen();
  EXPECT_EQ(heard.size(), 7U);
  EXPECT_EQ(heard.find("5.2"), std::string::npos);
}

TEST(SimulatedPortTest, AnUnpluggedLineClosesThePortUntilPlugged) {
  Desk desk;
  desk.Port.Output("#jf*");
  desk.Tell("fault unplug 0.006");
  EXPECT_FALSE(desk.Port.WaitForInput(5.0) && desk.Port.Input().size() == 7U);
  desk.Clock.Sleep(5.0);
  EXPECT_FALSE(desk.Port.PortOpen());
  EXPECT_EQ(desk.Port.InBufferCount(), 0U);
  EXPECT_FALSE(desk.Port.PortOpen(true));
  desk.Tell("plug");
  EXPECT_FALSE(desk.Port.PortOpen()) << "a lost port doesn't come back by itself";
  EXPECT_TRUE(desk.Port.PortOpen(true));
  EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2");
}

TEST(SimulatedPortTest, ReopeningEmptiesTheBuffer) {
  Desk desk;
  desk.Port.Output("#jf*");
  desk.Clock.Sleep(1.0);
  desk.Port.PortOpen(false);
  EXPECT_EQ(desk.Port.InBufferCount(), 0U);
  desk.Port.PortOpen(true);
  EXPECT_EQ(desk.Listen(), "");
}

}  // namespace
}  // namespace tintbench::simulator
