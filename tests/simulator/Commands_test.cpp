// Every command of the machine, against the built-in configuration: a good answer, and what is
// refused.
#include <gtest/gtest.h>

#include "simulator/Desk.h"

namespace tintbench::simulator {
namespace {

// "?" in the expected text stands for any digit.
bool Matches(const std::string& answer, const std::string& expected) {
  if (answer.size() != expected.size()) return false;
  for (std::size_t i = 0; i < answer.size(); ++i) {
    const bool digit = answer[i] >= '0' && answer[i] <= '9';
    if (expected[i] == '?' ? !digit : answer[i] != expected[i]) return false;
  }
  return true;
}

struct Exchange {
  std::string Command;
  std::string Answer;
};

// The first answers of a machine just switched on, one machine for each.
const Exchange kGood[] = {
    {"#ir*", "A018FE97D"},
    {"#ur*", "A3000"},
    {"#iu*", "A018FE97D3000"},
    {"#s*", "K00"},
    {"#up*", "A000000"},
    {"#uw12aF*", "AK"},
    {"#ns*", "AN"},
    {"#jf*", "A V 5.2"},
    {"#jp*", "ABRIXEL PLATFORM 2.04"},
    {"#xa*",
     "A0514010002000302110380090400"
     "0500"},
    {"#ix01091*", "A"},
    {"#ig01131*", "A000000000"},
    {"#ig01031*", "A200000000"},
    {"#ig99031*", "R000000000"},
    {"#pb*", "A"},
    {"#pr*", "A"},
    {"#pm*", "A"},
    {"#ps*", "A"},
    {"#py*", "A"},
    {"#a010203*", "A010203"},
    {"#g010203*", "A010203"},
    {"#b0116*", "A0116"},
    {"#m0116*", "A0116"},
    {"#do01*", "A01K"},
    {"#dc03*", "A03K"},
    {"#dm02*", "A02K"},
    {"#ez*", "A"},
    {"#eu*", "A"},
    {"#ed*", "A"},
    {"#ep*", "A0000"},
    {"#f01400*", "A01"},
    {"#l12*", "A12"},
    {"#o01*", "A" + std::string(20, '0')},
    {"#z*", "A"},
    {"#v*", "A"},
    {"#nd*", "A"},
    {"#na*", "A"},
    {"#ja*", "A"},
    {"#rb0012FF00*", "A0000"},
    {"#rw0012ff00*", "A0000"},
    {"#ww0012FF0012ab*", "AK"},
    {"#nm010212*", "A010212"},
    {"#np*", "A"},
    {"#tr01*", "A02000000"},
    {"#tw0112340056*", "AK"},
    {"#krM01*", "A01" + std::string(20, '?')},
    {"#krb24*", "A24" + std::string(20, '?')},
    {"#krT*", "A" + std::string(10, '?')},
    {"#kvP*", "A03" + std::string(66, '?')},
    {"#ktM01" + std::string(20, '1') + "*", "A"},
    {"#ktT0000000001*", "A"},
    {"#ktS" + std::string(20, '0') + "*", "A"},
    {"#km*", "A"},
    {"#cr*", "A"},
};

std::string Upper(std::string text) {
  for (char& letter : text) {
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 32);
  }
  return text;
}

TEST(CommandsTest, EachCommandHasItsAnswerInEitherCase) {
  for (const Exchange& exchange : kGood) {
    for (const std::string& command : {exchange.Command, Upper(exchange.Command)}) {
      Desk desk;
      const std::string answer = desk.Ask(command, 5.0);
      EXPECT_TRUE(Matches(answer, exchange.Answer)) << command << " -> " << answer;
    }
  }
}

TEST(CommandsTest, WhatTheMachineDoesNotHaveIsRefused) {
  Desk desk;
  for (const char* command : {"##*",
                              "#*",
                              "#qq*",
                              "#s1*",
                              "#uw12g4*",
                              "#uw123*",
                              "#ix01181*",
                              "#ix05011*",
                              "#ix01012*",
                              "#a*",
                              "#a1*",
                              "#a25*",
                              "#a0102x3*",
                              "#a00*",
                              "#a0102030405060708*",
                              "#b17*",
                              "#do04*",
                              "#do1*",
                              "#dm01*",
                              "#f13400*",
                              "#f01*",
                              "#l00*",
                              "#o13*",
                              "#r0012FF00*",
                              "#rx0012FF00*",
                              "#rw0012FG00*",
                              "#ww0012FF00123*",
                              "#nm123*",
                              "#tr17*",
                              "#tr00*",
                              "#tw001234005*",
                              "#krM13*",
                              "#krM1*",
                              "#krX01*",
                              "#kvT*",
                              "#ktM01*",
                              "#ktM990000000000"
                              "0000000000*",
                              "#ktT000000000x*",
                              "#ktX0000000001*",
                              "#k*",
                              "#c*",
                              "#kr*",
                              "#kv*"}) {
    const std::string answer = desk.Ask(command, 0.3);
    EXPECT_EQ(answer, "R") << command;
  }
}

TEST(CommandsTest, AMachineWithoutShelfPuncherAndCapsRefusesThem) {
  MachineOptions options;
  options.Configuration = "@GEN 1 1,1,0,0,0,0,0,0,4,\"SMALL\",0\r\n";
  Desk desk(options);
  for (const char* command :
       {"#eu*", "#ed*", "#ep*", "#ez*", "#do01*", "#a01*", "#f01100*", "#v*"}) {
    EXPECT_EQ(desk.Ask(command, 0.3), "R") << command;
  }
  EXPECT_EQ(desk.Ask("#kvM*", 0.3), "A00");
  EXPECT_EQ(desk.Ask("#ns*", 0.3), "AN");
  desk.Tell("can on");
  EXPECT_EQ(desk.Ask("#ns*", 0.3), "AK");
}

TEST(CommandsTest, TheStatusTellsItsErrorsAndWhetherItIsBusy) {
  Desk desk;
  desk.Tell("error 1103");
  desk.Tell("error 800a");
  desk.Tell("error 1103");
  EXPECT_EQ(desk.Ask("#s*"), "E021103800A");
  desk.Ask("#eu*", 0.1);
  EXPECT_EQ(desk.Ask("#s*"), "B021103800A");
  desk.Tell("error none");
  desk.Clock.Sleep(10.0);
  EXPECT_EQ(desk.Ask("#s*"), "K00");
}

TEST(CommandsTest, OldFirmwarePutsADigitBehindItsB) {
  MachineOptions options;
  options.Firmware = "3.0";
  Desk desk(options);
  desk.Tell("error 1103");
  desk.Ask("#eu*", 0.1);
  EXPECT_EQ(desk.Ask("#s*"), "B1011103");
}

TEST(CommandsTest, ABadConfigurationIsToldInTheStatus) {
  MachineOptions options;
  options.Configuration = "@GEN 1 1,1,0,0,0,0,0,0,4,\"X\",0\r\n@MOT 1 1,2,3,4,,6\r\n";
  EXPECT_EQ(Desk(options).Ask("#s*"), "E019185");
  options.Configuration = "";
  EXPECT_EQ(Desk(options).Ask("#s*"), "N019000");
}

TEST(CommandsTest, MemoryAndPwmKeepWhatIsWritten) {
  Desk desk;
  desk.Ask("#ww0012FF00a1B2*");
  EXPECT_EQ(desk.Ask("#rw0012FF00*"), "AA1B2");
  EXPECT_EQ(desk.Ask("#rb0012FF01*"), "A00B2");
  desk.Ask("#wb0012FF0100C3*");
  EXPECT_EQ(desk.Ask("#rw0012FF00*"), "AA1C3");
  desk.Ask("#wwFFFFFFFF1234*");
  EXPECT_EQ(desk.Ask("#rb00000000*"), "A0034");
  desk.Ask("#tw0501230045*");
  EXPECT_EQ(desk.Ask("#tr05*"), "A01230045");
  desk.Ask("#uw0100*");
  EXPECT_EQ(desk.Ask("#ur*"), "A0100");
}

TEST(CommandsTest, TheAddressStandsInTheInputsWith0For16) {
  MachineOptions options;
  options.Slave = 16;
  options.Configuration = "@GEN 16 1,1,0,0,0,0,0,0,4,\"X\",0\r\n";
  Desk desk(options);
  EXPECT_EQ(desk.Ask("#ir*"), "A008FFFFF");
  desk.Tell("dip 4 on");
  desk.Tell("dip 1 on");
  EXPECT_EQ(desk.Ask("#ir*"), "A908FFFFF");
}

TEST(CommandsTest, TheMasterLineTakesCommandsOnlyBetweenStartAndReturnOfService) {
  Desk desk({}, "9600,N,8,1");
  EXPECT_EQ(desk.Ask("#jf*"), "");
  EXPECT_EQ(desk.Ask("\x01"
                     "01SM0000000\x03"),
            "")
      << "a wrong check";
  EXPECT_EQ(desk.Ask("\x01"
                     "01SM002?000\x03"),
            "\x01"
            "01C10043000\x03");
  EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2");
  EXPECT_EQ(desk.Ask("#PY*"), "A");
  EXPECT_EQ(desk.Ask("#jf*"), "");
}

TEST(CommandsTest, TheServiceLineTakesTheStartOfServiceToo) {
  Desk desk;
  EXPECT_EQ(desk.Ask("\x01"
                     "01SM002?000\x03"),
            "\x01"
            "01C10043000\x03");
  EXPECT_EQ(desk.Ask("#py*"), "A");
  EXPECT_EQ(desk.Ask("#jf*"), "A V 5.2");
  desk.Tell("fault refuse #01sm*");
  EXPECT_EQ(desk.Ask("\x01"
                     "01SM002?000\x03"),
            "\x01"
            "01C00042000\x03");
}

}  // namespace
}  // namespace tintbench::simulator
