#include "link/LinkUp.h"

#include <utility>

#include "base/Numbers.h"
#include "base/Text.h"
#include "config/MachineFacts.h"
#include "link/LinkTexts.h"
#include "link/MasterFrame.h"

namespace tintbench::link {

namespace {

constexpr const char* kDisconnect = "-1";
// The version stands behind the "A" and three characters.
constexpr int kVersionPosition = 5;
// Firmware up to this one has no configuration reading, or answers it with nothing useful.
constexpr int kOldFirmware = 3;
constexpr int kFirstSlave = 1;
// How long the machine may take over its letters around the configuration's transfer, in seconds.
constexpr double kLetterTimeout = 5.0;

}  // namespace

LinkUp::LinkUp(const LinkUpParts& parts, const base::AppPaths& paths, std::string serialMode,
               std::string portKey)
    : parts_(parts),
      paths_(paths),
      serialMode_(std::move(serialMode)),
      portKey_(std::move(portKey)) {}

bool LinkUp::IsMaster() const { return serialMode_ == kMasterMode; }

LinkStateValue LinkUp::LinkMachine(std::string& port, std::string& settings) {
  parts_.Status.FirmwareVersion = kNoFirmware;
  parts_.Status.ConfigFileName.clear();
  parts_.Status.Problem.clear();
  if (port == kDisconnect && settings == kDisconnect) {
    parts_.View.ShowPort(kNoPortCaption);
    parts_.Ports.CloseComPort();
    parts_.Status.ConfigSource = kNoConfig;
    SettleConfiguration();
  } else {
    againPort_ = port;
    againSettings_ = settings;
    Connect(port, settings);
    parts_.View.ShowStep("");
    TellOperator();
  }
  ShowCurrentVersions();
  parts_.View.RebuildGroupsMenu();
  return parts_.Status.LinkState;
}

LinkStateValue LinkUp::LinkAgain() {
  std::string port = againPort_;
  std::string settings = againSettings_;
  return LinkMachine(port, settings);
}

void LinkUp::Connect(std::string& port, std::string& settings) {
  const bool automatic = port.empty() && settings.empty() && !TakePortKey(port, settings);
  if (port.empty()) port = parts_.Ports.FirstPort();
  if (settings.empty()) settings = IsMaster() ? kMasterSettings : kServiceSettings;
  TryPort(port, settings);
  if (automatic) WalkPorts(port, settings);
  if (parts_.Status.LinkState >= kMachineHeard) {
    againPort_ = ComPort::FormatPortNumber(parts_.Port.CommPort());
    againSettings_ = parts_.Port.Settings();
  }
  if (parts_.Status.ConfigSource == kNoConfig &&
      config::ExecuteConfigKnown(parts_.Files, paths_.DefaultConfigFile(), kFirstSlave,
                                 parts_.Facts)) {
    parts_.Status.ConfigSource = kDefaultConfig;
  }
  SettleConfiguration();
  parts_.View.ShowPort(PortCaption(parts_.Port.CommPort(), parts_.Port.Settings()));
}

bool LinkUp::TakePortKey(std::string& port, std::string& settings) const {
  const std::size_t colon = portKey_.find(':');
  if (colon == std::string::npos) return false;
  port = base::Trim(portKey_.substr(0, colon));
  settings = base::Trim(portKey_.substr(colon + 1));
  return true;
}

void LinkUp::TryPort(const std::string& port, const std::string& settings) {
  parts_.Status.ConfigSource = kNoConfig;
  parts_.Status.LinkState = kPortClosed;
  LinkMachineLoop(port, settings);
}

// Only a port that opens and stays silent sends the search on; the last try goes back to the
// first port.
void LinkUp::WalkPorts(const std::string& firstPort, const std::string& settings) {
  bool over = false;
  while (parts_.Status.LinkState == kPortOpen && !over && !parts_.Screen.IsClosingAll()) {
    std::string next = parts_.Ports.NextPort();
    over = next.empty();
    TryPort(over ? firstPort : next, settings);
  }
}

void LinkUp::LinkMachineLoop(const std::string& port, const std::string& settings) {
  LinkStatus& status = parts_.Status;
  bool goOn = true;
  while (goOn && !parts_.Screen.IsClosingAll()) {
    switch (status.LinkState) {
      case kPortClosed:
        goOn = OpenAndStartService(port, settings);
        break;
      case kPortOpen:
        TellStep(port, "reading the machine's firmware version");
        goOn = ReadMachineVersion();
        if (goOn) status.LinkState = kMachineHeard;
        // Firmware so old has no configuration reading.
        if (status.FirmwareNumber() >= 1 && status.FirmwareNumber() <= kOldFirmware) goOn = false;
        break;
      case kMachineHeard:
        TellStep(port, "receiving the machine's configuration");
        goOn = ExecuteConfigRead();
        if (goOn) status.LinkState = kConfigReceived;
        break;
      case kConfigReceived:
        if (config::ExecuteConfigKnown(parts_.Files, paths_.ReceivedConfigFile(), kFirstSlave,
                                       parts_.Facts)) {
          status.LinkState = kConfigKnown;
          status.ConfigSource = kMachineConfig;
        }
        goOn = false;
        break;
      default:
        goOn = false;
    }
  }
}

void LinkUp::TellStep(const std::string& port, const std::string& step) {
  parts_.View.ShowStep("Port " + std::to_string(base::LeadingInt(port)) + ": " + step);
}

bool LinkUp::OpenAndStartService(const std::string& port, const std::string& settings) {
  TellStep(port, "opening it");
  const bool open =
      parts_.Ports.OpenComPort(port, settings) && (!IsMaster() || StartMasterService(port));
  if (!open) parts_.Status.Problem = parts_.Port.LastProblem();
  return open;
}

// The machine's own answer is of no consequence here: what counts is the version that follows.
bool LinkUp::StartMasterService(const std::string& port) {
  if (!parts_.Ports.OpenComPort(port, parts_.Port.Settings())) return false;
  TellStep(port, "starting the service");
  parts_.Port.Output(MasterWireFrame(kStartOfService));
  CollectUntilFrameEnd(parts_.Port, parts_.Screen, [this](int seconds) {
    parts_.View.Line().ShowCountdown({}, CountdownText(seconds));
  });
  return true;
}

bool LinkUp::ReadMachineVersion() {
  const std::string answer =
      parts_.Commands.SendCommand(parts_.View.Line(), CommandId::FirmwareVersion);
  if (base::ToUpper(base::Left(answer, 1)) != "A") return false;
  parts_.Status.FirmwareVersion = base::Mid(answer, kVersionPosition);
  return true;
}

bool LinkUp::ExecuteConfigRead() {
  const bool anyAnswerWill = parts_.Status.FirmwareNumber() <= kOldFirmware;
  parts_.Port.Output("#cr*");
  if (!parts_.Port.WaitForInput(kLetterTimeout)) return false;
  if (base::ToUpper(parts_.Port.Input()) != "A" && !anyAnswerWill) return false;
  if (parts_.Transfer.XmodemReceiveQuiet(paths_.ReceivedConfigFile()) != kXmodemSuccessful) {
    TellUnkeptFile(parts_.Transfer.State().Problem);
    return false;
  }
  if (!parts_.Port.WaitForInput(kLetterTimeout)) return false;
  return base::ToUpper(parts_.Port.Input()) == "K" || anyAnswerWill;
}

void LinkUp::TellUnkeptFile(const std::string& reason) {
  if (reason.empty()) return;
  parts_.Status.Problem = "the machine's configuration can't be kept in " + paths_.AppPath() +
                          ": " + reason +
                          ". Make room, or start with another data folder (--data-dir)";
}

void LinkUp::SettleConfiguration() {
  const bool configured = parts_.Status.ConfigSource != kNoConfig;
  if (!configured) parts_.Facts.Clear();
  parts_.View.BuildSensorNames(configured);
}

void LinkUp::TellOperator() {
  LinkStatus& status = parts_.Status;
  if (const auto warning = FirmwareWarning(status.FirmwareNumber())) parts_.Screen.Ask(*warning);
  if (status.LinkState >= kConfigKnown && IsMaster()) parts_.View.LockPort();
  if (status.ConfigSource == kDefaultConfig) status.ConfigFileName = paths_.DefaultConfigFile();
  if (status.ConfigSource == kMachineConfig) status.ConfigFileName = paths_.ReceivedConfigFile();
  const auto warning = LinkWarning(status, paths_.DefaultConfigFile());
  if (warning) parts_.Screen.Ask(*warning);
}

void LinkUp::ShowCurrentVersions() {
  parts_.View.ShowVersions(
      ConfigurationCaption(parts_.Status.ConfigFileName),
      FirmwareCaption(parts_.Status.FirmwareVersion,
                      [this](const std::string& text) { return parts_.View.TextWidth(text); }));
}

}  // namespace tintbench::link
