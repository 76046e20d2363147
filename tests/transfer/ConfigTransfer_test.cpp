#include <gtest/gtest.h>

#include "transfer/TransferBench.h"

namespace {

using tintbench::testing::ScriptedPort;
using tintbench::testing::TransferBench;
using tintbench::testing::WireBlock;
namespace transfer = tintbench::transfer;
using Texts = std::vector<std::string>;

const std::string kNak = "\x15";
const std::string kAck = "\x06";
const std::string kEot = "\x04";
const std::string kCancel = std::string(8, '\x18') + std::string(8, '\x08');

std::string Aborted(const std::string& why) { return why + "\r\n\r\nTransfer file aborted !!!"; }

// Plays the machine's side of one block of a send behind its answer to the command.
void TakesFile(ScriptedPort& port) {
  port.Wait(0.1).Reply(kNak).Expect(WireBlock(1, TransferBench::kGroups)).Reply(kAck);
  port.Expect(kEot).Reply(kAck).Wait(0.1);
}

struct Outcome {
  const char* Name;
  const char* Firmware;
  std::function<void(ScriptedPort&)> Machine;
  std::string Box;  // empty: the send goes through, and the machine is linked up again
};

const std::vector<Outcome>& Outcomes() {
  static const std::vector<Outcome> kOutcomes{
      {"refused", "5.2", [](auto& port) { port.Reply("N"); }, "( COMMAND REFUSED )"},
      {"silent", "5.2", [](auto& port) { port.Wait(10.0); }, "( TIMEOUT ELAPSED )"},
      {"refuses the file", "5.2",
       [](auto& port) { port.Reply("A").Wait(0.1).Reply("\a").Expect(kCancel).Reply("K"); },
       "ERROR [255]"},
      {"not kept", "5.2",
       [](auto& port) {
         port.Reply("a");
         TakesFile(port);
         port.Reply("N");
       },
       "  ( TRANSMISSION FAIL )"},
      {"not acknowledged", "5.2",
       [](auto& port) {
         port.Reply("A");
         TakesFile(port);
         port.Wait(10.0);
       },
       "  ( TIMEOUT ELAPSED )"},
      {"cancelled and silent", "5.2",
       [](auto& port) { port.Reply("A").Wait(0.1).Reply("\x18\x18").Expect(kCancel).Wait(10.0); },
       "ERROR [3]  ( TIMEOUT ELAPSED )"},
      {"good", "5.2",
       [](auto& port) {
         port.Reply("A");
         TakesFile(port);
         port.Reply("k");
       },
       ""},
      {"old and silent", "3.0",
       [](auto& port) {
         port.Wait(10.0);
         TakesFile(port);
         port.Wait(10.0);
       },
       ""},
      {"old and refusing", "3.0",
       [](auto& port) {
         port.Reply("N");
         TakesFile(port);
         port.Reply("N");
       },
       ""},
      {"old, file refused", "3.0",
       [](auto& port) { port.Reply("?").Wait(0.1).Reply("\a").Expect(kCancel).Wait(10.0); },
       "ERROR [255]"},
  };
  return kOutcomes;
}

TEST(ConfigTransfer, EveryOutcomeOfASendHasItsBoxAndOnlyAGoodOneIsLinkedUp) {
  for (const Outcome& outcome : Outcomes()) {
    SCOPED_TRACE(outcome.Name);
    TransferBench bench(transfer::kConfigFace);
    bench.Status.FirmwareVersion = outcome.Firmware;
    bench.Files.Put(TransferBench::kSent, TransferBench::kGroups);
    bench.Running = TransferBench::kGroups;
    bench.Load();
    bench.Window.TxtFile.Text = TransferBench::kSent;
    bench.Port.Expect("#ct*");
    outcome.Machine(bench.Port);
    bench.Window.CommSend.Press();
    const bool good = outcome.Box.empty();
    EXPECT_EQ(bench.Boxes(), good ? Texts{} : Texts{Aborted(outcome.Box)});
    EXPECT_EQ(bench.Links, good ? Texts{"001:19200,N,8,1"} : Texts{});
    EXPECT_EQ(bench.Window.LblCompare.Caption.Get(),
              good ? "The machine runs what was sent: new.cfm." : "");
    EXPECT_TRUE(bench.Window.CommSend.Enabled);
    EXPECT_TRUE(bench.Window.TxtFile.IsShown());
    bench.Port.Finish();
  }
}

TEST(ConfigTransfer, SendsNothingThatCanNotBeSent) {
  struct Case {
    const char* File;
    const char* Content;
    const char* Box;
  };
  for (const Case& wrong : std::initializer_list<Case>{
           {"  ", "", "INCORRECT FILE PATHNAME."},
           {"NO FILE SELECTED", "", "INCORRECT FILE PATHNAME."},
           {"/app/none.cfm", "", "INCORRECT FILE PATHNAME."},
           {TransferBench::kSent, "@MOT 3 1,,2\r\n", "SOME EMPTY PARAMETERS IN FILE."}}) {
    SCOPED_TRACE(wrong.File);
    TransferBench bench(transfer::kConfigFace);
    bench.Files.Put(TransferBench::kSent, wrong.Content);
    bench.Load();
    bench.Window.TxtFile.Text = wrong.File;
    bench.Window.CommSend.Press();
    EXPECT_EQ(bench.Boxes(), Texts{Aborted(wrong.Box)});
    bench.Ports.CloseComPort();
    bench.Window.CommSend.Press();
    EXPECT_EQ(bench.Boxes(), Texts{Aborted("PORT NOT CONNECTED")});
  }
}

TEST(ConfigTransfer, AReceptionThatFailsLeavesTheFileAndAGoodOneLinksNothing) {
  for (const bool good : {true, false}) {
    TransferBench bench(transfer::kConfigFace);
    bench.Files.Put(TransferBench::kSent, "old");
    bench.Load();
    bench.Window.TxtFile.Text = TransferBench::kSent;
    bench.Port.Expect("#cr*").Reply("A").Expect(kNak).Reply(WireBlock(1, "new"));
    bench.Port.Expect(kAck);
    if (good) {
      bench.Port.Reply(kEot).Wait(0.06).Expect(kAck).Wait(0.1).Reply("K");
    } else {
      bench.Port.Reply("\x18\x18").Expect(kCancel).Wait(10.0);
    }
    bench.Window.CommRec.Press();
    EXPECT_EQ(bench.Boxes(), good ? Texts{} : Texts{Aborted("ERROR [4]  ( TIMEOUT ELAPSED )")});
    EXPECT_EQ(bench.Files.Get(TransferBench::kSent).substr(0, 3), good ? "new" : "old");
    EXPECT_TRUE(bench.Links.empty());
    EXPECT_EQ(bench.Window.LblEstat.Caption.Get(), good ? "FILE TRANSFER SUCCESSFUL" : "ERROR 4");
  }
}

TEST(ConfigTransfer, AWindowClosedInTheMiddleAbortsFirstAndClosesBehindIt) {
  TransferBench bench(transfer::kConfigFace);
  bench.Files.Put(TransferBench::kSent, TransferBench::kGroups);
  bench.Load();
  bench.Window.TxtFile.Text = TransferBench::kSent;
  bench.Port.Expect("#ct*").Reply("A").Wait(0.1).Reply(kNak).Expect(kCancel).Wait(11.0);
  bench.OnBlock = [&bench] {
    EXPECT_FALSE(bench.Window.CommSend.Enabled);
    EXPECT_TRUE(bench.Window.CommStop.IsUsable());
    if (bench.Clock.Now() > 0.55) bench.Screen.CloseByOperator(bench.Window);
  };
  bench.Window.CommSend.Press();
  EXPECT_EQ(bench.Boxes(), Texts{Aborted("ERROR [5]  ( TIMEOUT ELAPSED )")});
  EXPECT_FALSE(bench.Window.IsLoaded());
}

TEST(Reconnect, WaitsByTheGroupsOfTheFileOrAsLongAsTheOperatorSays) {
  struct Case {
    const char* Wait;
    int Groups;
    int Seconds;
    const char* Words;
  };
  for (const Case& wanted :
       std::initializer_list<Case>{{"", 3, 30, "wait for30 sec. groups: 3"},
                                   {"0", 3, 30, "wait for30 sec. groups: 3"},
                                   {"-5", 0, 0, ""},
                                   {"rubbish", 0, 0, ""},
                                   {"7", 0, 7, "wait for7 sec."},
                                   {"1e9", 0, 3600, "wait for3600 sec."},
                                   {"0", 99999, 320, "wait for320 sec. groups: 32"}}) {
    SCOPED_TRACE(wanted.Wait);
    TransferBench bench(transfer::kConfigFace);
    bench.Load();
    bench.Window.Txtwait.Text = wanted.Wait;
    double linked = -1;
    Texts words;
    transfer::TransferParts parts{
        bench.Screen,    bench.Files,  bench.Paths, bench.Port,  bench.Ports,
        bench.Commands,  bench.Engine, bench.Log,   bench.Facts, bench.Status,
        bench.Catalogue, bench,        {}};
    transfer::Reconnection reconnection(bench.Window, parts, [&] { linked = bench.Clock.Now(); });
    struct Watch final : tintbench::ui::Observer {
      void PropertyChanged(const tintbench::ui::PropertyBase& property) override {
        Seen.push_back(property.Text());
      }
      Texts Seen;
    } counted;
    bench.Window.Lblwait.AddObserver(counted);
    const double start = bench.Clock.Now();
    reconnection.Reconnect(wanted.Groups);
    EXPECT_NEAR(linked - start, wanted.Seconds, 1e-6);
    bench.Window.Lblwait.RemoveObserver(counted);
    if (wanted.Seconds > 0) {
      ASSERT_EQ(counted.Seen.size(), static_cast<std::size_t>(wanted.Seconds) + 2);
      EXPECT_EQ(counted.Seen.front(), std::to_string(wanted.Seconds + 1));
      EXPECT_EQ(counted.Seen.at(counted.Seen.size() - 2), "1");
    }
    EXPECT_FALSE(bench.Window.FrmWaitGroups.IsShown());
    EXPECT_TRUE(bench.Window.TxtFile.IsShown());
  }
}

}  // namespace
