#include "shell/Form1.h"

#include <array>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::shell {

namespace {

constexpr int kSeparatorTag = -1;
constexpr int kHistoryTag = 0;
constexpr const char* kEditLevelCaption = "Edit Level[ - ]";

std::string_view LinkWords(int linkState) {
  constexpr std::array<std::string_view, 5> kWords{
      "Serial port not open", "Port open, no machine heard",
      "Machine heard, configuration not read", "Machine heard, its configuration is wrong",
      "Machine linked, configuration known"};
  return kWords.at(static_cast<std::size_t>(linkState));
}

// The part of a caption before its bracket.
std::string BeforeBracket(const std::string& caption) {
  return caption.substr(0, caption.find('['));
}

}  // namespace

Form1::Form1(ui::Screen& screen, const AppIdentity& identity, MainWindowOwner& owner,
             const config::MachineFacts& facts, const link::LinkStatus& status)
    : ui::Form("Form1"), screen_(screen), owner_(owner), facts_(facts), status_(status) {
  Caption = identity.AppTitle + "  v. " + identity.AppMajor + "." + identity.AppMinor;
  FrmDbg.Caption = "I/O Debug ";
  FrmDbg.Visible = false;
  TxtDbgIO(0).ToolTipText = "transmitted string";
  TxtDbgIO(1).ToolTipText = "Received string";
  TxtDbgIO.Prepare([](ui::TextBox& box, int) { box.Locked = true; });
  RebuildGroupsMenu();
}

void Form1::Form_Activate() { MnuMaint.Enabled = status_.LinkState != link::kPortClosed; }

void Form1::Form_QueryUnload(bool& cancel) {
  // The way out serves events: a second press of the close button finds it under way.
  if (ending_) {
    cancel = true;
    return;
  }
  ending_ = true;
  owner_.EndMainWindow();
}

void Form1::ShowDebugLevel(int level) {
  struct LevelItem {
    int Level;
    ui::Menu& Item;
  };
  const std::array<LevelItem, 3> items{{{link::kDebugTransfers, MMnuksvdbg03},
                                        {link::kDebugXmodem, MMnuksvdbg07},
                                        {link::kDebugCommands, MMnuksvdbg15}}};
  const std::string shown = base::Bracketed(std::to_string(level));
  bool marked = false;
  for (const LevelItem& item : items) {
    item.Item.Checked = item.Level == level;
    marked = marked || item.Item.Checked;
  }
  MMnuksvdbgEdit.Checked = !marked;
  MMnuksvdbgEdit.Caption =
      marked ? kEditLevelCaption : BeforeBracket(MMnuksvdbgEdit.Caption) + shown;
  MnuKsvdbg.Caption = BeforeBracket(MnuKsvdbg.Caption) + shown;
  FrmDbg.Visible = level == link::kDebugCommands;
}

void Form1::ShowPort(const std::string& caption) {
  MMnuSerPort.Caption = caption;
  MnuPar.Caption = "&Port Connection ( " +
                   (caption == link::kNoPortCaption ? std::string("none") : caption) + " )";
}

void Form1::ShowVersions(const std::string& configuration, const std::string& firmware) {
  MMnuGetconf.Caption = configuration;
  MMnuLoadfirmw.Caption = firmware;
  LblLink.Caption = std::string(LinkWords(status_.LinkState));
  LblLinkPort.Caption = MMnuSerPort.Caption;
}

double Form1::TextWidth(const std::string& text) const { return screen_.TextWidth(*this, text); }

void Form1::LoadGroupItem(int index, const std::string& caption, int tag) {
  ui::Menu& item = MMnuGrMon.Load(index);
  item.Caption = caption;
  item.Tag = std::to_string(tag);
  item.Enabled = true;
  item.Visible = true;
}

void Form1::RebuildGroupsMenu() {
  for (int index = MMnuGrMon.Count() - 1; index > 0; --index) MMnuGrMon.Unload(index);
  int next = 0;
  for (int address = 1; address <= config::kGroupAddresses; ++address) {
    const auto at = static_cast<std::size_t>(address);
    if (facts_.GroupInputs[config::kDigitalInput][at].empty() &&
        facts_.GroupInputs[config::kAnalogueInput][at].empty()) {
      continue;
    }
    LoadGroupItem(next++, "Group" + base::BlankNumber(address), address);
  }
  if (next > 0) LoadGroupItem(next++, "-", kSeparatorTag);
  LoadGroupItem(next, "Groups Monitoring History", kHistoryTag);
}

}  // namespace tintbench::shell
