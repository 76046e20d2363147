#include "shell/Program.h"

#include "base/Numbers.h"
#include "base/Text.h"
#include "link/MasterFrame.h"
#include "shell/CommandLineKeys.h"
#include "shell/SettingsFile.h"

namespace tintbench::shell {

namespace {

// The splash stands no longer than this, in seconds, once link-up is over.
constexpr double kSplashTime = 8.0;
// A tick of the polling that runs when the window closes has ended by then, in seconds.
constexpr double kTickTime = 0.8;

}  // namespace

Program::Program(const ProgramSetup& setup)
    : setup_(setup),
      paths_(setup.AppPath),
      startupKeys_{KeyLookup(setup.CommandLine, "KSVDEBUG"), KeyLookup(setup.CommandLine, "PORT")},
      serialMode_(ReadSerialMode(setup.Files, paths_.SettingsFile())),
      log_(setup.Files, paths_.DebugLog()),
      ports_(setup.Port, setup.Clock, status_),
      transaction_(setup.Port, setup.Clock, commands_, setup.Screen, log_),
      xmodem_(setup.Port, setup.Clock, setup.Files,
              {.AppPath = setup.AppPath,
               .ServeEvents = [this] { ServeTransfer(); },
               .DebugLevel = [this] { return log_.DebugLevel(); }}),
      decoder_(names_, errors_, [this] { return base::LeadingNumber(status_.FirmwareVersion); }),
      splash_(setup.Screen, setup.Identity),
      startPanel_(setup.Screen),
      formDbg_(setup.Screen),
      windows_(setup.Screen, formComm_, formStat_, formAuto_, formGMon_),
      form1_({.Screen = setup.Screen,
              .Identity = setup_.Identity,
              .Owner = *this,
              .Windows = windows_,
              .Port = setup.Port,
              .Ports = ports_,
              .Commands = transaction_,
              .Status = status_,
              .SerialMode = serialMode_,
              .Facts = facts_,
              .Names = names_,
              .Decoder = decoder_,
              .Styles = styles_}),
      formComm_({.Screen = setup.Screen,
                 .Port = setup.Port,
                 .Commands = transaction_,
                 .Table = commands_,
                 .Log = log_,
                 .Facts = facts_,
                 .Status = status_,
                 .Names = names_,
                 .Decoder = decoder_,
                 .Styles = styles_,
                 .MainWindow = form1_}),
      formStat_({.Screen = setup.Screen,
                 .Files = setup.Files,
                 .Paths = paths_,
                 .Port = setup.Port,
                 .Commands = transaction_,
                 .Table = commands_,
                 .Log = log_,
                 .Facts = facts_,
                 .Status = status_},
                statCatalogue_),
      formAuto_({.Screen = setup.Screen, .Commands = transaction_, .Log = log_, .Errors = errors_}),
      formGMon_(
          {.Screen = setup.Screen,
           .Port = setup.Port,
           .Commands = transaction_,
           .Table = commands_,
           .Log = log_,
           .Facts = facts_,
           .Selectors = selectors_,
           .On = formComm_.On()},
          {.Record = groupRecord_, .Instruments = groupInstruments_, .Readings = groupReadings_}),
      groupRecord_(setup.Screen, setup.Files, paths_.RecordingFolder(), formGMon_,
                   formGMon_.TheGroup()),
      groupInstruments_(formGMon_, formGMon_.TheGroup()),
      steps_(form1_.LblLinkStep, {&splash_.lblStep, &startPanel_.LblStep}),
      waits_(form1_.LblLinkWait, {&splash_.lblWait, &startPanel_.LblWait}),
      linkUp_({.Port = setup.Port,
               .Clock = setup.Clock,
               .Files = setup.Files,
               .Screen = setup.Screen,
               .Ports = ports_,
               .Commands = transaction_,
               .Transfer = xmodem_,
               .Facts = facts_,
               .Status = status_,
               .View = form1_},
              paths_, serialMode_, startupKeys_.Port) {
  setup_.Screen.Title = setup_.Identity.AppTitle;
  splash_.Closed = [this] {
    if (linking_ && !setup_.Screen.IsClosingAll()) setup_.Screen.Show(startPanel_);
  };
  setup_.Screen.Register(splash_);
  setup_.Screen.Register(startPanel_);
  setup_.Screen.Register(form1_);
  setup_.Screen.Register(formDbg_);
  setup_.Screen.Register(formComm_);
  setup_.Screen.Register(formStat_);
  setup_.Screen.Register(formAuto_);
  setup_.Screen.Register(formGMon_);
}

Program::Result Program::Main() {
  StartDebugLevel();
  SweepUp();
  ShowSplash();
  setup_.Screen.Load(form1_);
  if (!hasPort_) {
    splash_.Close();
    return Result::NoPort;
  }
  AwaitSplash();
  setup_.Screen.DoEvents();
  ShowMainWindow();
  setup_.Screen.Run();
  return Result::Good;
}

// A program that was told to end meanwhile does behind link-up what the window's close button does.
void Program::ShowMainWindow() {
  if (setup_.Screen.IsClosingAll()) {
    setup_.Screen.Unload(form1_);
  } else {
    setup_.Screen.Show(form1_);
  }
  setup_.Screen.Hide(startPanel_);
}

// What belongs to an earlier run, and what one that was cut off left. A received file that can't be
// deleted is written anew by the next reception, or counts as wrong.
void Program::SweepUp() {
  for (const std::string& path : {paths_.ReceivedConfigFile(), paths_.ReceptionFile()}) {
    if (setup_.Files.FileExists(path)) static_cast<void>(setup_.Files.Delete(path));
  }
  for (const std::string& folder : {paths_.AppPath(), paths_.ConfigFolder(), paths_.StatFolder()}) {
    base::SweepTemporaryFiles(setup_.Files, folder);
  }
}

// A program that starts without a level has no menu to change it.
void Program::StartDebugLevel() {
  const std::string& key = startupKeys_.KsvDebug;
  const int level = base::IsNumeric(key) ? DebugLevelOf(base::LeadingInt(key)).value_or(0) : 0;
  form1_.MnuKsvdbg.Visible = level != 0;
  form1_.MnuKsvdbg.Enabled = level != 0;
  if (level != 0) {
    SetDebugLevel(level);
  } else {
    log_.ApplyDebugLevel();
  }
}

void Program::SetDebugLevel(int level) {
  log_.DebugLevel(level);
  log_.ApplyDebugLevel();
  form1_.ShowDebugLevel(level);
}

// A level that is set begins a new log, and what was given up is not set.
void Program::EditDebugLevel() {
  if (const auto level = formDbg_.Edit(log_.DebugLevel())) SetDebugLevel(*level);
}

// A program that is told to end doesn't wait for the end of a transfer.
void Program::ServeTransfer() {
  setup_.Screen.DoEvents();
  if (setup_.Screen.IsClosingAll()) xmodem_.XmodemAbort();
}

void Program::ShowSplash() {
  splashSince_ = setup_.Clock.Now();
  setup_.Screen.Show(splash_);
  splash_.Refresh();
}

void Program::AwaitSplash() {
  const double end = splashSince_ + kSplashTime;
  while (!splash_.SplashClosed && !setup_.Screen.IsQuitting()) {
    setup_.Screen.Idle(end - setup_.Clock.Now());
    if (setup_.Clock.Now() >= end) splash_.Close();
  }
}

void Program::LoadMainWindow() {
  hasPort_ = ports_.DefinePortList();
  if (!hasPort_) {
    setup_.Screen.Ask({.Text = base::JoinLines({"ERROR !!!", "", "NO communication port available",
                                                "", "PROGRAM ABORTED !!"})});
    return;
  }
  transaction_.ClearSerialBusy();
  if (!setup_.Files.DirExists(paths_.ConfigFolder())) {
    // Without the folder no configuration can be received, and link-up says so.
    static_cast<void>(setup_.Files.MakeDir(paths_.ConfigFolder()));
  }
  std::string port;
  std::string settings;
  linking_ = true;
  linkUp_.LinkMachine(port, settings);
  linking_ = false;
}

void Program::EndMainWindow() {
  setup_.Clock.Sleep(kTickTime);
  if (serialMode_ == link::kMasterMode) ReturnService();
  ports_.CloseComPort();
  log_.CloseDebugLog();
}

// A machine that ends its answer with code 3 never gives exactly "A": the box is then the normal
// outcome.
void Program::ReturnService() {
  setup_.Port.Output("#PY*");
  const std::string answer = link::CollectUntilFrameEnd(setup_.Port, setup_.Screen);
  if (answer != "A") {
    setup_.Screen.Ask(
        {.Text = "ERROR in disactive service on MASTER SERIAL", .Icon = ui::BoxIcon::Exclamation});
  }
}

void Program::LinkAgain() { linkUp_.LinkAgain(); }

void Program::BuildSensorNames(bool configured) {
  names_ = state::BuildSensorNames(configured, facts_, selectors_);
}

}  // namespace tintbench::shell
