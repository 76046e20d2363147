#include "transfer/FormXmod.h"

#include <array>

#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Text.h"
#include "config/ConfigFile.h"

namespace tintbench::transfer {

namespace {

constexpr std::array<const char*, 3> kTitles{"Machine Link", "Configuration", "Firmware"};
constexpr const char* kDisconnect = "-1";
constexpr const char* kFirmwareTag = "1";
constexpr int kFirstSlave = 1;

constexpr const char* kConfigFilter =
    "Received (*.cfr)|*.cfr| Modified (*.cfm)|*.cfm| Original (*.cfg)|*.cfg";
constexpr const char* kFirmwareFilter = "Firmware-File (*.rom)|*.rom";
constexpr int kReceivedFilter = 1;
constexpr int kOriginalFilter = 3;

}  // namespace

// A job of the window: nothing but STOP can be pressed while it runs, and what was pressed while
// nobody served it falls on greyed buttons. A window that was to be closed meanwhile closes behind.
class FormXmod::Job {
 public:
  explicit Job(FormXmod& window) : window_(window) { window_.Occupy(true); }
  ~Job() {
    window_.parts_.Screen.CatchUp();
    window_.Occupy(false);
    if (window_.closeWanted_) window_.parts_.Screen.Unload(window_);
  }
  Job(const Job&) = delete;
  Job& operator=(const Job&) = delete;

 private:
  FormXmod& window_;
};

FormXmod::FormXmod(const TransferParts& parts)
    : parts_(parts),
      settings_(*this, parts_),
      service_(parts_),
      display_(*this, parts_.Engine, parts_.Screen.Time()),
      config_(*this, parts_, display_),
      firmware_(*this, parts_, display_),
      reconnection_(*this, parts_, [this] { Link(); }),
      running_(*this, parts_) {
  ConnectControls();
  SetXmodemMode(kPortFace);
}

void FormXmod::ConnectControls() {
  CommConn.Click = [this] { CommConn_Click(); };
  CommDisConn.Click = [this] { CommDisConn_Click(); };
  CommMaster.Click = [this] { CommMaster_Click(); };
  CommDisMaster.Click = [this] { CommDisMaster_Click(); };
  CommSel.Click = [this] { CommSel_Click(); };
  CommSel1.Click = [this] { CommSel_Click(); };
  CommSend.Click = [this] { TransferFile(link::kXmodemSend); };
  CommRec.Click = [this] { TransferFile(link::kXmodemReceive); };
  CommViewModify.Click = [this] { CommViewModify_Click(); };
  CommStop.Click = [this] { CommStop_Click(); };
  CmdDismiss.Click = [this] { CmdDismiss_Click(); };
}

void FormXmod::SetXmodemMode(XmodemModeValue mode) {
  XmodemMode = mode;
  Caption = kTitles.at(static_cast<std::size_t>(mode));
}

void FormXmod::Form_Load() {
  busy_ = closeWanted_ = false;
  ShowFace();
  settings_.Fill();
  settings_.ShowState();
  display_.Clear("");
  running_.Clear();
  const std::string& inUse = parts_.Status.ConfigFileName;
  TxtFile.Text = XmodemMode == kConfigFace && !inUse.empty() ? inUse : kNoFile;
  TxtFile.ToolTipText = "";
  Txtwait.Text = "";
  OptBsize(0).Value = true;
  ShowProblem(parts_.Port.PortOpen() ? "" : parts_.Status.Problem);
  ShowBroken();
}

void FormXmod::ShowFace() {
  const bool files = XmodemMode != kPortFace;
  const bool config = XmodemMode == kConfigFace;
  const bool firmware = IsFirmware();
  FrmSettings.Visible = !files;
  for (ui::Control* const control : std::initializer_list<ui::Control*>{
           &LblFile, &TxtFile, &CommSend, &CommStop, &FrmSize, &FrmStat, &LblTxtwait, &Txtwait}) {
    control->Visible = files;
  }
  for (ui::Control* const control :
       std::initializer_list<ui::Control*>{&CommSel, &CommRec, &CommViewModify}) {
    control->Visible = config;
  }
  for (ui::Control* const control :
       std::initializer_list<ui::Control*>{&CommSel1, &FrmFw, &FrmGuide}) {
    control->Visible = firmware;
  }
  FrmReconnect.Visible = false;
  FrmWaitGroups.Visible = false;
  for (int line = 0; line < Lbldeb.Count(); ++line) {
    Lbldeb(line).Visible = config && parts_.Log.DebugLevel() == link::kDebugTransfers;
  }
  GuideStep = kGuideChoose;
  LblGuideNow.Caption = GuideOf(kGuideChoose).What;
}

void FormXmod::ShowBroken() {
  const auto progress = IsFirmware() ? firmware_.Record().Read() : std::nullopt;
  LblBroken.Caption = progress ? BrokenOffText(*progress) : "";
  FrmBroken.Visible = progress.has_value();
}

void FormXmod::ShowProblem(const std::string& problem) {
  LblProblem.Caption = problem;
  LblProblem.Visible = !problem.empty();
}

void FormXmod::Form_KeyDown(ui::KeyEvent& key) {
  if (key.Code != ui::kKeyEsc || key.Shift != 0) return;
  key.Code = 0;
  if (!busy_) parts_.Screen.Unload(*this);
}

void FormXmod::Form_QueryUnload(bool& cancel) {
  if (!busy_) return;
  cancel = true;
  closeWanted_ = true;
  CommStop_Click();
}

void FormXmod::Occupy(bool occupied) {
  busy_ = occupied;
  for (ui::Control* const control : std::initializer_list<ui::Control*>{
           &CmbCom, &CmbBaud, &CmbPar, &CmbDbit, &CmbSbit, &CommConn, &CommDisConn, &CommMaster,
           &CommDisMaster, &TxtFile, &CommSel, &CommSel1, &CommSend, &CommRec, &CommViewModify,
           &OptBsize(0), &OptBsize(1), &Txtwait, &CmdDismiss}) {
    control->Enabled = !occupied;
  }
}

void FormXmod::Tell(const std::string& text) {
  parts_.Screen.Ask({.Text = text, .Icon = kTransferIcon});
}

void FormXmod::CommConn_Click() {
  const Job job(*this);
  Link();
}

void FormXmod::Link() {
  if (!settings_.HasSelection()) {
    ShowProblem("No port is selected in the list.");
    return;
  }
  ShowProblem("");
  LblPstat.Caption = "wait for machine answer";
  LblPstat.Refresh();
  const int state = parts_.Link.LinkMachine(settings_.Port(), settings_.Settings());
  settings_.ShowState();
  if (state >= link::kPortOpen) return;
  LblPstat.Caption = "NO PORT CONNECTED";
  ShowProblem(parts_.Status.Problem);
  parts_.Screen.Ask(
      {.Text = base::JoinLines({"ERROR WHILE CONNECTING PORT !!!", "", "CONNECTION FAIL !!!"})});
}

void FormXmod::CommDisConn_Click() {
  const Job job(*this);
  ShowProblem("");
  parts_.Link.LinkMachine(kDisconnect, kDisconnect);
  settings_.ShowState();
}

void FormXmod::CommMaster_Click() {
  const Job job(*this);
  if (!settings_.HasSelection()) {
    ShowProblem("No port is selected in the list.");
    return;
  }
  const bool good = service_.StartMaster(settings_.Port(), settings_.Settings());
  ShowProblem(parts_.Port.PortOpen() ? "" : parts_.Port.LastProblem());
  settings_.ShowState();
  Tell(good ? "service active on MASTER SERIAL" : "ERROR in service on MASTER SERIAL");
}

void FormXmod::CommDisMaster_Click() {
  const Job job(*this);
  const bool good = service_.ReturnToService(*this);
  Tell(good ? "service active on SERVICE SERIAL" : "ERROR in service on SERVICE SERIAL");
}

void FormXmod::CommSel_Click() {
  const Job job(*this);
  ui::FileRequest request{.Title = "Select a firmware-file to send",
                          .Filter = kFirmwareFilter,
                          .Folder = parts_.Paths.AppPath()};
  if (!IsFirmware()) {
    const std::string extension = base::FileExtension(parts_.Status.ConfigFileName);
    request = {
        .Title = "Select a file",
        .Filter = kConfigFilter,
        .FilterIndex = base::EqualFolded(extension, "CFR") ? kReceivedFilter : kOriginalFilter,
        .Folder = parts_.Paths.ConfigFolder(),
        .MayBeNew = true};
  }
  const std::string path = base::Trim(parts_.Screen.Ask(request).value_or(""));
  if (path.empty() || path.find('*') != std::string::npos) {
    TxtFile.Text = kNoFile;
    return;
  }
  TxtFile.Text = base::FilePath(path).empty() ? base::JoinPath(request.Folder, path) : path;
}

void FormXmod::CommViewModify_Click() {
  const std::string file = File();
  if (file == kNoFile || !parts_.Files.FileExists(file)) {
    parts_.Screen.Ask({.Text = kWrongPath});
    return;
  }
  parts_.Edit(base::FilePath(file), base::FileStem(file), base::FileExtension(file));
}

void FormXmod::CommStop_Click() {
  parts_.Engine.XmodemAbort();
  reconnection_.SkipWait();
}

void FormXmod::CmdDismiss_Click() {
  firmware_.Record().Forget();
  ShowBroken();
}

std::string FormXmod::File() const { return base::Trim(TxtFile.Text.Get()); }

int FormXmod::BlockSize() const {
  const ui::OptionButton& chosen = OptBsize(OptBsize(1).Value ? 1 : 0);
  return base::LeadingInt(chosen.Tag.Get());
}

void FormXmod::TransferFile(link::XmodemDirection direction) {
  if (busy_) return;
  std::string message;
  {
    const Job job(*this);
    parts_.Engine.XmodemInit();
    parts_.Engine.XmodemBind(display_.Controls(), [this] { return settings_.Selection(); });
    display_.Clear("");
    running_.Clear();
    ShowProblem("");
    message = RunTransfer(direction);
    settings_.ShowState();
    if (!message.empty()) {
      Tell(message + base::JoinLines({"", "", "Transfer file aborted !!!"}));
    } else if (direction == link::kXmodemSend) {
      Reconnect();
    }
    GuideStep = kGuideChoose;
    LblGuideNow.Caption = GuideOf(kGuideChoose).What;
    ShowBroken();
  }
  if (message.empty() || !IsLoaded()) return;
  (direction == link::kXmodemSend ? CommSend : CommRec).SetFocus();
}

std::string FormXmod::RunTransfer(link::XmodemDirection direction) {
  if (IsFirmware()) return RunFirmware();
  const std::string file = File();
  if (direction == link::kXmodemSend) {
    groups_ = config::ReadExternalGroups(parts_.Files, file, kFirstSlave);
    running_.Remember(file);
  }
  std::string message = config_.Run(direction, BlockSize(), file);
  const std::string& problem = parts_.Engine.State().Problem;
  if (!message.empty() && !problem.empty()) {
    ShowProblem("The file can't be kept at " + file + ": " + problem + ".");
  }
  return message;
}

std::string FormXmod::RunFirmware() {
  const std::string file = File();
  const int status = firmware_.LoadFirmware(base::FilePath(file) + base::FileStem(file),
                                            base::FileExtension(file), kFirmwareTag, BlockSize());
  if (!firmware_.Problem().empty()) {
    ShowProblem("The firmware file can't be cut into parts: " + firmware_.Problem() + ".");
  }
  return status == 0 ? std::string() : "ERROR [" + base::PlainNumber(status) + "]";
}

void FormXmod::Reconnect() {
  GuideStep = kGuideConnect;
  LblGuideNow.Caption = GuideOf(kGuideConnect).What;
  reconnection_.Reconnect(IsFirmware() ? parts_.Facts.ExternalGroups : groups_);
  if (!IsFirmware()) running_.Compare();
}

}  // namespace tintbench::transfer
