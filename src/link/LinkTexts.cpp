#include "link/LinkTexts.h"

#include "base/Paths.h"
#include "base/Text.h"

namespace tintbench::link {

namespace {

using base::JoinLines;

// From this firmware on nothing has to be warned of.
constexpr int kGoodFirmware = 4;

std::string UnknownFirmwareText() {
  return JoinLines({"!! ATTENTION !!", "", "1) MACHINE IS NOT CONNECTED, or",
                    "2) MACHINE IS CONNECTED BUT IT'S OFF, or",
                    "3) MACHINE IS CONNECTED BUT NO FIRMWARE IS LOADED, or",
                    "4) MACHINE IS CONNECTED BUT IT WAS IMPOSSIBLE",
                    "     TO DETECT IT'S FIRMWARE VERSION.", "", "PLEASE, CHECK THE CONNECTION",
                    "AND THEN SELECT <PORT CONNECTION> !!"});
}

std::string OldFirmwareText(int number) {
  return JoinLines({"!! ATTENTION !!", "",
                    "THIS SOFTWARE HAS DETECTED A MACHINE FIRMWARE VERSION  ( V. " +
                        std::to_string(number) + " )",
                    "WHICH MUST BE UPGRADED AS SOON AS POSSIBLE !!", "",
                    "THIS SOFTWARE MUST BE HANDLED WITH CARE ANYWAY,",
                    "ESPECIALLY IN CONNECTION WITH THE CURRENT MACHINE FIRMWARE !!", "",
                    "> WAIT ANYWAY FOR THE END OF EACH SINGLE PROCESS",
                    "    BEFORE GIVING ANOTHER COMMAND TO THE MACHINE", "",
                    "> PAY ATTENTION TO ALL THE MACHINE MOVING PARTS"});
}

std::string StateReport(LinkStateValue linkState) {
  constexpr std::string_view kCheck = "Please, check connection and then select <Port Connection>";
  constexpr std::string_view kConnected = "MACHINE IS CONNECTED,";
  switch (linkState) {
    case kPortClosed:
      return JoinLines({"SERIAL PORT NOT OPEN", "", kCheck});
    case kPortOpen:
      return JoinLines({"SERIAL PORT OPEN, BUT MACHINE NOT CONNECTED.", kCheck});
    case kMachineHeard:
      return JoinLines({kConnected, "BUT IT WAS IMPOSSIBLE TO READ THE MACHINE CONFIGURATION !!"});
    case kConfigReceived:
      return JoinLines({kConnected, "BUT THE MACHINE CONFIGURATION WAS WRONG!!"});
    default:
      return {};
  }
}

constexpr const char* kMissing = "missing";
constexpr const char* kConfigurationWord = "Configuration ";
constexpr const char* kFirmwareWord = "Firmware";
// Wider than any drawn face could ask for.
constexpr std::size_t kMostPadding = 100;

}  // namespace

std::optional<ui::Box> FirmwareWarning(int firmwareNumber) {
  if (firmwareNumber >= kGoodFirmware) return std::nullopt;
  return ui::Box{
      .Text = firmwareNumber < 1 ? UnknownFirmwareText() : OldFirmwareText(firmwareNumber),
      .Icon = ui::BoxIcon::Stop};
}

std::optional<ui::Box> LinkWarning(const LinkStatus& status, const std::string& defaultConfigFile) {
  std::string warning = StateReport(status.LinkState);
  if (status.ConfigSource == kDefaultConfig) {
    warning += JoinLines({"", "", "DEFAULT FILE CONFIGURATION USED:", defaultConfigFile});
  }
  if (warning.empty()) return std::nullopt;
  return ui::Box{.Text = JoinLines({"WARNING !!", "", warning}), .Icon = ui::BoxIcon::Exclamation};
}

std::string PortCaption(int number, const std::string& settings) {
  return "port" + std::to_string(number) + ": " + settings;
}

std::string ConfigurationCaption(const std::string& configFileName) {
  std::string name = kMissing;
  if (!configFileName.empty()) {
    const std::string extension = base::FileExtension(configFileName);
    name = base::FileStem(configFileName);
    if (!extension.empty()) name += "." + extension;
    name = base::ToLower(name);
  }
  return kConfigurationWord + base::Bracketed("current = " + name);
}

std::string FirmwareCaption(const std::string& firmwareVersion,
                            const std::function<double(const std::string&)>& width) {
  const double wanted = width(kConfigurationWord);
  std::string word = kFirmwareWord;
  while (width(word) < wanted && word.size() < kMostPadding) word += ' ';
  const double number = base::LeadingNumber(firmwareVersion);
  const std::string version = number > 0 ? base::PlainNumber(number) : kMissing;
  return word + base::Bracketed("current version = " + version);
}

}  // namespace tintbench::link
