// Each fault of machine and line, during link-up, a transaction, and a transfer in each direction:
// the state it ends in, what the operator is told, what is in the file, what went over the line,
// and that all works again afterwards.
#include <gtest/gtest.h>

#include "link/LineBench.h"
#include "shell/TestProgram.h"

namespace tintbench::testing {
namespace {

// Three blocks of 128 bytes.
const std::string kConfiguration = ConfigurationOf(300, "HERE");
const std::string kOther = ConfigurationOf(310, "THERE");
constexpr std::size_t kBlock = 133;  // with its head and CRC
constexpr std::size_t kSound = 3 * kBlock + 1;
constexpr std::size_t kCancel = 16;
constexpr std::size_t kCommands = 8;  // "#jf*" and "#cr*"
constexpr int kNotStarted = LineBench::kNotStarted;

constexpr const char* kNoVersion = "4) MACHINE IS CONNECTED BUT IT WAS IMPOSSIBLE";
constexpr const char* kSilent = "SERIAL PORT OPEN, BUT MACHINE NOT CONNECTED.";
constexpr const char* kUnread = "BUT IT WAS IMPOSSIBLE TO READ THE MACHINE CONFIGURATION !!";
constexpr const char* kWrong = "BUT THE MACHINE CONFIGURATION WAS WRONG!!";

enum class Content { Old, New, Corrupt };
using enum Content;

struct LinkEnd {
  int State;
  std::vector<std::string> Boxes;  // a piece of each
  Content File;
  std::size_t Sent;
};
struct AnswerEnd {
  std::string Text;  // "?" stands for any character, "~" at the end for as many as the buffer holds
  double Seconds;
};
struct TransferEnd {
  int Status;
  Content File;
  std::size_t Sent;
  std::size_t More = 0;  // so many bytes more may be sent: each that comes asks for an end again
};

// The words may hold several faults, parted by ";". "@x" is a byte in the middle of the first
// block, in a transaction the first byte of the answer.
struct FaultCase {
  std::string Words;
  LinkEnd Link;
  AnswerEnd Answer;
  TransferEnd Receive;
  TransferEnd Send;
};

const LinkEnd kLinked{link::kConfigKnown, {}, New, kCommands + 5};
const LinkEnd kUnheard{link::kPortOpen, {kNoVersion, kSilent}, Old, 4};
LinkEnd Unread(std::size_t sent) { return {link::kMachineHeard, {kUnread}, Old, kCommands + sent}; }
LinkEnd Linked(std::size_t sent) { return {link::kConfigKnown, {}, New, kCommands + sent}; }
const AnswerEnd kAnswered{"A0102", 0.3};
const TransferEnd kReceived{0, New, 5};
const TransferEnd kSent{0, New, kSound};
const TransferEnd kRefused{kNotStarted, Old, 0};
const TransferEnd kSentAgain{0, New, kSound + kBlock};  // one block twice

const std::vector<FaultCase> kCases{
    {"none", kLinked, kAnswered, kReceived, kSent},
    // of an answer
    {"silent", kUnheard, {"", 5.1}, kRefused, kRefused},
    {"late 3", kLinked, {"A0102", 3.3}, kReceived, kSent},
    {"late 9", kUnheard, {"", 5.1}, kRefused, kRefused},
    {"short 1", Unread(0), {"A010", 5.1}, kRefused, kRefused},
    {"long 1", kLinked, {"A0102X", 5.1}, kReceived, kSent},
    {"twice", kLinked, {"A0102A0102", 5.1}, kReceived, kSent},
    {"pause 0.5", kLinked, {"A0102", 0.6}, kReceived, kSent},
    {"refuse", kUnheard, {"R", 5.1}, kRefused, kRefused},
    {"fail", kLinked, kAnswered, kReceived, kSent},
    {"echo", kLinked, {"A9102", 0.3}, kReceived, kSent},
    {"foreign", kUnheard, {"K00", 5.1}, kRefused, kRefused},
    // of a transfer
    {"cancel 2",
     Unread(2 + kCancel),
     kAnswered,
     {4, Old, 2 + kCancel},
     {3, Old, 2 * kBlock + kCancel}},
    {"one-can 2", kLinked, kAnswered, kReceived, kSent},
    {"bel 1", Unread(1), kAnswered, {255, Old, 1}, {255, Old, kCancel}},
    {"bel 2", Unread(2), kAnswered, {255, Old, 2}, {8, Old, 11 * kBlock + kCancel}},
    {"stall 2", Unread(12), kAnswered, {10, Old, 12}, {8, Old, 12 * kBlock + kCancel}},
    {"bad-block 2", Linked(6), kAnswered, {0, New, 6}, kSentAgain},
    {"bad-complement 2", Linked(6), kAnswered, {0, New, 6}, kSentAgain},
    {"skip-block 2",
     Unread(2 + kCancel),
     kAnswered,
     {17, Old, 2 + kCancel},
     {3, Old, 3 * kBlock + kCancel}},
    {"repeat-block 2", Linked(6), kAnswered, {0, New, 6}, kSentAgain},
    {"nak 2", kLinked, kAnswered, kReceived, kSentAgain},
    {"lose-ack 2", Linked(6), kAnswered, {0, New, 6}, kSentAgain},
    {"double-ack 2", kLinked, kAnswered, kReceived, kSent},
    {"lose-eot 1", kLinked, kAnswered, kReceived, {0, New, kSound + 1}},
    {"lose-eot 0", Unread(9 + kCancel), kAnswered, {4, Old, 9 + kCancel}, {12, Old, kSound + 22}},
    {"nak-eot 1", kLinked, kAnswered, kReceived, {0, New, kSound + 1}},
    {"no-start", Unread(10), kAnswered, {10, Old, 10}, {9, Old, kCancel}},
    {"no-end", {link::kMachineHeard, {kUnread}, New, kCommands + 5}, kAnswered, kReceived, kSent},
    {"corrupt-config",
     {link::kConfigReceived, {kWrong}, Corrupt, kCommands + 5},
     kAnswered,
     {0, Corrupt, 5},
     kSent},
    // of the line
    {"drop @x", Linked(6), {"0102", 5.1}, {0, New, 6}, kSentAgain},
    {"garble @x", Linked(6), {"?0102", 0.3}, {0, New, 6}, kSentAgain},
    {"flip @x", Linked(6), {"?0102", 0.3}, {0, New, 6}, kSentAgain},
    {"insert @x", Linked(6), {"A?0102", 5.1}, {0, New, 6}, kSentAgain},
    {"double @x", Linked(6), {"AA0102", 5.1}, {0, New, 6}, kSentAgain},
    {"drop @2", {link::kPortOpen, {kNoVersion, kSilent}, Old, 4}, {"R", 5.1}, kRefused, kRefused},
    {"babble @1", kUnheard, {"U~", 5.1}, kRefused, kRefused},
    // A sender that gives up in the babble isn't believed.
    {"babble @x", Unread(13), {"A0102U~", 5.1}, {10, Old, 13}, {0, New, kSound, 20}},
    {"bad-block 1;babble @x",
     Unread(1 + kCancel),
     {"A0102U~", 5.1},
     {10, Old, 1 + kCancel},
     {0, New, kSound + kBlock, 20}},
    {"stall 1;babble @x",
     Unread(1 + kCancel),
     {"A0102U~", 5.1},
     {10, Old, 1 + kCancel},
     {8, Old, 11 * kBlock + kCancel}},
    {"reset @x", Unread(11), {"A", 5.1}, {10, Old, 11}, {8, Old, 11 * kBlock + kCancel}},
    {"unplug @x", Unread(1), {"", 0.3}, {10, Old, 1}, {8, Old, kBlock}},
    {"unplug @x;replug 3", Unread(1), {"", 0.3}, {10, Old, 1}, {8, Old, kBlock}},
};

void PrintTo(const FaultCase& one, std::ostream* out) { *out << one.Words; }

class LineFaults : public ::testing::TestWithParam<FaultCase> {};

void TellFaults(simulator::Machine& machine, std::string words, const std::string& place) {
  const std::size_t mark = words.find("@x");
  if (mark != std::string::npos) words.replace(mark, 2, "@" + place);
  for (std::size_t at = 0; at <= words.size();) {
    const std::size_t end = std::min(words.find(';', at), words.size());
    EXPECT_EQ(machine.Tell("fault " + words.substr(at, end - at)), "");
    at = end + 1;
  }
}

std::string FileOf(Content content) {
  if (content == Old) return LineBench::kOld;
  std::string text = kConfiguration;
  if (content == Corrupt) text.insert(text.find('\n') + 1, "@@@@ 1 1\r\n");
  return Padded(text, 128);
}

TEST_P(LineFaults, InALinkUpEndInTheirStateAndAreTold) {
  const LinkEnd& wanted = GetParam().Link;
  TestProgram test({{1, simulator::MachineOptions{.Configuration = kConfiguration}}});
  const std::string file = "CONFIGUR/DEFSLAVE.CFR";
  const auto link = [&] {
    std::string port = "001";
    std::string settings = link::kServiceSettings;
    return test.Program->Linker().LinkMachine(port, settings);
  };
  bool tried = false;
  test.Screen.OnMainWindow = [&] {
    tried = true;
    test.MainWindow().MnuPar.Press();  // so that the window doesn't poll the machine meanwhile
    ASSERT_TRUE(test.Screen.Boxes.empty());
    test.Folder.Put(file, LineBench::kOld);
    test.Port->Sent = 0;
    TellFaults(test.Machine(), GetParam().Words, "61");
    const double start = test.Clock.Now();
    EXPECT_EQ(link(), wanted.State);
    EXPECT_LT(test.Clock.Now() - start, 150.0);
    EXPECT_EQ(test.Port->Sent, wanted.Sent);
    EXPECT_EQ(test.Folder.Get(file), FileOf(wanted.File));
    ASSERT_EQ(test.Screen.Boxes.size(), wanted.Boxes.size());
    for (std::size_t i = 0; i < wanted.Boxes.size(); ++i) {
      EXPECT_NE(test.Screen.Boxes[i].Text.find(wanted.Boxes[i]), std::string::npos)
          << test.Screen.Boxes[i].Text;
    }
    test.Machine().Tell("fault none");
    test.Machine().Tell("plug");
    test.Clock.Sleep(120.0);
    EXPECT_EQ(link(), link::kConfigKnown);
    EXPECT_EQ(test.Folder.Get(file), FileOf(New));
  };
  test.Run("PORT(1:)");
  EXPECT_TRUE(tried);
}

bool Matches(const std::string& answer, std::string pattern) {
  if (pattern.ends_with('~')) {
    pattern.pop_back();
    return answer.starts_with(pattern) && answer.size() == 1048;
  }
  if (answer.size() != pattern.size()) return false;
  for (std::size_t i = 0; i < answer.size(); ++i) {
    const bool same = answer[i] == pattern[i];
    if (pattern[i] == '?' ? answer[i] == "A0102"[i] : !same) return false;
  }
  return true;
}

TEST_P(LineFaults, InATransactionGiveBackWhatCameAndEndInTime) {
  const AnswerEnd& wanted = GetParam().Answer;
  LineBench bench;
  TellFaults(bench.Machine, GetParam().Words, "8");
  const double start = bench.Clock.Now();
  std::string answer;
  {
    const link::CommandCall call(bench.Commands, link::CommandId::ValvesOn, "0102");
    answer = bench.Line.SendCommand(bench.View, link::CommandId::ValvesOn);
  }
  EXPECT_TRUE(Matches(answer, wanted.Text)) << answer.substr(0, 40);
  EXPECT_NEAR(bench.Clock.Now() - start, wanted.Seconds, 0.001);
  EXPECT_EQ(bench.Port.Written, "#a0102*");
  EXPECT_TRUE(bench.Screen.Boxes.empty());
  bench.Mend();
  EXPECT_EQ(bench.Line.SendCommand(bench.View, link::CommandId::FirmwareVersion), "A V 5.2");
}

TEST_P(LineFaults, InAReceptionLeaveTheOldFileOrTheNewOneWhole) {
  const TransferEnd& wanted = GetParam().Receive;
  LineBench bench({.Configuration = kConfiguration});
  TellFaults(bench.Machine, GetParam().Words, "50");
  EXPECT_EQ(bench.Receive(), wanted.Status);
  EXPECT_EQ(bench.Port.Sent, wanted.Sent);
  EXPECT_LT(bench.Clock.Now(), 150.0);
  EXPECT_EQ(bench.Files.Get(LineBench::kFile), FileOf(wanted.File));
  bench.Mend();
  EXPECT_EQ(bench.Receive(), 0);
  EXPECT_EQ(bench.Files.Get(LineBench::kFile), FileOf(New));
  EXPECT_EQ(bench.Files.Size(), FileOf(New).size()) << "nothing else is left";
}

TEST_P(LineFaults, InASendingLeaveTheMachineItsConfigurationOrTheNewOne) {
  const TransferEnd& wanted = GetParam().Send;
  LineBench bench({.Configuration = kConfiguration});
  bench.Files.Put(LineBench::kSource, kOther);
  TellFaults(bench.Machine, GetParam().Words, "50");
  EXPECT_EQ(bench.Send(), wanted.Status);
  EXPECT_GE(bench.Port.Sent, wanted.Sent);
  EXPECT_LE(bench.Port.Sent, wanted.Sent + wanted.More);
  EXPECT_LT(bench.Clock.Now(), 12 * 60.0 + 10);
  EXPECT_EQ(bench.Files.Get(LineBench::kSource), kOther);
  bench.Mend();
  EXPECT_EQ(bench.Machine.ConfigurationText(), wanted.File == New ? kOther : kConfiguration);
  EXPECT_EQ(bench.Send(), 0);
  bench.Mend();
  EXPECT_EQ(bench.Machine.ConfigurationText(), kOther);
}

INSTANTIATE_TEST_SUITE_P(All, LineFaults, ::testing::ValuesIn(kCases), [](const auto& each) {
  std::string name = each.param.Words;
  for (char& letter : name) letter = std::isalnum(letter) != 0 ? letter : '_';
  return name;
});

// Each fault of the machine is tried above, but those that speak of chance alone.
TEST(LineFaultsTable, NamesEveryFault) {
  for (const simulator::FaultKind& kind : simulator::FaultKinds()) {
    const bool tried = std::any_of(kCases.begin(), kCases.end(), [&](const FaultCase& one) {
      return (";" + one.Words + " ").find(";" + std::string(kind.Name)) != std::string::npos;
    });
    EXPECT_TRUE(tried) << kind.Name;
  }
}

TEST(DayClock, MayJumpAnHourWhileALinkUpWaits) {
  const auto run = [](long jump) {
    TestProgram test({{1, simulator::MachineOptions{.Configuration = kConfiguration}}});
    test.Machine().Tell("fault late 2");
    test.Machine().Tell("fault stall 2");
    test.Port->OnWriting = [&test, jump] { test.Clock.TurnDayClock(jump); };
    double linked = 0;
    test.Screen.OnMainWindow = [&] { linked = test.Clock.Now(); };
    test.Run("PORT(1:)");
    const int hour = test.Clock.Local().Hour;
    return std::tuple(linked, test.Port->Written, test.Screen.Boxes.size(), hour);
  };
  const auto [linked, written, boxes, hour] = run(0);
  EXPECT_GT(linked, 100.0) << "the waits are long";
  for (const long jump : {3600L, -3600L}) {
    const auto [linkedToo, writtenToo, boxesToo, hourToo] = run(jump);
    EXPECT_EQ(linkedToo, linked);
    EXPECT_EQ(writtenToo, written);
    EXPECT_EQ(boxesToo, boxes);
    EXPECT_NE(hourToo, hour) << "the clock has jumped";
  }
}

}  // namespace
}  // namespace tintbench::testing
