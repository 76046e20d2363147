#include "shell/Program.h"

#include "base/Numbers.h"
#include "base/Paths.h"
#include "config/FileParts.h"
#include "shell/CommandLineKeys.h"
#include "shell/SettingsFile.h"

namespace tintbench::shell {

namespace {

// The splash stands no longer than this, in seconds, once link-up is over.
constexpr double kSplashTime = 8.0;

}  // namespace

Program::Program(const ProgramSetup& setup)
    : setup_(setup),
      paths_(setup.AppPath),
      startupKeys_{KeyLookup(setup.CommandLine, "KSVDEBUG"), KeyLookup(setup.CommandLine, "PORT")},
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
      form1_({Line(), Panels(), setup.Screen, setup_.Identity, ports_, facts_, selectors_, names_,
              session_, windows_, formDbg_}),
      session_({.Port = setup.Port,
                .Clock = setup.Clock,
                .Files = setup.Files,
                .Screen = setup.Screen,
                .Ports = ports_,
                .Commands = transaction_,
                .Transfer = xmodem_,
                .Facts = facts_,
                .Status = status_,
                .View = form1_},
               paths_, ReadSerialMode(setup.Files, paths_.SettingsFile()), startupKeys_.Port),
      windows_({.Screen = setup.Screen,
                .Files = setup.Files,
                .Paths = paths_,
                .Identity = setup_.Identity,
                .Line = Line(),
                .Panels = Panels(),
                .Facts = facts_,
                .Errors = errors_,
                .Selectors = selectors_,
                .Parameters = parameters_,
                .Ports = ports_,
                .Engine = xmodem_,
                .Link = session_,
                .MainWindow = form1_}),
      steps_(form1_.LblLinkStep, {&splash_.lblStep, &startPanel_.LblStep}),
      waits_(form1_.LblLinkWait, {&splash_.lblWait, &startPanel_.LblWait}) {
  setup_.Screen.Title = setup_.Identity.AppTitle;
  splash_.Closed = [this] {
    if (session_.IsStarting() && !setup_.Screen.IsClosingAll()) setup_.Screen.Show(startPanel_);
  };
  setup_.Screen.Register(splash_);
  setup_.Screen.Register(startPanel_);
  setup_.Screen.Register(form1_);
  setup_.Screen.Register(formDbg_);
}

link::LineParts Program::Line() {
  return {setup_.Port, setup_.Clock, commands_, transaction_, log_, status_};
}

state::PanelParts Program::Panels() { return {names_, decoder_, styles_}; }

Program::Result Program::Main() {
  StartDebugLevel();
  SweepUp();
  ShowSplash();
  setup_.Screen.Load(form1_);
  if (!session_.HasPort()) {
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
  for (const std::string& name : setup_.Files.List(paths_.AppPath(), "_FW_.???")) {
    const std::string part =
        config::FilePartPath(paths_.AppPath(), base::LeadingInt(base::FileExtension(name)));
    if (part == base::JoinPath(paths_.AppPath(), name)) {
      static_cast<void>(setup_.Files.Delete(part));
    }
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
    form1_.SetDebugLevel(level);
  } else {
    log_.ApplyDebugLevel();
  }
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

}  // namespace tintbench::shell
