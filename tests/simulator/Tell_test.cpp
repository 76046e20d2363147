// What can be told to the machine, its faults, and input that no machine should be given.
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "simulator/Desk.h"
#include "simulator/XmodemPeer.h"

namespace tintbench::simulator {
namespace {

TEST(TellTest, WrongWordsAreToldInOneLineAndChangeNothing) {
  Desk desk;
  for (const char* words : {"",
                            "   ",
                            "nonsense",
                            "can",
                            "can maybe",
                            "can on off",
                            "input 0 on",
                            "input 21 off",
                            "input 5",
                            "error",
                            "error 12",
                            "error 12G4",
                            "error 11030",
                            "cap 4 open",
                            "cap 1 away",
                            "shelf",
                            "shelf up",
                            "valve 25 broken",
                            "motor 1 tired",
                            "group 3 off",
                            "reading 1 1 5 2",
                            "reading 1 0 31",
                            "reading 3 0 31 1",
                            "reading 1 1 1 nan",
                            "group 1",
                            "group 1 answer",
                            "group 1 answer length 100",
                            "group 1 answer letter AB",
                            "group 1 analogue 05 1",
                            "group 11 analogue 03 1",
                            "dip 5 on",
                            "dip 0 on",
                            "autotest",
                            "autotest cycle 11",
                            "autotest cut",
                            "autotest cut x",
                            "counter",
                            "counter M 13 1 1",
                            "counter M 1 1",
                            "counter M 1 10000000000 1",
                            "counter flash worn",
                            "counter records 100",
                            "fault",
                            "fault nonsense",
                            "fault drop 2",
                            "fault drop -1",
                            "fault late soon",
                            "fault late inf",
                            "fault cancel #cr*",
                            "fault no-end 3",
                            "fault drop @0",
                            "fault drop @1.5x",
                            "fault unplug @",
                            "fault silent @3",
                            "fault replug @3",
                            "seed",
                            "seed -1",
                            "seed one",
                            "power",
                            "firmware",
                            "xmodem 256",
                            "unplug now",
                            "reset now",
                            "button",
                            "button power",
                            "fault silent part=2",
                            "fault cancel part=0"}) {
    const std::string error = desk.Tell(words);
    EXPECT_NE(error, "") << words;
    EXPECT_EQ(error.find('\n'), std::string::npos) << words;
  }
  EXPECT_EQ(desk.Ask("#iu*"), "A018FE97D3000");
  EXPECT_EQ(desk.Ask("#s*"), "K00");
}

TEST(TellTest, TheHelpNamesEveryFault) {
  const std::string help = Machine::TellHelp();
  for (const FaultKind& kind : FaultKinds()) {
    EXPECT_NE(help.find("  " + std::string(kind.Name)), std::string::npos) << kind.Name;
  }
}

struct AnswerFault {
  const char* Words;
  const char* Command;
  const char* Answer;
};

TEST(TellTest, FaultsOfAnAnswer) {
  for (const AnswerFault& fault : {AnswerFault{"fault silent", "#jf*", ""},
                                   {"fault silent #jf*", "#jf*", ""},
                                   {"fault silent #a0102*", "#a01*", "A01"},
                                   {"fault silent #a0102*", "#a0102*", ""},
                                   {"fault short 3 #jf*", "#jf*", "A V "},
                                   {"fault short #jf* 3", "#jf*", "A V "},
                                   {"fault short 99", "#jf*", ""},
                                   {"fault refuse #cr*", "#cr*", "R"},
                                   {"fault refuse #CR*", "#cr*", "R"},
                                   {"fault refuse #cr*", "#jf*", "A V 5.2"},
                                   {"fault fail #do*", "#do01*", "A01N"},
                                   {"fault fail", "#uw0000*", "AN"}}) {
    Desk desk;
    EXPECT_EQ(desk.Tell(fault.Words), "");
    EXPECT_EQ(desk.Ask(fault.Command, 5.0), fault.Answer) << fault.Words;
    EXPECT_EQ(desk.Tell("fault none"), "");
    EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2") << fault.Words;
  }
}

TEST(TellTest, ACountedFaultEndsByItselfAndOneCanBeSwitchedOff) {
  Desk desk;
  desk.Tell("fault refuse 2 #s*");
  for (const AnswerFault& next : {AnswerFault{"", "#s*", "R"},
                                  {"", "#jf*", "A V 5.2"},
                                  {"", "#s*", "R"},
                                  {"", "#s*", "K00"}}) {
    EXPECT_EQ(desk.Ask(next.Command), next.Answer);
  }
  desk.Tell("fault silent");
  desk.Tell("fault short");
  desk.Tell("fault silent off");
  EXPECT_EQ(desk.Ask("#s*"), "K0");
}

TEST(TellTest, ALateAnswerComesBehindAnEarlierOne) {
  Desk desk;
  desk.Tell("fault late 2 #jf*");
  EXPECT_EQ(desk.Ask("#jf*#s*", 3.0), "K00A V 5.2");
}

// The share of answers that arrive unhurt with a fault of the line on.
double Unhurt(const char* words) {
  Desk desk;
  desk.Tell(words);
  int good = 0;
  for (int i = 0; i < 300; ++i) good += desk.Ask("#jf*", 0.2) == "A V 5.2" ? 1 : 0;
  return good / 300.0;
}

TEST(TellTest, FaultsOfTheLineHurtAboutAsManyAnswersAsTheirRateSays) {
  const double expected = std::pow(0.98, 11);  // eleven bytes, both ways
  for (const char* words : {"fault drop 0.02", "fault garble 0.02", "fault flip 0.02",
                            "fault insert 0.02", "fault double 0.02"}) {
    const double unhurt = Unhurt(words);
    EXPECT_NEAR(unhurt, expected, 0.1) << words;
    EXPECT_EQ(unhurt, Unhurt(words)) << "the same in every run";
  }
  EXPECT_EQ(Unhurt("fault drop 1"), 0.0);
  EXPECT_EQ(Unhurt("fault drop 0"), 1.0);
}

// What comes of so many enquiries on a line that changes bytes.
std::string Changed(const char* seed) {
  Desk desk;
  desk.Tell(seed);
  desk.Tell("fault garble 0.2");
  std::string answers;
  for (int i = 0; i < 20; ++i) answers += desk.Ask("#jf*", 0.2) + "|";
  return answers;
}

TEST(TellTest, RandomFaultsFollowTheirSeed) {
  EXPECT_EQ(Changed("seed 7"), Changed("seed 7"));
  EXPECT_NE(Changed("seed 7"), Changed("seed 8"));
}

TEST(TellTest, PowerAndTheResetButton) {
  Desk desk;
  desk.Tell("power off");
  desk.Clock.Sleep(100.0);
  EXPECT_EQ(desk.Ask("#jf*"), "");
  desk.Tell("power on");
  EXPECT_EQ(desk.Ask("#jf*"), "");
  desk.Clock.Sleep(10.0);
  EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2");
  desk.Tell("firmware 31");
  desk.Tell("reset");
  EXPECT_EQ(desk.Listen(10.0), "");
  EXPECT_EQ(desk.Ask("#jf*"), "A V 31 ");
}

TEST(TellTest, RubbishInFrontOfACommandIsSkippedAndAHalfCommandTimesOut) {
  Desk desk;
  EXPECT_EQ(desk.Ask(std::string("x*\0\xFF#i#jf*", 10)), "A V 5.2");
  desk.Ask("#j", 0.1);
  EXPECT_EQ(desk.Ask("f*"), "A V 5.2");
  desk.Ask("#j", 6.0);
  EXPECT_EQ(desk.Ask("f*"), "");
  desk.Ask("#" + std::string(300, 'a') + "*");
  EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2");
}

std::string RandomBytes(std::mt19937& random, std::size_t count) {
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random() & 255);
  return bytes;
}

// Letters and digits of commands in any order, so that many frames are nearly right.
std::string NearlyCommands(std::mt19937& random, std::size_t count) {
  constexpr std::string_view kAlphabet = "##**abcdefghijklmnoprstuvwxyz0123456789\x01\x03";
  std::string text(count, ' ');
  for (char& letter : text) letter = kAlphabet[random() % kAlphabet.size()];
  return text;
}

TEST(TellTest, NoInputStopsTheMachineForGood) {
  std::mt19937 random(1);
  const std::string bytes = RandomBytes(random, 200000);
  const std::string nearly = NearlyCommands(random, 200000);
  for (const std::string& input : {bytes, nearly, std::string(3000000, '#'),
                                   std::string(200000, '*'), std::string(200000, '\x01')}) {
    Desk desk;
    desk.Port.Output(input);
    desk.Clock.Sleep(3600.0);
    desk.Port.Input();
    desk.Tell("reset");
    desk.Clock.Sleep(60.0);
    EXPECT_EQ(desk.Ask("#jf*").substr(0, 4), "A V ");
  }
}

TEST(TellTest, ATransferOfRubbishEndsAndNoConfigurationIsLost) {
  std::mt19937 random(2);
  for (const char* command : {"#ct*", "#cr*"}) {
    for (int round = 0; round < 20; ++round) {
      Desk desk;
      desk.Ask(command, 0.1);
      desk.Port.Output(RandomBytes(random, 5000));
      desk.Clock.Sleep(600.0);
      desk.Port.Input();
      EXPECT_EQ(desk.Ask("#krM12*").substr(0, 3), "A12") << command;
    }
  }
}

TEST(TellTest, AnEndlessTransferIsBrokenOff) {
  Desk desk;
  desk.Ask("#ct*", 0.1);
  EXPECT_FALSE(PeerSend(desk, std::string(2 << 20, 'x'), 1024));
  desk.Listen();
  EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2");
}

}  // namespace
}  // namespace tintbench::simulator
