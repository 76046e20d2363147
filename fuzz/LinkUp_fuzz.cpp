// A whole run of the program, with its link-up to the simulated machine under a schedule of faults.
// An input's first line is the command line, its second the settings file, its third five numbers:
// the machine's configuration, the default configuration, whether blocks are large, whether a port
// without a machine stands in front, and which file operation fails (0: none). The rest is the
// schedule; see `AddFault`.
#include <array>

#include "Blocks.h"
#include "FuzzInput.h"
#include "LineFaults.h"
#include "Target.h"
#include "base/MemoryFileSystem.h"
#include "shell/Program.h"
#include "shell/SettingsFile.h"
#include "simulator/SimulatedPort.h"
#include "ui/NotingScreen.h"

namespace tintbench::fuzz {
namespace {

// A machine that spoils every block is given up after ten tries of each.
constexpr double kLongestRun = 4 * 3600.0;
constexpr std::size_t kMostWritten = 1U << 20U;
constexpr std::size_t kMostFaults = 64;
constexpr int kFarthestPlace = 9999;
constexpr const char* kStale = "% left from an earlier run\r\n";

constexpr std::array<const char*, 6> kConfigurations{
    "@ICS 1\r\n@GEN 1 16,1,0,0,2,0,0,0,4,\"SMALL\",0\r\n@ECS 1\r\n@PDD 1\r\n",
    // five blocks of 128
    "@ICS 1\r\n@GEN 1 16,1,0,0,2,1,0,1,4,\"REGISTRATION 00001\",2\r\n"
    "@SGA 1 0,0,0,0,0,0,0,0,0,1,0,0,0,0,0,0,0,0,0,0\r\n@TAP 1 1,3,0,5,0,0\r\n"
    "@CIR 1 1,1,0000,0,0,1,1,0,0,1\r\n@CIR 1 2,1,0000,0,0,1,1,0,0,1\r\n"
    "@CIR 1 3,1,0000,0,0,1,2,0,0,1\r\n@CIR 1 4,1,0000,0,9,1,2,0,0,1\r\n"
    "@MOT 1 1,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,60,0\r\n"
    "@MOT 1 2,1,0,9,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,60,0\r\n"
    "@AGI 1 1,0,0,0,9,0,0,0,0\r\n@ILE 1 9,0,5,0,0\r\n@FUN 1 2,\"1101\"\r\n"
    "@IDI 1 1,4,0,0,\"09\"\r\n@IAN 1 2,5,\"bar\",0,100,0,10,90,0,0,0,\"09\"\r\n"
    "@ECS 1\r\n@PDD 1\r\n",
    "@GEN 1 16,1,0,0,2,0,0,0,4,\"SMALL\",\r\n", "",
    "\x18\x18\x04\x15\x06 control characters \x01\x02\xff",
    nullptr,  // the machine's own, which is long
};

const std::string kDefaults[] = {"", "@GEN 1 16,1,0,0,2,0,0,0,4,\"DEFAULT\",0\r\n", "@@@@ 1 1\r\n"};

// What the machine can be told; a number goes behind those that end in a blank or a point.
constexpr std::array<const char*, 41> kWords{
    "fault silent ",
    "fault late ",
    "fault short ",
    "fault long ",
    "fault pause ",
    "fault refuse ",
    "fault fail ",
    "fault echo ",
    "fault cancel ",
    "fault stall ",
    "fault bad-block ",
    "fault lose-ack ",
    "fault no-end",
    "fault corrupt-config",
    "fault drop 0.",
    "fault garble 0.",
    "fault double 0.",
    "fault unplug ",
    "unplug",
    "plug",
    "reset",
    "power off",
    "firmware ",
    "fault silent 1 #cr*",
    "fault twice ",
    "fault foreign ",
    "fault one-can ",
    "fault bel ",
    "fault bad-complement ",
    "fault skip-block ",
    "fault repeat-block ",
    "fault nak ",
    "fault double-ack ",
    "fault lose-eot ",
    "fault nak-eot ",
    "fault flip 0.",
    "fault insert 0.",
    "fault babble ",
    "fault reset ",
    "fault replug ",
    "power on",
};

struct Bench {
  explicit Bench(const simulator::MachineOptions& options) : Machine(Clock, options) {}

  std::string Word(FuzzInput& input) const {
    std::string word = kWords[static_cast<std::size_t>(input.Number(kWords.size() - 1))];
    if (word.ends_with(' ') || word.ends_with('.')) word += std::to_string(input.Number(99));
    return word;
  }

  // t w n: the machine is told the word w, with the number n if it takes one, before the start.
  // Then, each with the number p of the byte to the program, or in upper case to the machine:
  // d p: the byte is lost; c p b: changed by b; i p b: b is put in behind it; b p: it is doubled;
  // w p w n: the machine is told then. Anything else means nothing.
  void AddFault(FuzzInput& input) {
    const auto letter = static_cast<char>(input.Byte());
    if (letter == 't') {
      Machine.Tell(Word(input));
      Sound = false;
      return;
    }
    const std::string_view letters = "dcibwDCIBW";
    const std::size_t kind = letters.find(letter);
    if (kind == std::string_view::npos) return;
    LineFault fault{static_cast<LineFault::Kind>(kind % 5)};
    const auto place = static_cast<std::size_t>(input.Number(kFarthestPlace));
    if (fault.What == LineFault::Kind::Change || fault.What == LineFault::Kind::Insert) {
      fault.Byte = static_cast<unsigned char>(input.Number(255));
    }
    if (fault.What == LineFault::Kind::Do) {
      fault.Action = [this, word = Word(input)] { Machine.Tell(word); };
    }
    Sound = false;
    (kind < 5 ? ToProgram : ToMachine).emplace(place, fault);
  }

  base::VirtualClock Clock;
  simulator::Machine Machine;
  bool Sound = true;  // neither machine nor line has a fault
  FaultPlan ToProgram;
  FaultPlan ToMachine;
};

const base::AppPaths& Paths() {
  static const base::AppPaths kPaths("/app");
  return kPaths;
}

void CheckLink(const shell::Program& program, const shell::Form1& window) {
  const link::LinkStatus& status = program.Status();
  Require(status.LinkState >= 0 && status.LinkState <= 4, "the link's state is one of five");
  const bool own = status.ConfigSource == link::kMachineConfig;
  // A line that is lost afterwards takes the link away, but not what is known of the machine.
  const bool lost = own && status.LinkState == link::kPortClosed;
  Require(lost || own == (status.LinkState == link::kConfigKnown),
          "the machine's own means all is well");
  Require(status.ConfigSource != link::kNoConfig || status.ConfigFileName.empty(),
          "a configuration in use has a name");
  Require(status.FirmwareVersion != link::kNoFirmware || status.LinkState < link::kMachineHeard,
          "a machine that was heard has told a version");
  for (const std::string& text : {window.LblLink.Caption.Get(), window.LblLinkPort.Caption.Get(),
                                  window.MMnuGetconf.Caption.Get(), window.Caption.Get()}) {
    Require(!text.empty(), "the window says what it knows");
  }
}

void CheckFiles(const testing::MemoryFileSystem& files, const FaultyPort& port, int linkState) {
  const std::string path = Paths().ReceivedConfigFile();
  const std::string file = files.Get(path);
  const bool whole = Brings(port.Read(), file);
  const bool received = files.FileExists(path) && whole;
  Require(linkState < link::kConfigReceived || received, "a configuration in use is whole");
  Require(files.HasFailed() || received || !files.FileExists(path), "a file is there whole or not");
  Require(files.Size() < kMostWritten, "files don't grow without end");
}

void CheckScreen(const testing::NotingScreen& screen, bool clean) {
  Require(screen.Boxes.size() <= 4, "the operator isn't pestered");
  for (const ui::Box& box : screen.Boxes) Require(!box.Text.empty(), "a box has a text");
  Require(!clean || screen.Boxes.empty(), "a good link needs no box");
}

void Run(Bench& bench, testing::MemoryFileSystem& files, bool emptyPort,
         const std::string& commandLine) {
  const int number = emptyPort ? 2 : 1;
  std::map<int, simulator::Machine*> ports{{number, &bench.Machine}};
  if (emptyPort) ports[1] = nullptr;
  simulator::SimulatedPort simulated(bench.Clock, ports);
  FaultyPort port(simulated, bench.Clock, bench.ToProgram, bench.ToMachine);
  testing::NotingScreen screen(bench.Clock);
  shell::Program program({.Clock = bench.Clock,
                          .Files = files,
                          .Port = port,
                          .Screen = screen,
                          .Identity = base::MakeIdentity("TintBench", "1.2.3"),
                          .AppPath = Paths().AppPath(),
                          .CommandLine = commandLine});
  int linkState = link::kPortClosed;
  screen.OnMainWindow = [&] {
    linkState = program.Status().LinkState;
    const bool needsK = linkState >= link::kConfigReceived && program.Status().FirmwareNumber() > 3;
    Require(!needsK || base::ToUpper(port.Read()).ends_with('K'), "the machine has said so");
    CheckLink(program, dynamic_cast<shell::Form1&>(*screen.FindForm("Form1")));
  };
  const auto result = program.Main();
  Require(bench.Clock.Now() <= kLongestRun, "a run ends in time");
  Require(!port.PortOpen(), "the port is closed at the end");
  Require(port.Written().size() < kMostWritten, "the line isn't flooded");
  CheckFiles(files, port, linkState);
  const bool good = result == shell::Program::Result::Good;
  const bool service = program.SerialMode() != link::kMasterMode;
  const bool sound = bench.Sound && service && commandLine.empty() && !files.HasFailed();
  Require(!sound || linkState >= link::kConfigReceived, "a sound machine is linked to");
  const bool linked = linkState == link::kConfigKnown && program.Status().FirmwareNumber() >= 4;
  CheckScreen(screen, good && linked && service);
  Require(good || screen.Boxes.size() == 1, "without a port the program says so");
}

}  // namespace
}  // namespace tintbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tintbench;
  fuzz::FuzzInput input(data, size);
  const std::string commandLine = input.Line();
  const std::string settings = input.Line();
  simulator::MachineOptions options;
  const char* configuration = fuzz::kConfigurations[static_cast<std::size_t>(
      input.Number(fuzz::kConfigurations.size() - 1))];
  if (configuration != nullptr) options.Configuration = configuration;
  const std::string& byDefault = fuzz::kDefaults[input.Number(2)];
  if (input.Flag()) options.BlockSize = 1024;
  const bool emptyPort = input.Flag();
  const int failAt = input.Number(60);

  testing::MemoryFileSystem files;
  files.Put(fuzz::Paths().ReceivedConfigFile(), fuzz::kStale);
  if (!settings.empty()) files.Put(fuzz::Paths().SettingsFile(), settings);
  if (!byDefault.empty()) files.Put(fuzz::Paths().DefaultConfigFile(), byDefault);
  files.FailAt(failAt);
  fuzz::Bench bench(options);
  // Of an empty file there is no block to begin with.
  bench.Sound = !options.Configuration.empty();
  for (std::size_t i = 0; i < fuzz::kMostFaults && !input.AtEnd(); ++i) bench.AddFault(input);
  fuzz::Run(bench, files, emptyPort, commandLine);
  return 0;
}
