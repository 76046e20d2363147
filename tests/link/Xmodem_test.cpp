#include "link/Xmodem.h"

#include "link/XmodemBench.h"

namespace tintbench::testing {
namespace {

using Opening = ScriptedPort::Opening;

const std::string kData = Sample(300);

TEST(Xmodem, NeedsABoundAndOpenPort) {
  XmodemBench bench;
  const std::string file = bench.Folder.Put("file", kData);
  bench.Port.PortOpen(false);
  EXPECT_EQ(bench.Send(file), -1);
  EXPECT_EQ(bench.Engine.XmodemReceiveQuiet(file), -1);
  bench.Port.PortOpen(true);
  EXPECT_EQ(bench.Receive(file), -1) << "the quiet reception has dropped the port";
  EXPECT_EQ(bench.Window.Shown(), "|/||0|--");
  EXPECT_EQ(bench.Folder.Get("file"), kData);
}

TEST(Xmodem, RunsOneTransferAtATime) {
  XmodemBench bench;
  const std::string file = bench.Folder.Put("file", "x");
  int inner = 0;
  bench.OnEvents = [&] { inner = bench.Send(file) + bench.Engine.XmodemReceiveQuiet(file); };
  bench.Port.Wait(1).Reply(kNak).Expect(Block(1, "x")).Reply(kAck).Expect(kEot).Reply(kAck);
  EXPECT_EQ(bench.Send(file), 0);
  EXPECT_EQ(inner, -2);
  EXPECT_EQ(bench.Window.LblEstat.Caption.Get(), "FILE TRANSFER SUCCESSFUL");
}

TEST(Xmodem, ReadsNothingBehindATransferAndLeavesThePortAsItWas) {
  base::VirtualClock clock;
  ScriptedPort port(clock);
  port.InputLen(7);
  port.Reply("left over");
  EXPECT_TRUE(port.WaitForInput(0));
  port.Expect(kNak).Reply(Block(1, "x")).Expect(kAck).Reply(kCan + kCan + "A").Expect(kCancel);
  base::StandardFileSystem files;
  const ScratchFolder folder;
  link::Xmodem engine(port, clock, files, {.AppPath = folder.Path()});
  engine.XmodemBind();
  EXPECT_EQ(engine.XmodemTransfer(link::kXmodemReceive, 128, "nowhere"), 4);
  EXPECT_EQ(port.InputLen(), 7);
  EXPECT_EQ(port.Unread(), "A");
}

TEST(Xmodem, ReceivesQuietly) {
  XmodemBench bench;
  CaptionLog log(bench.Window.LblEstat);
  bench.Port.Expect(kNak).Reply(Block(1, "x")).Expect(kAck).Reply(kEot).Expect(kAck);
  EXPECT_EQ(bench.Engine.XmodemReceiveQuiet(bench.Folder.Path("file")), 0);
  EXPECT_EQ(bench.Folder.Get("file").size(), 128U);
  EXPECT_EQ(bench.Window.Shown(), "|/||0|--");
  EXPECT_TRUE(log.Captions.empty());

  bench.Engine.XmodemBind(bench.Window.Display());
  bench.Port.Expect(kNak).Reply(kBel);
  EXPECT_EQ(bench.Receive(bench.Folder.Path("file")), 255);
  EXPECT_EQ(bench.Window.LblEstat.Caption.Get(), "ERROR 255");
}

TEST(Xmodem, ReopensThePortAfterAnAbort) {
  struct {
    link::XmodemDirection Direction;
    bool Chosen;  // a port has been chosen in the window
    Opening Expected;
  } const cases[] = {
      {link::kXmodemSend, true, {3, "9600,N,8,1", true}},
      {link::kXmodemSend, false, {1, "19200,N,8,1", true}},
      {link::kXmodemReceive, true, {3, "9600,N,8,1", true}},
      {link::kXmodemReceive, false, {1, "19200,N,8,1", true}},
  };
  for (const auto& one : cases) {
    XmodemBench bench;
    if (one.Chosen) {
      bench.Engine.XmodemBind(bench.Window.Display(), [] {
        return link::PortSelection{3, "9600,N,8,1"};
      });
    }
    bench.Port.InBufferSize(2000);
    bench.OnEvents = [&] {
      if (bench.Engine.State().TransferredBlocks == 1) bench.Engine.XmodemAbort();
    };
    if (one.Direction == link::kXmodemSend) {
      bench.Port.Wait(1)
          .Reply(kNak)
          .Expect(Block(1, kData.substr(0, 128)))
          .Reply(kAck)
          .Expect(kCancel);
    } else {
      bench.Port.Expect(kNak).Reply(Block(1, kData)).Expect(kAck).Reply(Block(2, kData));
      bench.Port.Expect(kCancel);
    }
    const std::string file = bench.Folder.Put("file", kData);
    EXPECT_EQ(bench.Engine.XmodemTransfer(one.Direction, 128, file), 5);
    EXPECT_EQ(bench.Port.Openings, (std::vector<Opening>{one.Expected}));
    EXPECT_EQ(bench.Port.InBufferSize(), 1048);
    EXPECT_EQ(bench.Port.InputLen(), 0);
    EXPECT_EQ(bench.Folder.Get("file"), kData);
    EXPECT_EQ(bench.Window.LblEstat.Caption.Get(), "ERROR 5");
    EXPECT_FALSE(bench.Engine.State().XmodemAbortFlag);
  }
}

TEST(Xmodem, SurvivesAPortThatCannotBeReopened) {
  XmodemBench bench;
  bench.Port.CanOpen = [](int, const std::string&) { return false; };
  bench.OnEvents = [&] { bench.Engine.XmodemAbort(); };
  bench.Port.Expect(kCancel);
  const std::string file = bench.Folder.Put("file", kData);
  EXPECT_EQ(bench.Send(file), 5);
  EXPECT_EQ(bench.Send(file), -1);
}

TEST(Xmodem, FeelsTheOperatorInEveryWaitWithinHalfASecond) {
  using Script = void (*)(ScriptedPort & port);
  const std::string first = Block(1, "x");
  struct {
    const char* Wait;
    link::XmodemDirection Direction;
    Script Play;
  } const cases[] = {
      {"for a receiver", link::kXmodemSend, [](ScriptedPort&) {}},
      {"for the answer to a block", link::kXmodemSend,
       [](ScriptedPort& port) { port.Reply(kNak).Expect(Block(1, "x")); }},
      {"on a line that never rests behind a block", link::kXmodemSend,
       [](ScriptedPort& port) {
         port.Reply(kNak).Expect(Block(1, "x")).Reply(std::string(99, 'x'));
       }},
      {"for the answer to the end", link::kXmodemSend,
       [](ScriptedPort& port) { port.Reply(kNak).Expect(Block(1, "x")).Reply(kAck).Expect(kEot); }},
      {"for a sender", link::kXmodemReceive, [](ScriptedPort& port) { port.Expect(kNak); }},
      {"for the rest of a head", link::kXmodemReceive,
       [](ScriptedPort& port) { port.Expect(kNak).Reply("\x01"); }},
      {"for the rest of a block", link::kXmodemReceive,
       [](ScriptedPort& port) { port.Expect(kNak).Reply("\x01\x01\xFEx"); }},
      {"for the next block", link::kXmodemReceive,
       [](ScriptedPort& port) { port.Expect(kNak).Reply(Block(1, "x")).Expect(kAck); }},
      {"for the second CAN", link::kXmodemReceive,
       [](ScriptedPort& port) { port.Expect(kNak).Reply(kCan); }},
      {"on a line that never rests behind a bad block", link::kXmodemReceive,
       [](ScriptedPort& port) { port.Expect(kNak).Reply("\x01xx"); }},
      {"on a line that never rests behind a word", link::kXmodemReceive,
       [](ScriptedPort& port) { port.Expect(kNak).Reply("x"); }},
  };
  for (const auto& one : cases) {
    for (const double pressed : {1.3, 1.9}) {
      SCOPED_TRACE(one.Wait);
      XmodemBench bench;
      bench.OnEvents = [&] {
        if (bench.Clock.Now() >= pressed) bench.Engine.XmodemAbort();
      };
      one.Play(bench.Port.Wait(one.Direction == link::kXmodemSend ? 1 : 0));
      const bool rests = std::string_view(one.Wait).find("never") == std::string_view::npos;
      const double silence = pressed - (one.Direction == link::kXmodemSend ? 1 : 0);
      if (rests)
        bench.Port.Wait(silence);
      else
        bench.Port.Trickle(std::string(static_cast<std::size_t>(silence / 0.3), 'x'), 0.3);
      const std::string file = bench.Folder.Put("file", "x");
      bench.Port.Expect(kCancel);
      EXPECT_EQ(bench.Engine.XmodemTransfer(one.Direction, 128, file), 5);
      EXPECT_GE(bench.Clock.Now(), pressed);
      EXPECT_LE(bench.Clock.Now(), pressed + 0.5);
    }
  }
}

TEST(Xmodem, AnAbortOfYesterdayDoesNotStopTheNextTransfer) {
  XmodemBench bench;
  bench.Engine.XmodemAbort();
  bench.Port.Wait(1).Reply(kNak).Expect(Block(1, "x")).Reply(kAck).Expect(kEot).Reply(kAck);
  EXPECT_EQ(bench.Send(bench.Folder.Put("file", "x")), 0);
}

TEST(Xmodem, TracesEachCharacterAtLevelSevenAlone) {
  XmodemBench bench;
  bench.DebugLevel = 7;
  bench.Folder.Put("xmdebug.log", "of an earlier transfer");
  bench.Port.Expect(kNak).Wait(0.25).Reply("x").Expect(kNak).Wait(10).Expect(kNak).Reply(kBel);
  EXPECT_EQ(bench.Receive(bench.Folder.Path("file")), 255);
  const std::string trace =
      "(S=0)(\x15)\r\n[R=0.25][x]\r\n(S=1.25)(\x15)\r\n(S=11.25)(\x15)\r\n[R=11.25][\x07]\r\n";
  EXPECT_EQ(bench.Folder.Get("xmdebug.log"), trace);
  for (const int level : {0, 3, 6, 8, 15}) {
    bench.DebugLevel = level;
    bench.Port.Expect(kNak).Reply(kBel);
    EXPECT_EQ(bench.Receive(bench.Folder.Path("file")), 255);
  }
  EXPECT_EQ(bench.Folder.Get("xmdebug.log"), trace);
}

TEST(Xmodem, TracesEveryCharacterOfABlockAndACancel) {
  XmodemBench bench;
  bench.DebugLevel = 7;
  bench.Port.Wait(1).Reply(kNak).Expect(Block(1, "\r\n")).Reply(kCan + kCan).Expect(kCancel);
  EXPECT_EQ(bench.Send(bench.Folder.Put("file", "\r\n")), 3);
  std::string trace = "[R=1][\x15]\r\n";
  for (const char sent : Block(1, "\r\n")) trace += std::string("(S=1)(") + sent + ")\r\n";
  trace += "[R=1][\x18]\r\n[R=1][\x18]\r\n";
  for (const char sent : kCancel) trace += std::string("(S=1)(") + sent + ")\r\n";
  EXPECT_EQ(bench.Folder.Get("xmdebug.log"), trace);
}

TEST(Xmodem, ATraceThatCannotBeWrittenDisturbsNothing) {
  XmodemBench bench;
  bench.DebugLevel = 7;
  std::filesystem::create_directory(bench.Folder.Path("xmdebug.log"));
  bench.Port.Wait(1).Reply(kNak).Expect(kEot).Reply(kAck);
  EXPECT_EQ(bench.Send(bench.Folder.Put("file", "")), 0);
}

TEST(XmodemReport, FollowsTheStatusAndLeavesAloneWhatIsNotTold) {
  TransferWindow window;
  link::XmodemReport report;
  report.ReportStatus(0);  // without a display nothing happens
  report.Bind(window.Display());
  const struct {
    int Status;
    link::XmodemProgress Progress;
    const char* Shown;
  } steps[] = {
      {-100, {}, "FILE TRANSFER IN PROGRESS|/||0|--"},
      {-101, {1, 4, 1024, 25, 0, 1}, "FILE TRANSFER IN PROGRESS|1/4|1024|25|01"},
      {-101, {.Block = 2, .Crc = 1}, "FILE TRANSFER IN PROGRESS|2/4|1024|25|11"},
      {20, {.Size1024 = 0}, "ERROR 20|2/4|1024|25|10"},
      {-101, {.Bytes = 0, .Percent = 0}, "ERROR 20|2/4|0|0|10"},
      {255, {}, "ERROR 255|2/4|0|0|10"},
      {-99, {}, "|2/4|0|0|10"},
      {0, {}, "FILE TRANSFER SUCCESSFUL|2/4|0|0|10"},
  };
  for (const auto& step : steps) {
    report.ReportStatus(step.Status, step.Progress);
    EXPECT_EQ(window.Shown(), step.Shown) << step.Status;
  }
  report.Unbind();
  report.ReportStatus(3, {9, 9, 9, 9, 0, 1});
  EXPECT_EQ(window.Shown(), steps[7].Shown);
}

}  // namespace
}  // namespace tintbench::testing
