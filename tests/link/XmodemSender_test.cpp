#include "link/XmodemSender.h"

#include "link/XmodemBench.h"

namespace tintbench::testing {
namespace {

using Script = void (*)(ScriptedPort& port);

const std::string kData = Sample(128);

struct Case {
  const char* Name;
  int Status;
  double Seconds;  // how long it takes
  Script Play;
};

void PlayGoodEnd(ScriptedPort& port) { port.Reply(kAck).Expect(kEot).Reply(kAck); }

const Case kCases[] = {
    {"checksum asked for", 0, 1,
     [](ScriptedPort& port) { PlayGoodEnd(port.Reply(kNak).Expect(Block(1, kData))); }},
    {"CRC asked for", 0, 1,
     [](ScriptedPort& port) { PlayGoodEnd(port.Reply("C").Expect(Block(1, kData, 128, true))); }},
    {"single CANs before the start", 0, 1,
     [](ScriptedPort& port) {
       PlayGoodEnd(port.Reply(kCan + "x" + kCan + kNak).Expect(Block(1, kData)));
     }},
    {"nine wrong characters before the start", 0, 1,
     [](ScriptedPort& port) {
       PlayGoodEnd(port.Reply("xxxxxxxxx" + kNak).Expect(Block(1, kData)));
     }},
    {"start in the last moment", 0, 59.5,
     [](ScriptedPort& port) { PlayGoodEnd(port.Wait(58.5).Reply(kNak).Expect(Block(1, kData))); }},
    {"ten wrong characters, however they come", 9, 1,
     [](ScriptedPort& port) { port.Reply("xxxxx" + kCan + "xxxxx"); }},
    {"no start", 9, 60, [](ScriptedPort& port) { port.Wait(59).Expect(kCancel); }},
    {"two CAN instead of a start", 3, 1,
     [](ScriptedPort& port) { port.Reply(kCan + "x" + kCan + kCan).Expect(kCancel); }},
    {"BEL instead of a start", 255, 1,
     [](ScriptedPort& port) { port.Reply(kBel).Expect(kCancel); }},
    {"block refused, then lost, then taken", 0, 61,
     [](ScriptedPort& port) {
       port.Reply(kNak).Expect(Block(1, kData)).Reply(kNak).Expect(Block(1, kData)).Wait(60);
       PlayGoodEnd(port.Expect(Block(1, kData)));
     }},
    {"one CAN and strange characters behind a block", 0, 1,
     [](ScriptedPort& port) {
       PlayGoodEnd(port.Reply(kNak).Expect(Block(1, kData)).Reply("C" + kBel + kCan + "x"));
     }},
    {"two CAN behind a block", 3, 1,
     [](ScriptedPort& port) {
       port.Reply(kNak).Expect(Block(1, kData)).Reply(kCan + kCan).Expect(kCancel);
     }},
    {"a block that is never acknowledged", 8, 661,
     [](ScriptedPort& port) {
       port.Reply(kNak);
       for (int i = 0; i < 11; ++i) port.Expect(Block(1, kData)).Wait(60);
       port.Expect(kCancel);
     }},
    {"a line that never rests behind a block", 8, 661,
     [](ScriptedPort& port) {
       port.Reply(kNak);
       for (int i = 0; i < 11; ++i)
         port.Expect(Block(1, kData)).Trickle(std::string(120, 'x'), 0.5);
       port.Expect(kCancel);
     }},
    {"a strange character in the last moment prolongs nothing", 0, 61,
     [](ScriptedPort& port) {
       port.Reply(kNak).Expect(Block(1, kData)).Wait(55).Reply("x").Wait(5);
       PlayGoodEnd(port.Expect(Block(1, kData)));
     }},
    {"a spoilt first block is asked for as at the start", 0, 2.1,
     [](ScriptedPort& port) {
       port.Reply("C").Expect(Block(1, kData, 128, true)).Wait(0.9).Reply("C").Wait(0.2);
       PlayGoodEnd(port.Reply("C").Expect(Block(1, kData, 128, true)));
     }},
    {"a C for a block with a checksum", 0, 6,
     [](ScriptedPort& port) {
       PlayGoodEnd(port.Reply(kNak).Expect(Block(1, kData)).Wait(5).Reply("C"));
     }},
    {"a block that is refused for ever", 8, 1,
     [](ScriptedPort& port) {
       port.Reply(kNak);
       for (int i = 0; i < 11; ++i) port.Expect(Block(1, kData)).Reply(kNak);
       port.Expect(kCancel);
     }},
    {"end refused", 0, 1,
     [](ScriptedPort& port) {
       port.Reply(kNak).Expect(Block(1, kData)).Reply(kAck).Expect(kEot).Reply(kNak);
       port.Expect(kEot).Reply("x").Expect(kEot).Reply(kAck);
     }},
    {"end not answered", 12, 61,
     [](ScriptedPort& port) { port.Reply(kNak).Expect(Block(1, kData)).Reply(kAck).Expect(kEot); }},
};

TEST(XmodemSender, EndsWithTheStatusOfWhatTheReceiverDoes) {
  for (const Case& one : kCases) {
    SCOPED_TRACE(one.Name);
    XmodemBench bench;
    one.Play(bench.Port.Wait(1));
    EXPECT_EQ(bench.Send(bench.Folder.Put("file", kData)), one.Status);
    EXPECT_NEAR(bench.Clock.Now(), one.Seconds, 0.001);
    EXPECT_EQ(bench.Window.LblEstat.Caption.Get(),
              one.Status == 0 ? "FILE TRANSFER SUCCESSFUL" : "ERROR " + std::to_string(one.Status));
    EXPECT_EQ(bench.Port.InputLen(), 0);
  }
}

TEST(XmodemSender, CutsAndPadsByTheSizeOfTheFile) {
  const std::size_t sizes[] = {0, 1, 127, 128, 129, 1023, 1024, 1025, 2048};
  for (const int blockSize : {128, 1024}) {
    for (const std::size_t size : sizes) {
      SCOPED_TRACE(std::to_string(size) + " bytes in blocks of " + std::to_string(blockSize));
      XmodemBench bench;
      const std::string data = Sample(size);
      bench.Port.Wait(1).Reply("C");
      const auto step = static_cast<std::size_t>(blockSize);
      int count = 0;
      for (std::size_t at = 0; at < size; at += step) {
        bench.Port.Expect(Block(++count, data.substr(at, step), step, true)).Reply(kAck);
      }
      bench.Port.Expect(kEot).Reply(kAck);
      EXPECT_EQ(bench.Send(bench.Folder.Put("file", data), blockSize), 0);
      const std::string blocks = std::to_string(count);
      EXPECT_EQ(bench.Window.Shown(), "FILE TRANSFER SUCCESSFUL|" + blocks + "/" + blocks + "|" +
                                          std::to_string(count * blockSize) + "|" +
                                          (size == 0 ? "0" : "100") + "|1" +
                                          (blockSize == 1024 ? "1" : "0"));
    }
  }
}

TEST(XmodemSender, CountsBlocksBeyond255) {
  XmodemBench bench;
  const std::string data = Sample(258 * 128);
  bench.Port.Wait(1).Reply(kNak);
  for (int i = 0; i < 258; ++i) {
    const std::string piece = data.substr(static_cast<std::size_t>(i) * 128, 128);
    bench.Port.Expect(Block(i + 1, piece)).Reply(kAck);
  }
  bench.Port.Expect(kEot).Reply(kAck);
  EXPECT_EQ(bench.Send(bench.Folder.Put("file", data)), 0);
}

TEST(XmodemSender, TakesACForNothingBehindLaterBlocks) {
  XmodemBench bench;
  bench.Port.Wait(1).Reply("C").Expect(Block(1, kData, 128, true)).Reply(kAck);
  bench.Port.Expect(Block(2, "x", 128, true)).Wait(5).Reply("C").Wait(1);
  PlayGoodEnd(bench.Port);
  EXPECT_EQ(bench.Send(bench.Folder.Put("file", kData + "x")), 0);
}

TEST(XmodemSender, ShowsEachSetbackAndTheShareThatIsDone) {
  XmodemBench bench;
  CaptionLog log(bench.Window.LblEstat);
  std::vector<int> percents;
  bench.OnEvents = [&] {
    const int percent = bench.Window.PrgbTransf.Value;
    if (percents.empty() || percents.back() != percent) percents.push_back(percent);
  };
  bench.Port.Wait(1)
      .Reply(kNak)
      .Expect(Block(1, kData))
      .Reply(kNak)
      .Expect(Block(1, kData))
      .Wait(60);
  bench.Port.Expect(Block(1, kData)).Reply(kAck);
  for (int i = 2; i <= 8; ++i) bench.Port.Expect(Block(i, kData)).Reply(kAck);
  bench.Port.Expect(kEot).Reply(kAck);
  std::string data;
  for (int i = 0; i < 8; ++i) data += kData;
  EXPECT_EQ(bench.Send(bench.Folder.Put("file", data)), 0);
  EXPECT_EQ(log.Captions, (std::vector<std::string>{"FILE TRANSFER IN PROGRESS", "ERROR 20",
                                                    "ERROR 8", "FILE TRANSFER SUCCESSFUL"}));
  EXPECT_EQ(percents, (std::vector<int>{0, 12, 25, 38, 50, 62, 75, 88}));
}

// Says that every file is longer than it is, as one that is cut while it is sent.
struct ShrinkingFiles final : base::StandardFileSystem {
  std::optional<std::uint64_t> Length(const std::string& path) const override {
    return StandardFileSystem::Length(path).value_or(0) + 1;
  }
};

TEST(XmodemSender, CancelsWhenTheFileCannotBeRead) {
  XmodemBench missing;
  missing.Port.Wait(1).Reply(kNak).Expect(kCancel);
  EXPECT_EQ(missing.Send(missing.Folder.Path("missing")), 6);

  XmodemBench folder;
  folder.Port.Wait(1).Reply(kNak).Expect(kCancel);
  EXPECT_EQ(folder.Send(folder.Folder.Path()), 6);

  XmodemBench shrinking(std::make_unique<ShrinkingFiles>());
  shrinking.Port.Wait(1).Reply(kNak).Expect(Block(1, kData)).Reply(kAck).Expect(kCancel);
  EXPECT_EQ(shrinking.Send(shrinking.Folder.Put("file", kData)), 6);
}

TEST(XmodemSender, EndsAtOnceWhenTheLineIsLost) {
  struct {
    int Status;
    Script Play;
  } const cases[] = {
      {9, [](ScriptedPort& port) { port.Disconnect(); }},
      {8, [](ScriptedPort& port) { port.Reply(kNak).Expect(Block(1, kData)).Disconnect(); }},
      {12,
       [](ScriptedPort& port) {
         port.Reply(kNak).Expect(Block(1, kData)).Reply(kAck).Expect(kEot).Wait(1).Disconnect();
       }},
  };
  for (const auto& one : cases) {
    XmodemBench bench;
    one.Play(bench.Port.Wait(1));
    EXPECT_EQ(bench.Send(bench.Folder.Put("file", kData)), one.Status);
    EXPECT_LT(bench.Clock.Now(), 3) << one.Status;
  }
}

}  // namespace
}  // namespace tintbench::testing
