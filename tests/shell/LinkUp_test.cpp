// Link-up of the whole program with machines of all moods: what is reached, what is asked on the
// wire, which ports are tried and what the operator is told.
#include <gtest/gtest.h>

#include "link/LinkTexts.h"
#include "shell/TestProgram.h"

namespace tintbench {
namespace {

using simulator::MachineOptions;
using testing::TestProgram;

constexpr const char* kStop = "1) MACHINE IS NOT CONNECTED, or";
constexpr const char* kUnread = "BUT IT WAS IMPOSSIBLE TO READ THE MACHINE CONFIGURATION !!";
constexpr const char* kWrong = "BUT THE MACHINE CONFIGURATION WAS WRONG!!";
constexpr const char* kSilent = "SERIAL PORT OPEN, BUT MACHINE NOT CONNECTED.";
constexpr const char* kDefaultUsed = "DEFAULT FILE CONFIGURATION USED:";
constexpr const char* kSmallConfig = "@GEN 1 16,1,0,0,2,0,0,0,4,\"SMALL\",0\r\n";

struct LinkCase {
  std::string Name;
  std::vector<std::string> Words = {};  // told to the machine before the start
  std::string Firmware = "5.2";
  std::string CommandLine = {};
  bool WithDefault = false;
  int LinkState = link::kConfigKnown;
  int ConfigSource = link::kMachineConfig;
  std::vector<std::string> Boxes = {};  // a piece of each, in order
  std::string FirstWritten = "#jf*#cr*\x15";
};

void PrintTo(const LinkCase& test, std::ostream* out) { *out << test.Name; }

class LinkUpTable : public ::testing::TestWithParam<LinkCase> {};

TEST_P(LinkUpTable, ReachesItsStateAndSaysSo) {
  const LinkCase& wanted = GetParam();
  TestProgram test({{1, MachineOptions{.Firmware = wanted.Firmware}}});
  if (wanted.WithDefault) test.Folder.Put("DEFSLAVE.CFG", kSmallConfig);
  for (const std::string& words : wanted.Words) ASSERT_EQ(test.Machine().Tell(words), "");
  bool shown = false;
  test.Screen.OnMainWindow = [&] {
    shown = true;
    EXPECT_EQ(test.Program->Status().LinkState, wanted.LinkState);
    EXPECT_EQ(test.Program->Status().ConfigSource, wanted.ConfigSource);
  };
  EXPECT_EQ(test.Run(wanted.CommandLine), shell::Program::Result::Good);
  EXPECT_TRUE(shown);
  ASSERT_EQ(test.Screen.Boxes.size(), wanted.Boxes.size());
  for (std::size_t i = 0; i < wanted.Boxes.size(); ++i) {
    EXPECT_NE(test.Screen.Boxes[i].Text.find(wanted.Boxes[i]), std::string::npos)
        << test.Screen.Boxes[i].Text;
  }
  EXPECT_EQ(test.Port->Written.substr(0, wanted.FirstWritten.size()), wanted.FirstWritten);
}

INSTANTIATE_TEST_SUITE_P(
    Machines, LinkUpTable,
    ::testing::Values(LinkCase{.Name = "Good"},
                      LinkCase{.Name = "OldFirmware",
                               .Firmware = "3",
                               .LinkState = link::kMachineHeard,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {"FIRMWARE VERSION  ( V. 3 )", kUnread},
                               .FirstWritten = "#jf*"},
                      LinkCase{.Name = "OldFirmwareWithDefault",
                               .Firmware = "3",
                               .WithDefault = true,
                               .LinkState = link::kMachineHeard,
                               .ConfigSource = link::kDefaultConfig,
                               .Boxes = {"FIRMWARE VERSION  ( V. 3 )", kDefaultUsed},
                               .FirstWritten = "#jf*"},
                      LinkCase{.Name = "VersionWithoutNumber",
                               .Firmware = "xyz",
                               .LinkState = link::kMachineHeard,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kStop, kUnread},
                               .FirstWritten = "#jf*#cr*"},
                      LinkCase{.Name = "VersionBeyondAllNumbers", .Firmware = "9e9"},
                      LinkCase{.Name = "NoAnswer",
                               .Words = {"fault silent"},
                               .LinkState = link::kPortOpen,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kStop, kSilent},
                               .FirstWritten = "#jf*#jf*"},
                      LinkCase{.Name = "AnswersTooLate",
                               .Words = {"fault late 9 #jf*"},
                               .CommandLine = "PORT(1:19200,N,8,1)",
                               .LinkState = link::kPortOpen,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kStop, kSilent},
                               .FirstWritten = "#jf*"},
                      LinkCase{.Name = "ShortVersionIsReadAtTheTimeOut",
                               .Words = {"fault short 1 #jf*"}},
                      LinkCase{.Name = "VersionRefused",
                               .Words = {"fault refuse #jf*"},
                               .CommandLine = "PORT(1:19200,N,8,1)",
                               .LinkState = link::kPortOpen,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kStop, kSilent},
                               .FirstWritten = "#jf*"},
                      LinkCase{.Name = "ConfigurationRefused",
                               .Words = {"fault refuse #cr*"},
                               .LinkState = link::kMachineHeard,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kUnread},
                               .FirstWritten = "#jf*#cr*"},
                      LinkCase{.Name = "ConfigurationNotAnswered",
                               .Words = {"fault silent #cr*"},
                               .LinkState = link::kMachineHeard,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kUnread},
                               .FirstWritten = "#jf*#cr*"},
                      LinkCase{.Name = "TransferCancelled",
                               .Words = {"fault cancel 2"},
                               .LinkState = link::kMachineHeard,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kUnread}},
                      LinkCase{.Name = "TransferStalls",
                               .Words = {"fault stall 3"},
                               .LinkState = link::kMachineHeard,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kUnread}},
                      LinkCase{.Name = "TransferNotConfirmed",
                               .Words = {"fault no-end"},
                               .LinkState = link::kMachineHeard,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kUnread}},
                      LinkCase{.Name = "OneBlockSpoilt", .Words = {"fault bad-block 3"}},
                      LinkCase{.Name = "ConfigurationBroken",
                               .Words = {"fault corrupt-config"},
                               .LinkState = link::kConfigReceived,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kWrong}},
                      LinkCase{.Name = "ConfigurationBrokenWithDefault",
                               .Words = {"fault corrupt-config"},
                               .WithDefault = true,
                               .LinkState = link::kConfigReceived,
                               .ConfigSource = link::kDefaultConfig,
                               .Boxes = {kDefaultUsed}},
                      LinkCase{.Name = "UnpluggedInTheTransfer",
                               .Words = {"fault unplug 2"},
                               .LinkState = link::kMachineHeard,
                               .ConfigSource = link::kNoConfig,
                               .Boxes = {kUnread}}),
    [](const auto& each) { return each.param.Name; });

std::vector<std::string> LinkOpenings(const TestProgram& test) {
  // The first openings only find out which ports there are.
  return {test.Port->Opened.begin() + 8, test.Port->Opened.end()};
}

TEST(LinkUpPorts, WalkOnWhileAPortOpensAndNothingAnswers) {
  struct PortCase {
    std::string Name;
    int MachineOn;  // 0: nowhere
    std::string CommandLine;
    std::vector<std::string> Openings;
    int LinkState;
  };
  const std::string service = ": 19200,N,8,1";
  const std::vector<PortCase> cases{
      {"machine on the second", 2, "", {"1" + service, "2" + service}, link::kConfigKnown},
      {"no machine ends at the first",
       0,
       "",
       {"1" + service, "2" + service, "4" + service, "1" + service},
       link::kPortOpen},
      {"a given port is the only one", 0, "PORT(2:9600,N,8,1)", {"2: 9600,N,8,1"}, link::kPortOpen},
      {"blanks around the key's parts", 2, "port ( 2 : )", {"2" + service}, link::kConfigKnown},
      {"without a colon it is no port",
       2,
       "PORT(3)",
       {"1" + service, "2" + service},
       link::kConfigKnown},
      {"a port that isn't there", 0, "PORT(7:9600,N,8,1)", {"7: 9600,N,8,1"}, link::kPortClosed}};
  for (const PortCase& wanted : cases) {
    SCOPED_TRACE(wanted.Name);
    std::map<int, std::optional<MachineOptions>> ports;
    for (const int number : {1, 2, 4}) {
      ports[number] = number == wanted.MachineOn ? std::optional(MachineOptions{}) : std::nullopt;
    }
    TestProgram test(ports);
    test.Screen.OnMainWindow = [&] {
      EXPECT_EQ(test.Program->Status().LinkState, wanted.LinkState);
    };
    test.Run(wanted.CommandLine);
    EXPECT_EQ(LinkOpenings(test), wanted.Openings);
  }
}

TEST(LinkUpPorts, NoneAtAllEndsTheProgramBeforeItsWindow) {
  TestProgram test(std::map<int, std::optional<MachineOptions>>{});
  test.Screen.OnMainWindow = [] { FAIL() << "the main window shows"; };
  EXPECT_EQ(test.Run(), shell::Program::Result::NoPort);
  ASSERT_EQ(test.Screen.Boxes.size(), 1U);
  EXPECT_EQ(test.Screen.Boxes[0].Text,
            "ERROR !!!\r\n\r\nNO communication port available\r\n\r\nPROGRAM ABORTED !!");
  EXPECT_EQ(test.Screen.Boxes[0].Icon, ui::BoxIcon::Plain);
}

TEST(LinkUpCaptions, TellPortConfigurationFirmwareAndGroups) {
  TestProgram test;
  test.Screen.OnMainWindow = [&] {
    const shell::Form1& window = test.MainWindow();
    EXPECT_EQ(window.Caption.Get(), "TintBench  v. 1.2");
    EXPECT_EQ(window.MMnuSerPort.Caption.Get(), "port1: 19200,N,8,1");
    EXPECT_EQ(window.MnuPar.Caption.Get(), "&Port Connection ( port1: 19200,N,8,1 )");
    EXPECT_EQ(window.MMnuGetconf.Caption.Get(), "Configuration [ current = defslave.cfr ] ");
    EXPECT_EQ(window.MMnuLoadfirmw.Caption.Get(), "Firmware      [ current version = 5.2 ] ");
    ASSERT_GT(window.MMnuGrMon.Count(), 2);
    EXPECT_EQ(window.MMnuGrMon(0).Caption->substr(0, 6), "Group ");
    const int last = window.MMnuGrMon.Count() - 1;
    EXPECT_EQ(window.MMnuGrMon(last).Caption.Get(), "Groups Monitoring History");
    EXPECT_EQ(window.MMnuGrMon(last).Tag.Get(), "0");
    EXPECT_EQ(window.MMnuGrMon(last - 1).Caption.Get(), "-");
    EXPECT_EQ(window.MMnuGrMon(last - 1).Tag.Get(), "-1");
  };
  test.Run();
}

TEST(LinkUpDisconnect, ClosesThePortClearsTheFactsAndShowsNoBox) {
  TestProgram test;
  test.Screen.OnMainWindow = [&] {
    EXPECT_FALSE(test.Program->Facts().ElementLists[config::kCircuits].empty());
    test.MainWindow().Poll().EventuallyStopPolling();
    std::string port = "-1";
    std::string settings = "-1";
    EXPECT_EQ(test.Program->Linker().LinkMachine(port, settings), link::kPortClosed);
    EXPECT_FALSE(test.Port->PortOpen());
    EXPECT_TRUE(test.Program->Facts().ElementLists[config::kCircuits].empty());
    EXPECT_FALSE(test.Program->Names().InputNames[24].Shown);
    const shell::Form1& window = test.MainWindow();
    EXPECT_EQ(window.MMnuSerPort.Caption.Get(), "port ( none )");
    EXPECT_EQ(window.MnuPar.Caption.Get(), "&Port Connection ( none )");
    EXPECT_EQ(window.MMnuGetconf.Caption.Get(), "Configuration [ current = missing ] ");
    EXPECT_EQ(window.MMnuLoadfirmw.Caption.Get(), "Firmware      [ current version = missing ] ");
    EXPECT_EQ(window.MMnuGrMon.Count(), 1);
    // And back again, on the port that is given.
    port.clear();
    settings = "19200,N,8,1";
    EXPECT_EQ(test.Program->Linker().LinkMachine(port, settings), link::kConfigKnown);
    EXPECT_EQ(port, "001");
  };
  test.Run();
  EXPECT_TRUE(test.Screen.Boxes.empty());
}

TEST(LinkUpMaster, StartsServiceFirstAndReturnsItAtTheEnd) {
  TestProgram test;
  std::filesystem::create_directories(test.Folder.Path("CONFIGUR"));
  test.Folder.Put("CONFIGUR/KSSETTING.TXT", "% which line\r\nserial , master\r\n");
  test.Screen.OnMainWindow = [&] {
    EXPECT_EQ(test.Program->Status().LinkState, link::kConfigKnown);
    EXPECT_FALSE(test.MainWindow().MMnuSerPort.Enabled);
    EXPECT_TRUE(test.Screen.Boxes.empty());
  };
  test.Run();
  const std::string frame =
      "\x01"
      "01SM002?000\x03";
  EXPECT_EQ(test.Port->Written.substr(0, frame.size() + 4), frame + "#jf*");
  EXPECT_EQ(LinkOpenings(test), (std::vector<std::string>{"1: 9600,N,8,1", "1: 9600,N,8,1"}));
  EXPECT_EQ(test.Port->Written.substr(test.Port->Written.size() - 4), "#PY*");
  EXPECT_FALSE(test.Port->PortOpen());
}

TEST(LinkUpMaster, ASilentMachineCostsTheTenSecondsAndIsToldAtTheEndToo) {
  TestProgram test;
  std::filesystem::create_directories(test.Folder.Path("CONFIGUR"));
  test.Folder.Put("CONFIGUR/KSSETTING.TXT", "MASTER");
  ASSERT_EQ(test.Machine().Tell("fault silent"), "");
  double mainWindowAt = 0;
  test.Screen.OnMainWindow = [&] { mainWindowAt = test.Clock.Now(); };
  test.Run("PORT(1:)");
  ASSERT_EQ(test.Screen.Boxes.size(), 3U);
  EXPECT_EQ(test.Screen.Boxes[2].Text, "ERROR in disactive service on MASTER SERIAL");
  EXPECT_EQ(test.Screen.Boxes[2].Icon, ui::BoxIcon::Exclamation);
  // Two openings, the wait for the frame's answer, and the version's time-out.
  EXPECT_NEAR(mainWindowAt, 0.5 + 0.5 + 10 + 5.1, 0.5);
  EXPECT_NEAR(test.Clock.Now() - mainWindowAt, 0.8 + 10, 0.6);
}

TEST(LinkUpFiles, AReceivedConfigurationNeverOutlivesARun) {
  TestProgram test;
  std::filesystem::create_directories(test.Folder.Path("CONFIGUR"));
  test.Folder.Put("CONFIGUR/DEFSLAVE.CFR", "left from an earlier run");
  ASSERT_EQ(test.Machine().Tell("fault silent"), "");
  test.Run();
  EXPECT_FALSE(test.Files.FileExists(test.Folder.Path("CONFIGUR/DEFSLAVE.CFR")));
}

TEST(LinkUpFiles, TheMachinesConfigurationArrivesWhole) {
  TestProgram test;
  test.Run();
  const std::string received = test.Folder.Get("CONFIGUR/DEFSLAVE.CFR");
  const std::string sent(simulator::SampleConfiguration());
  EXPECT_EQ(received.substr(0, sent.size()), sent);
  EXPECT_EQ(received.substr(sent.size()).find_first_not_of('\x1a'), std::string::npos);
  EXPECT_FALSE(test.Files.FileExists(test.Folder.Path("TMP.TMP")));
}

}  // namespace
}  // namespace tintbench
