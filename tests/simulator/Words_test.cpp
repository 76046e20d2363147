// The words that change the machine's state, each seen in the answers that follow, and its own
// work.
#include <gtest/gtest.h>

#include "simulator/Desk.h"
#include "simulator/Text.h"
#include "simulator/XmodemPeer.h"

namespace tintbench::simulator {
namespace {

// Things that happen one after another, with ";" between them: a command on the line = its answer,
// seconds that pass, or words told to the machine = what it says to them.
struct Story {
  const char* Name;
  const char* Events;
};

void Happen(Desk& desk, const std::string& what, const std::string& answer, const char* story) {
  if (const std::optional<double> seconds = WholeNumber(what)) return desk.Clock.Sleep(*seconds);
  const std::string said = what.front() == '#' ? desk.Ask(what, 0.1) : desk.Tell(what);
  EXPECT_EQ(said, answer) << story << ": " << what;
}

void Play(const Story& story) {
  Desk desk;
  for (const std::string& event : Split(story.Events, ';')) {
    const std::size_t equals = event.find(" = ");
    const bool answered = equals != std::string::npos;
    Happen(desk, std::string(Trim(event.substr(0, equals))),
           std::string(answered ? Trim(event.substr(equals + 3)) : ""), story.Name);
  }
}

const Story kWords[] = {
    {"an output is forced and freed",
     "output 9 on; output 14 off; #ur* = A1100; output 9 auto; #ur* = A1000"},
    {"one error goes, the others stay",
     "error 1103; error 8002; error 1103 off; #s* = E018002; error none; #s* = K00"},
    {"busy for a while", "busy 5; #s* = B00; 5; #s* = K00"},
    {"what is told for later comes in the order of its time",
     "after 9 error none; after 2 error 8002; #s* = K00; 3; #s* = E018002; 7; #s* = K00"},
    {"a fault for later", "after 1 fault refuse 1 #z*; #z* = A; 1; #z* = R; #z* = A"},
    {"a shelf that is stuck is given up",
     "shelf stuck; #eu* = A; 5; #up* = A100000; #ep* = A0000; #eu* = A; 20; #s* = K00; #eu* = A;"
     "10; #s* = E01800C; check shelf low; shelf free; 5; check shelf low; #eu* = A; 10;"
     "check shelf high"},
    {"a shelf gets stuck on its way, and goes on",
     "#eu* = A; 3; shelf stuck; 2; check shelf rising; shelf free; 5; check shelf high"},
    {"a bad valve is found when it opens",
     "valve 3 shorted; #a0103* = A0103; #s* = K00; 1; #s* = E010703; error none; valve 3 good;"
     "#g03* = A03; #a03* = A03; 1; #s* = K00"},
    {"a motor with a speed of its own",
     "motor 2 0; #f02800* = A02; 5; #o02* = A00000000000000000000; #s* = K00"},
    {"a motor without zero signal", "motor 2 no-zero; #f02001* = A02; #s* = K00; 1; #s* = E011202"},
    {"a changed configuration is what the machine goes by",
     "config @GEN * 9 1; #a0102* = R; config @SGA 30 10 0; #ez* = R; config @TAP 02 none;"
     "#do02* = R; #krP02* = R; #do03* =; 3; #s* = A03KK00"},
    {"wrong words",
     "output 17 on = usage: output N on|off|auto; output 1 = usage: output N on|off|auto;"
     "busy = usage: busy SECONDS; busy -1 = usage: busy SECONDS;"
     "error 1103 on = usage: error CODE [off]|none;"
     "motor 1 1000 = usage: motor N good|broken|no-zero|RPM;"
     "process sleeping = usage: process stirring|circulation|dispensing;"
     "config @GEN * 99 1 = usage: config @TAG N|* FIELD VALUE | @TAG N|* none;"
     "config @GEN * 9 1,2 = usage: config @TAG N|* FIELD VALUE | @TAG N|* none;"
     "config @XYZ * none = usage: config @TAG N|* FIELD VALUE | @TAG N|* none;"
     "after 3 = usage: after SECONDS WORDS...; after -1 plug = usage: after SECONDS WORDS...;"
     "after 1 nonsense = after: no word for later: nonsense;"
     "after 1 check valves none = after: no word for later: check;"
     "check = usage: check WHAT STATE...; check moods good = check: nothing has the name moods;"
     "#iu* = A018FE97D3000; #s* = K00"},
};

const Story kChecks[] = {
    {"what is on",
     "check valves none; #a0302* = A0302; check valves 02 03; check valves 02 = check valves: 02 "
     "03; #b16* = A16; check stirrings 16; #f09300* = A09; check motors 09; #z* = A;"
     "check valves none; check stirrings none; check motors 09 = check motors: none"},
    {"what is open",
     "check caps none; cap 3 open; cap 2 middle; check caps 02 03; shelf 100; check shelf between"},
    {"what was heard, in either case",
     "check heard none; #qq* = R; #L01* = A01; #g0102* = A0102; check heard #l01* #G0102*;"
     "check heard #qq* #l01* #g0102*; check heard #g0102* #l01* = check heard: #l01* #g0102*;"
     "check heard none = check heard: #qq* #l01* #g0102*; forget; check heard none"},
};

// What the machine does by itself is seen in its outputs and its status while it lasts, and what
// holds the processes ends it.
const Story kOwnWork[] = {
    {"every two hours all stirrings and motors work for half a minute",
     "#pm* = A; 7195; #s* = K00; 10; #s* = B00; #ur* = A3100;"
     "check stirrings 01 02 03 04 05 06 07 08 09 10 11 12 13 14 15 16;"
     "check motors 01 02 03 04 05 06 07 08 09 10 11 12; 30; #s* = K00; #ur* = A3000;"
     "check stirrings none; check motors none"},
    {"every half hour something is dispensed",
     "1803; #s* = B00; #ur* = A3100; #pb* = A; #s* = B00; 8; #s* = K00; check valves none"},
    {"timed processes are ended and held",
     "process circulation; process stirring; #pm* = A; #s* = B00; #pb* = A; #s* = K00;"
     "#ur* = A3000; check motors none; process circulation; 99999; #s* = K00; #pr* = A; 7210;"
     "check motors 01 02 03 04 05 06 07 08 09 10 11 12"},
    {"the master's orders are ended and held",
     "process dispensing; #s* = B00; #pm* = A; #s* = K00; check valves none; 3600; #s* = K00;"
     "#ps* = A; 1801; #s* = B00"},
    {"a reset lets them run again", "#pm* = A; reset; 30; process dispensing; #s* = B00"},
    {"a bad motor is found by the machine's own work", "motor 12 broken; 7300; #s* = E01110C"},
};

// A purge as it goes over the line, with a can that comes late and is taken away.
const Story kPurge = {
    "purge",
    "#z* = A; after 3 can on; #eu* = A; #ns* = AN; 10; #do01* =; 5; #ns* = A01KAK;"
    "#a0102* = A0102; #f01300* = A01; #s* = K00; check valves 01 02; check motors 01;"
    "check caps 01; can off; #ns* = AN; #l01* = A01; #g0102* = A0102; #dc01* =; 5; #s* = A01KK00;"
    "check heard #l01* #g0102* #dc01* #s*; check valves none; check motors none; check caps none"};

TEST(WordsTest, EachWordIsSeenInTheAnswersBehindIt) {
  for (const Story& story : kWords) Play(story);
}

TEST(WordsTest, ChecksTellTheTruthBehindTheAnswers) {
  for (const Story& story : kChecks) Play(story);
}

TEST(WordsTest, TheMachinesOwnWorkIsSeenAndHeld) {
  for (const Story& story : kOwnWork) Play(story);
}

TEST(WordsTest, APurgeGoesOnlyOnWithACanAndLeavesNothingOn) { Play(kPurge); }

TEST(WordsTest, WhatTheNewConfigurationDoesNotKnowIsOffToo) {
  Desk desk;
  desk.Ask("#a24*", 0.1);
  desk.Ask("#b16*", 0.1);
  desk.Ask("#f12300*", 0.1);
  desk.Ask("#ct*", 0.1);
  PeerSend(desk, "@GEN 1 24,12,16,0,3,1,1,3,7,\"SMALL\",1500\r\n");
  desk.Listen(40.0);
  for (const char* what : {"valves", "stirrings", "motors"}) {
    EXPECT_EQ(desk.Tell(std::string("check ") + what + " none"), "");
  }
  EXPECT_EQ(desk.Ask("#ur*", 0.1), "A3000");
}

}  // namespace
}  // namespace tintbench::simulator
