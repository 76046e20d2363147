// The whole program below its screens: owns everything that lives for the run, brings it up in
// order behind the splash, and takes it down again.
#pragma once

#include <string>

#include "base/AppIdentity.h"
#include "base/AppPaths.h"
#include "base/Clock.h"
#include "base/Files.h"
#include "config/MachineFacts.h"
#include "config/ParameterCatalogue.h"
#include "config/SelectorCatalogue.h"
#include "link/ComPort.h"
#include "link/CommandTable.h"
#include "link/DebugLog.h"
#include "link/LinkUp.h"
#include "link/Transaction.h"
#include "link/Xmodem.h"
#include "shell/Form1.h"
#include "shell/FormDbg.h"
#include "shell/LinkSession.h"
#include "shell/Splash.h"
#include "shell/StartPanel.h"
#include "shell/SubWindows.h"
#include "state/ErrorCatalogue.h"
#include "state/SensorNames.h"
#include "state/SensorPanels.h"
#include "state/StateDecoder.h"
#include "ui/Screen.h"

namespace tintbench::shell {

// What the program runs on. All of it must outlive the program.
struct ProgramSetup {
  base::Clock& Clock;
  base::FileSystem& Files;
  link::SerialPort& Port;
  ui::Screen& Screen;
  base::AppIdentity Identity;
  std::string AppPath;
  std::string CommandLine;  // free text with the keys KSVDEBUG and PORT
};

// What the command line and the settings file say.
struct StartupKeys {
  std::string KsvDebug;
  std::string Port;
};

class Program final {
 public:
  enum class Result { Good, NoPort };

  explicit Program(const ProgramSetup& setup);

  // Runs from the start to the end of the main window.
  Result Main();

  // What is still switched on at the machine, in words, because it could not be switched off.
  std::string LeftOn() const { return windows_.LeftOn(); }
  // Leaves the machine as the way out does, without anything that a display is needed for.
  void LetGoOfMachine() { form1_.LetGoOfMachine(); }

  // Parts that tests and measurements look at.
  const link::LinkStatus& Status() const { return status_; }
  const config::MachineFacts& Facts() const { return facts_; }
  const state::SensorNames& Names() const { return names_; }
  link::LinkUp& Linker() { return session_.Linker(); }
  const std::string& SerialMode() const { return session_.SerialMode(); }

 private:
  link::LineParts Line();
  state::PanelParts Panels();
  void SweepUp();
  void ServeTransfer();
  void ShowSplash();
  void AwaitSplash();
  void ShowMainWindow();
  void StartDebugLevel();

  ProgramSetup setup_;
  base::AppPaths paths_;
  StartupKeys startupKeys_;
  config::SelectorCatalogue selectors_;
  config::ParameterCatalogue parameters_{selectors_};
  state::ErrorTable errors_;
  config::MachineFacts facts_;
  state::SensorNames names_;
  link::LinkStatus status_;
  link::CommandTable commands_;
  link::DebugLog log_;
  link::ComPort ports_;
  link::Transaction transaction_;
  link::Xmodem xmodem_;
  state::StateDecoder decoder_;
  state::PanelStyles styles_;
  frmSplsh splash_;
  StartPanel startPanel_;
  FormDbg formDbg_;
  Form1 form1_;
  LinkSession session_;
  SubWindows windows_;
  LabelMirror steps_;
  LabelMirror waits_;
  double splashSince_ = 0;
};

}  // namespace tintbench::shell
