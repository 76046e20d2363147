// Reads the options, picks screen, clock, ports and data folder, builds the program and runs it.
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/AppFiles.h"
#include "app/AppOptions.h"
#include "app/EndSignals.h"
#include "app/LastWord.h"
#include "base/Clock.h"
#include "qt/Application.h"
#include "qt/DesktopScreen.h"
#include "qt/EndWatch.h"
#include "qt/FolderLock.h"
#include "qt/PortTable.h"
#include "qt/QtSerialPort.h"
#include "qt/StandardViews.h"
#include "shell/Program.h"
#include "simulator/SimulatedPort.h"
#include "ui/OperatorScreen.h"

namespace tintbench::app {

namespace {

constexpr const char* kTitle = "TintBench";

enum ExitStatus { kGood = 0, kWrongOptions = 2, kNoPort = 3 };

int Complain(const std::string& what) {
  std::cerr << "tintbench: " << what << '\n';
  return kWrongOptions;
}

// A script is text typed by hand; nothing near this size is one.
constexpr std::size_t kLargestScript = 1U << 20U;

std::optional<std::string> ReadScript(base::FileSystem& files, const std::string& file) {
  if (file != "-") return base::ReadFile(files, file, kLargestScript);
  std::string text;
  for (char character = 0; std::cin.get(character);) {
    if (text.size() == kLargestScript) return std::nullopt;
    text += character;
  }
  return text;
}

// The serial line that the options ask for, with the machine behind it if that is simulated.
struct Line {
  Line(const AppOptions& options, base::Clock& clock) {
    if (options.Demo) {
      Machine = std::make_unique<simulator::Machine>(clock);
      Port = std::make_unique<simulator::SimulatedPort>(
          clock, std::map<int, simulator::Machine*>{{1, Machine.get()}});
      return;
    }
    Port = std::make_unique<desktop::QtSerialPort>(
        clock, desktop::PortTable(options.Ports),
        [](const std::string& problem) { std::cerr << "tintbench: " << problem << '\n'; });
  }

  std::unique_ptr<simulator::Machine> Machine;
  std::unique_ptr<link::SerialPort> Port;
};

struct Run {
  const AppOptions& Options;
  base::Clock& Clock;
  base::FileSystem& Files;
  const EndSignals& Signals;
  std::string AppPath;
};

shell::Program::Result RunProgram(const Run& run, Line& line, ui::Screen& screen) {
  const desktop::EndWatch watch(run.Signals.Descriptor(), [&run, &screen] {
    run.Signals.Take();
    screen.CloseAll();
  });
  shell::Program program({.Clock = run.Clock,
                          .Files = run.Files,
                          .Port = *line.Port,
                          .Screen = screen,
                          .Identity = base::MakeIdentity(kTitle, TINTBENCH_VERSION),
                          .AppPath = run.AppPath,
                          .CommandLine = run.Options.CommandLine});
  const LastWord lastWord([&program] { program.LetGoOfMachine(); });
  const shell::Program::Result result = program.Main();
  const std::string on = program.LeftOn();
  if (!on.empty()) Complain("perhaps still switched on at the machine: " + on);
  return result;
}

int RunOperator(const Run& run, const ui::OperatorScript& script) {
  Line line(run.Options, run.Clock);
  ui::OperatorScreen::MachineTeller teller;
  if (line.Machine) {
    teller = [&line](const std::string& words) { return line.Machine->Tell(words); };
  }
  ui::OperatorScreen screen(run.Clock, script, std::cout, std::cerr, teller);
  screen.Meanwhile = desktop::Application::ServeEvents;
  if (RunProgram(run, line, screen) == shell::Program::Result::NoPort) return kNoPort;
  return static_cast<int>(screen.Finish());
}

int RunDesktop(const Run& run) {
  Line line(run.Options, run.Clock);
  desktop::DesktopScreen screen(run.Clock);
  desktop::AddStandardViews(screen);
  return RunProgram(run, line, screen) == shell::Program::Result::NoPort ? kNoPort : kGood;
}

int Start(const AppOptions& options, int argc, char** argv) {
  base::RealClock realClock;
  base::VirtualClock virtualClock;
  SyncedFileSystem files;
  ui::OperatorScript script;
  std::string error;
  const bool withOperator = !options.OperatorFile.empty();
  if (withOperator) {
    const std::optional<std::string> text = ReadScript(files, options.OperatorFile);
    if (!text) return Complain("can't read the script " + options.OperatorFile);
    if (!ui::ParseOperatorScript(*text, options.OperatorFile, script, error)) {
      return Complain(error);
    }
  } else if (!desktop::Application::HasDisplay()) {
    return Complain("there is no display to show windows on; --operator plays a script without");
  }
  const auto appPath = ChooseAppPath(files, options.DataDir, argv[0], error);
  if (!appPath) return Complain(error);
  desktop::FolderLock lock;
  if (!lock.Take(*appPath, error)) return Complain(error);
  const EndSignals endSignals;
  base::Clock& clock = options.VirtualClock ? static_cast<base::Clock&>(virtualClock) : realClock;
  const Run run{options, clock, files, endSignals, *appPath};
  int count = argc > 0 ? 1 : 0;  // our options are none of the toolkit's
  const desktop::Application application(
      withOperator ? desktop::ApplicationKind::Console : desktop::ApplicationKind::Windows, count,
      argv, kTitle);
  return withOperator ? RunOperator(run, script) : RunDesktop(run);
}

}  // namespace

}  // namespace tintbench::app

int main(int argc, char** argv) {
  using namespace tintbench::app;
  AppOptions options;
  std::string error;
  if (!ParseOptions({argv + 1, argv + argc}, options, error)) return Complain(error);
  if (options.Help) {
    std::cout << HelpText();
    return kGood;
  }
  if (options.Version) {
    std::cout << kTitle << ' ' << TINTBENCH_VERSION << '\n';
    return kGood;
  }
  return Start(options, argc, argv);
}
