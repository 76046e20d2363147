// Ten thousand link-ups with the simulated machine on a line that spoils 5 of 10,000 bytes. What
// each of them believes is borne out by what crossed the line: no version that didn't come as an
// answer, no configuration whose blocks didn't come with their checks, and none unconfirmed.
#include <gtest/gtest.h>

#include <map>

#include "base/Text.h"
#include "link/LinkUp.h"
#include "link/SpoiltPort.h"
#include "simulator/Machine.h"
#include "simulator/SimulatedPort.h"
#include "ui/NotingScreen.h"

namespace tintbench::testing {
namespace {

constexpr std::uint32_t kParts = 4;
#ifdef __SANITIZE_ADDRESS__
constexpr std::uint32_t kLinkUps = 250;  // of each part; a tenth, for the sanitizers' slowness
#else
constexpr std::uint32_t kLinkUps = 2500;
#endif
constexpr double kLongestSeconds = 900;

constexpr int kFirstWithConfiguration = 4;  // version of the firmware
constexpr const char* kReceived = "CONFIGUR/DEFSLAVE.CFR";
constexpr const char* kEarlier = "% left from an earlier link-up\r\n";
constexpr const char* kDefault = "@GEN 1 16,1,0,0,2,0,0,0,4,\"DEFAULT\",0\r\n";
// Four blocks of 128.
constexpr const char* kConfiguration =
    "@ICS 1\r\n@GEN 1 16,1,0,0,2,1,0,1,4,\"REGISTRATION 00001\",2\r\n"
    "@SGA 1 0,0,0,0,0,0,0,0,0,1,0,0,0,0,0,0,0,0,0,0\r\n@TAP 1 1,3,0,5,0,0\r\n"
    "@CIR 1 1,1,0000,0,0,1,1,0,0,1\r\n@CIR 1 2,1,0000,0,0,1,1,0,0,1\r\n"
    "@CIR 1 3,1,0000,0,0,1,2,0,0,1\r\n@CIR 1 4,1,0000,0,9,1,2,0,0,1\r\n"
    "@MOT 1 1,1,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,60,0\r\n"
    "@MOT 1 2,1,0,9,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,60,0\r\n"
    "@AGI 1 1,0,0,0,9,0,0,0,0\r\n@ILE 1 9,0,5,0,0\r\n@FUN 1 2,\"1101\"\r\n"
    "@IDI 1 1,4,0,0,\"09\"\r\n@IAN 1 2,5,\"bar\",0,100,0,10,90,0,0,0,\"09\"\r\n"
    "@ECS 1\r\n@PDD 1\r\n";

simulator::MachineOptions MachineOf(std::uint32_t seed) {
  simulator::MachineOptions options{.Configuration = kConfiguration};
  if (seed % 3 == 0) options.BlockSize = 1024;
  return options;
}

struct PlainView final : link::LinkView {
  ui::Form Window{"Form1"};
  ui::Form& LinkForm() override { return Window; }
  void ShowPort(const std::string&) override {}
  void LockPort() override {}
  void ShowVersions(const std::string&, const std::string&) override {}
  double TextWidth(const std::string&) const override { return 0; }
  void BuildSensorNames(bool) override {}
  void RebuildGroupsMenu() override {}
};

// What the facts tell, in one text.
std::string Told(const config::MachineFacts& facts) {
  std::string told = facts.MachineLabel + "|" + std::to_string(facts.MaxValves) + "|" +
                     std::to_string(facts.CapCount) + "|" + std::to_string(facts.ExternalGroups) +
                     "|" + facts.CapTypeList + "|" + facts.CircuitMotorList;
  for (const std::string& list : facts.ElementLists) told += "|" + list;
  for (const auto& group : facts.GroupElements) {
    for (const std::string& list : group) told += "|" + list;
  }
  for (const auto& kind : facts.GroupInputs) {
    for (const std::string& list : kind) told += "|" + list;
  }
  return told;
}

// A link-up, and what must hold after it.
class LinkedDesk {
 public:
  explicit LinkedDesk(std::uint32_t seed)
      : withDefault_(seed % 2 == 0),
        options_(MachineOf(seed)),
        machine_(clock_, options_),
        port_(simulated_, clock_, seed) {
    folder_.Put("DEFSLAVE.CFG", kDefault);
    if (!withDefault_) std::filesystem::remove(folder_.Path("DEFSLAVE.CFG"));
    std::filesystem::create_directories(folder_.Path("CONFIGUR"));
    folder_.Put(kReceived, kEarlier);
    link::LinkUp linkUp(
        {port_, clock_, files_, screen_, ports_, transaction_, transfer_, facts_, status_, view_},
        paths_, "SERVICE", "");
    std::string number = "001";
    std::string settings = "19200,N,8,1";
    linkUp.LinkMachine(number, settings);
  }

  double Seconds() const { return clock_.Now(); }
  int State() const { return status_.LinkState; }

  // The version is what the machine's answer, as it came, tells of it, and the link goes as far as
  // that version lets it.
  void CheckVersion() const {
    const auto& reads = port_.ReadAtOutput;
    const std::size_t end = reads.size() > 1 ? reads[1] : port_.Read.Bytes.size();
    const std::string answer = port_.Read.Bytes.substr(0, end);
    const bool heard = answer.starts_with('A') || answer.starts_with('a');
    EXPECT_EQ(heard, State() >= link::kMachineHeard) << Readable(answer);
    const std::string version = answer.size() > 4 ? answer.substr(4) : "";
    EXPECT_EQ(status_.FirmwareVersion, heard ? version : "-1") << Readable(answer);
    const bool old = Number() > 0 && Number() < kFirstWithConfiguration;
    EXPECT_EQ(port_.Written == "#jf*", !heard || old);
    if (State() >= link::kConfigReceived && Number() >= kFirstWithConfiguration) {
      EXPECT_EQ(base::ToUpper(port_.Read.Bytes).back(), 'K') << "unconfirmed";
    }
  }

  // How the received file came about.
  Outcome CheckFile() const {
    const std::string file = folder_.Get(kReceived);
    if (file == kEarlier) {
      EXPECT_LT(State(), link::kConfigReceived);
      return Outcome::Failed;
    }
    const SentFile sent(options_.Configuration, options_.BlockSize, false);
    return ExplainReceived(sent, file, port_);
  }

  // The facts are those of the file that is said to be in use.
  void CheckFacts() {
    const std::string received = folder_.Path(kReceived);
    config::MachineFacts facts;
    if (State() == link::kConfigReceived) {
      EXPECT_FALSE(config::ExecuteConfigKnown(files_, received, 1, facts));
    }
    const bool own = State() == link::kConfigKnown;
    const std::string inUse = own            ? received
                              : withDefault_ ? folder_.Path("DEFSLAVE.CFG")
                                             : std::string();
    EXPECT_EQ(status_.ConfigFileName, inUse);
    EXPECT_EQ(status_.ConfigSource, own ? 2 : withDefault_ ? 1 : 0);
    const bool known = config::ExecuteConfigKnown(files_, inUse, 1, facts);
    EXPECT_EQ(known, !inUse.empty());
    EXPECT_EQ(Told(facts_), Told(facts));
  }

  // One box for a version that is missing or old, one for a link without a configuration.
  void CheckBoxes() const {
    const int boxes =
        (Number() < kFirstWithConfiguration ? 1 : 0) + (State() < link::kConfigKnown ? 1 : 0);
    EXPECT_EQ(screen_.Boxes.size(), static_cast<std::size_t>(boxes));
  }

 private:
  int Number() const { return status_.FirmwareNumber(); }

  bool withDefault_;
  simulator::MachineOptions options_;
  base::VirtualClock clock_;
  ScratchFolder folder_;
  base::AppPaths paths_{folder_.Path()};
  base::StandardFileSystem files_;
  simulator::Machine machine_;
  simulator::SimulatedPort simulated_{clock_, {{1, &machine_}}};
  SpoiltPort port_;
  NotingScreen screen_{clock_};
  link::DebugLog log_{files_, ""};
  link::CommandTable commands_;
  link::LinkStatus status_;
  link::ComPort ports_{port_, clock_, status_};
  link::Transaction transaction_{port_, clock_, commands_, screen_, log_};
  link::Xmodem transfer_{port_, clock_, files_, {.AppPath = folder_.Path()}};
  config::MachineFacts facts_;
  PlainView view_;
};

class RandomLinkUps : public ::testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomLinkUps, BelieveOnlyWhatCrossedTheLine) {
  std::map<int, std::uint32_t> states;
  std::map<Outcome, std::uint32_t> files;
  double longest = 0;
  for (std::uint32_t seed = GetParam() * kLinkUps + 1; seed <= (GetParam() + 1) * kLinkUps;
       ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    LinkedDesk desk(seed);
    desk.CheckVersion();
    const Outcome file = desk.CheckFile();
    EXPECT_NE(file, Outcome::Wrong);
    desk.CheckFacts();
    desk.CheckBoxes();
    EXPECT_LT(desk.Seconds(), kLongestSeconds);
    longest = std::max(longest, desk.Seconds());
    ++states[desk.State()];
    ++files[file];
  }
  // Most of them come to a good end.
  EXPECT_GE(states[link::kConfigKnown], kLinkUps - kLinkUps / 50);
  for (const auto& [state, count] : states) {
    RecordProperty("State" + std::to_string(state), std::to_string(count));
  }
  RecordProperty("Failed", std::to_string(files[Outcome::Failed]));
  RecordProperty("EqualCheck", std::to_string(files[Outcome::EqualCheck]));
  RecordProperty("ForgedWord", std::to_string(files[Outcome::ForgedWord]));
  RecordProperty("LongestSeconds", std::to_string(longest));
}

INSTANTIATE_TEST_SUITE_P(Part, RandomLinkUps, ::testing::Range(0U, kParts));

}  // namespace
}  // namespace tintbench::testing
