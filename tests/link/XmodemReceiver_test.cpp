#include "link/XmodemReceiver.h"

#include "base/FailingFileSystem.h"
#include "link/XmodemBench.h"

namespace tintbench::testing {
namespace {

using Script = void (*)(ScriptedPort& port);

const std::string kData = Sample(128);
const std::string kMore = Sample(1024);
// No control characters, and a check that reads as an end of file.
const std::string kText = std::string(127, 't') + "x";
constexpr double kQuietEnd = 0.06;

// The first block of a transfer, taken and acknowledged.
ScriptedPort& PlayFirst(ScriptedPort& port) {
  return port.Expect(kNak).Reply(Block(1, kData)).Expect(kAck);
}

void PlayEnd(ScriptedPort& port) { port.Reply(kEot).Wait(kQuietEnd).Expect(kAck); }

// A block that has been asked for again. It might come twice, and one ACK is for both.
ScriptedPort& PlayAgain(ScriptedPort& port, const std::string& block) {
  return port.Expect(kNak).Reply(block).Wait(kQuietEnd).Expect(kAck);
}

// A block that must be asked for again, and is then good.
void PlayBad(ScriptedPort& port, const std::string& bad, double until) {
  PlayEnd(PlayAgain(PlayFirst(port).Reply(bad).Wait(until), Block(2, kData)));
}

// The start of that block is lost, and its number is the first that comes of it.
void PlayLostStart(ScriptedPort& port, int number) {
  PlayFirst(port);
  for (int block = 2; block < number; ++block) port.Reply(Block(block, kData)).Expect(kAck);
  port.Reply(Block(number, kText).substr(1)).Wait(1);
  PlayEnd(PlayAgain(port, Block(number, kText)));
}

struct Case {
  const char* Name;
  int Status;
  double Seconds;  // but for the quiet behind an end that is believed
  int Blocks;      // of 128 bytes that the file holds then, -1 for none at all
  Script Play;
};

const Case kCases[] = {
    {"one block", 0, 0, 1, [](ScriptedPort& port) { PlayEnd(PlayFirst(port)); }},
    {"a large block among small ones", 0, 0, 10,
     [](ScriptedPort& port) {
       PlayFirst(port)
           .Reply(Block(2, kMore, 1024))
           .Expect(kAck)
           .Reply(Block(3, kData))
           .Expect(kAck);
       PlayEnd(port);
     }},
    {"strange characters at the start", 0, 2 + kQuietEnd, 1,
     [](ScriptedPort& port) {
       port.Expect(kNak).Reply("x").Wait(1).Expect(kNak).Reply(kEot).Wait(1);
       PlayEnd(PlayAgain(port, Block(1, kData)));
     }},
    {"a sender that starts late", 0, 30 + kQuietEnd, 1,
     [](ScriptedPort& port) {
       for (int i = 0; i < 3; ++i) port.Expect(kNak).Wait(10);
       PlayEnd(PlayAgain(port, Block(1, kData)));
     }},
    {"slow characters", 0, 132 * 4.9, 1,
     [](ScriptedPort& port) {
       port.Expect(kNak).Trickle(Block(1, kData), 4.9).Expect(kAck);
       PlayEnd(port);
     }},
    {"a block that comes twice", 0, 0, 2,
     [](ScriptedPort& port) {
       PlayFirst(port).Reply(Block(1, kData)).Expect(kAck).Reply(Block(2, kData)).Expect(kAck);
       PlayEnd(port);
     }},
    // Another ACK would count for a block that was lost, and the next words would be for nothing.
    {"silence between blocks", 0, 20 + kQuietEnd, 2,
     [](ScriptedPort& port) {
       PlayEnd(PlayAgain(PlayFirst(port).Wait(10).Expect(kNak).Wait(10), Block(2, kData)));
     }},
    {"a sender that repeats a block when it is asked for it", 0, 10 + kQuietEnd, 2,
     [](ScriptedPort& port) {
       PlayEnd(PlayAgain(PlayFirst(port).Wait(10), Block(2, kData) + Block(2, kData)));
     }},
    {"a strange character before a block asks for nothing", 0, 0, 2,
     [](ScriptedPort& port) {
       PlayEnd(PlayFirst(port).Reply("x" + Block(2, kData)).Expect(kAck));
     }},
    // An ACK here would count for the block, and the end of file would come next.
    {"the start of the last block is lost", 0, 1 + kQuietEnd, 2,
     [](ScriptedPort& port) { PlayBad(port, Block(2, kText).substr(1), 1); }},
    {"the start of block 4 is lost, whose number reads as an end", 0, 1 + kQuietEnd, 4,
     [](ScriptedPort& port) { PlayLostStart(port, 4); }},
    {"the start of block 7 is lost, whose number reads as BEL", 0, 1 + kQuietEnd, 7,
     [](ScriptedPort& port) { PlayLostStart(port, 7); }},
    {"the start of block 24 is lost, whose number reads as CAN", 0, 1 + kQuietEnd, 24,
     [](ScriptedPort& port) { PlayLostStart(port, 24); }},
    {"CAN and BEL behind something strange", 0, 1 + kQuietEnd, 2,
     [](ScriptedPort& port) { PlayBad(port, "x" + kCan + kCan + kBel, 1); }},
    {"one CAN before a block", 0, 0, 2,
     [](ScriptedPort& port) {
       PlayEnd(PlayFirst(port).Reply(kCan + Block(2, kData)).Expect(kAck));
     }},
    {"an end that comes twice", 0, 1.059, 1,
     [](ScriptedPort& port) {
       PlayEnd(PlayFirst(port).Reply(kEot).Wait(0.059).Reply(kEot).Wait(1).Expect(kNak));
     }},
    {"wrong checksum", 0, 1 + kQuietEnd, 2,
     [](ScriptedPort& port) { PlayBad(port, Block(2, kData).replace(50, 1, "!"), 1); }},
    {"wrong complement, the rest is drained", 0, 1 + kQuietEnd, 2,
     [](ScriptedPort& port) { PlayBad(port, Block(2, kData).replace(2, 1, "!"), 1); }},
    {"a block that breaks off", 0, 6 + kQuietEnd, 2,
     [](ScriptedPort& port) { PlayBad(port, Block(2, kData).substr(0, 131), 6); }},
    {"nothing behind the header", 0, 6 + kQuietEnd, 2,
     [](ScriptedPort& port) { PlayBad(port, "\x02", 6); }},
    {"two CAN", 4, 0, -1,
     [](ScriptedPort& port) { PlayFirst(port).Reply(kCan + kCan).Expect(kCancel); }},
    {"two CAN, the second late", 4, 1.9, -1,
     [](ScriptedPort& port) {
       port.Expect(kNak).Reply(kCan).Wait(1.9).Reply(kCan).Expect(kCancel);
     }},
    {"one CAN", 13, 2, -1, [](ScriptedPort& port) { port.Expect(kNak).Reply(kCan); }},
    {"CAN and another character later", 13, 1.5, -1,
     [](ScriptedPort& port) { PlayFirst(port).Reply(kCan).Wait(1.5).Reply("\x01"); }},
    {"no sender", 10, 100, -1,
     [](ScriptedPort& port) {
       for (int i = 0; i < 10; ++i) port.Expect(kNak).Wait(10);
     }},
    {"a sender that has nothing to send", 10, 10, -1,
     [](ScriptedPort& port) {
       for (int i = 0; i < 10; ++i) port.Expect(kNak).Reply(kEot).Wait(1);
     }},
    {"a sender that falls silent", 10, 100, -1,
     [](ScriptedPort& port) {
       PlayFirst(port).Wait(10);
       for (int i = 0; i < 9; ++i) port.Expect(kNak).Wait(10);
     }},
    {"a sender that falls silent in a block", 10, 106, -1,
     [](ScriptedPort& port) {
       port.Expect(kNak).Reply("\x01\x01").Wait(6);
       for (int i = 0; i < 10; ++i) port.Expect(kNak).Wait(10);
     }},
    {"a line that never rests behind a bad block", 10, 100.2, -1,
     [](ScriptedPort& port) {
       port.Expect(kNak).Reply("\x01xx").Trickle(std::string(334, 'x'), 0.3).Expect(kCancel);
     }},
    {"a line that never rests before the first block", 10, 102, -1,
     [](ScriptedPort& port) {
       for (int i = 0; i < 10; ++i) port.Expect(kNak).Trickle(std::string(34, 'x'), 0.3);
     }},
    {"a block left out", 17, 0, -1,
     [](ScriptedPort& port) { PlayFirst(port).Reply(Block(3, kData)).Expect(kCancel); }},
    {"BEL instead of the first block", 255, kQuietEnd, -1,
     [](ScriptedPort& port) { port.Expect(kNak).Reply(kBel); }},
    {"BEL instead of the next block", 255, kQuietEnd, -1,
     [](ScriptedPort& port) { PlayFirst(port).Reply(kBel); }},
};

TEST(XmodemReceiver, EndsWithTheStatusOfWhatTheSenderDoes) {
  for (const Case& one : kCases) {
    SCOPED_TRACE(one.Name);
    XmodemBench bench;
    const std::string file = bench.Folder.Put("file", "earlier");
    one.Play(bench.Port);
    EXPECT_EQ(bench.Receive(file), one.Status);
    EXPECT_NEAR(bench.Clock.Now(), one.Seconds + (one.Status == 0 ? kQuietEnd : 0), 0.001);
    const std::string content = bench.Folder.Get("file");
    if (one.Blocks < 0) {
      EXPECT_EQ(content, "earlier");
    } else {
      EXPECT_EQ(content.size(), static_cast<std::size_t>(one.Blocks) * 128);
      EXPECT_TRUE(content.starts_with(kData));
      EXPECT_FALSE(bench.Files->FileExists(bench.Folder.Path("TMP.TMP")));
    }
    EXPECT_EQ(bench.Window.LblEstat.Caption.Get(),
              one.Status == 0 ? "FILE TRANSFER SUCCESSFUL" : "ERROR " + std::to_string(one.Status));
  }
}

TEST(XmodemReceiver, KeepsAllBytesAndCountsBlocksBeyond255) {
  XmodemBench bench;
  const std::string data = Sample(258 * 128);
  bench.Port.Expect(kNak);
  for (int i = 0; i < 258; ++i) {
    const std::string piece = data.substr(static_cast<std::size_t>(i) * 128, 128);
    bench.Port.Reply(Block(i + 1, piece)).Expect(kAck);
  }
  PlayEnd(bench.Port);
  EXPECT_EQ(bench.Receive(bench.Folder.Path("file")), 0);
  EXPECT_EQ(bench.Folder.Get("file"), data);
  EXPECT_EQ(bench.Window.Shown(), "FILE TRANSFER SUCCESSFUL|258/|33024|0|00");
}

TEST(XmodemReceiver, KeepsItsCaptionWhileABlockComesAgain) {
  XmodemBench bench;
  CaptionLog log(bench.Window.LblEstat);
  const std::string good = Block(2, kData);
  PlayFirst(bench.Port).Reply(good.substr(0, 9)).Wait(6).Expect(kNak);
  bench.Port.Reply(std::string(good).replace(1, 1, "!")).Wait(1).Expect(kNak);
  bench.Port.Reply(good.substr(0, 131) + "!").Wait(1);
  PlayEnd(PlayAgain(bench.Port, good));
  EXPECT_EQ(bench.Receive(bench.Folder.Path("file")), 0);
  EXPECT_EQ(log.Captions,
            (std::vector<std::string>{"FILE TRANSFER IN PROGRESS", "FILE TRANSFER SUCCESSFUL"}));
}

TEST(XmodemReceiver, LeavesTheEarlierFileWhenTheThirdBlockFails) {
  XmodemBench bench;
  const std::string file = bench.Folder.Put("file", "earlier");
  PlayFirst(bench.Port).Reply(Block(2, kData)).Expect(kAck).Reply(Block(3, kData).substr(0, 60));
  bench.Port.Disconnect();
  EXPECT_EQ(bench.Receive(file), 10);
  EXPECT_EQ(bench.Folder.Get("file"), "earlier");
  EXPECT_LT(bench.Clock.Now(), 3) << "a lost line needn't be waited for";
}

TEST(XmodemReceiver, SurvivesAnyFailureOfTheDisk) {
  const Script whole = [](ScriptedPort& port) { PlayEnd(PlayFirst(port)); };
  const struct {
    const char* Name;
    bool Lasting;
    int Status;
    Script Play;
  } cases[] = {
      {"scratch file can't be made", false, 7,
       [](ScriptedPort& port) { port.Expect(kNak).Reply("\x01").Expect(kCancel); }},
      {"disk full", false, 7,
       [](ScriptedPort& port) { port.Expect(kNak).Reply(Block(1, kData)).Expect(kCancel); }},
      {"disk full at the closing", false, 7,
       [](ScriptedPort& port) { PlayFirst(port).Reply(kEot).Expect(kCancel); }},
      {"device fails", false, 7, whole},
      {"no renaming from one device to another", false, 0, whole},
      {"neither renaming nor copying", true, 7, whole},
  };
  int failing = 0;
  for (const auto& one : cases) {
    SCOPED_TRACE(one.Name);
    failing += one.Lasting ? 0 : 1;
    XmodemBench bench(std::make_unique<FailingFileSystem>(failing, one.Lasting));
    const std::string file = bench.Folder.Put("file", "earlier");
    one.Play(bench.Port);
    EXPECT_EQ(bench.Receive(file), one.Status);
    EXPECT_EQ(bench.Folder.Get("file"), one.Status == 0 ? kData : "earlier");
  }
}

// No reception of the program asks for a CRC, so its check is tried without a transfer.
TEST(XmodemReceiver, ChecksACrc) {
  const std::string good = Block(7, kMore, 1024, true).substr(1);
  const struct {
    std::string Bytes;
    int Status;
  } cases[] = {
      {good, 0},
      {good.substr(0, good.size() - 1), 11},
      {good.substr(0, good.size() - 1) + "!", 15},
      {good.substr(0, good.size() - 2) + "!!", 15},
      {"\x07\xF8!" + good.substr(3), 15},
  };
  for (const auto& one : cases) {
    base::VirtualClock clock;
    base::StandardFileSystem files;
    ScriptedPort port(clock);
    port.InputLen(1);
    port.Reply(one.Bytes);
    link::XmodemSession session(port, clock, files, {});
    session.State.UseCrc = true;
    session.State.BlockSize = 1024;
    EXPECT_EQ(link::XmodemReceiver(session).ReadBlock(), one.Status);
  }
  std::uint32_t crc = 0;
  for (const char digit : std::string("123456789")) {
    crc = link::Crc16Update(crc, static_cast<unsigned char>(digit));
  }
  EXPECT_EQ(crc, 0x31C3U) << "the check value of CRC-16/XMODEM";
}

}  // namespace
}  // namespace tintbench::testing
