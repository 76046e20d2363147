#include "app/AppOptions.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/Numbers.h"
#include "link/ComPort.h"

namespace tintbench::app {

namespace {

struct Option {
  std::string_view Name;
  bool TakesValue;
  // What is wrong with the value; empty if nothing is.
  std::string (*Apply)(const std::string& value, AppOptions& options);
};

std::string ApplyPort(const std::string& value, AppOptions& options) {
  const std::size_t equals = value.find('=');
  const std::string number = value.substr(0, equals);
  if (equals == std::string::npos || equals + 1 == value.size() || number.size() != 1 ||
      number[0] < '1' || number[0] > '0' + link::kMostPorts) {
    return "--port takes NUMBER=DEVICE with a number from 1 to 8, not \"" + value + "\"";
  }
  options.Ports[number[0] - '0'] = value.substr(equals + 1);
  return {};
}

std::string ApplyClock(const std::string& value, AppOptions& options) {
  if (value != "real" && value != "virtual") {
    return "--clock takes \"real\" or \"virtual\", not \"" + value + "\"";
  }
  options.VirtualClock = value == "virtual";
  return {};
}

std::string ApplyDataDir(const std::string& value, AppOptions& options) {
  options.DataDir = value;
  return value.empty() ? "--data-dir needs the name of a folder" : "";
}

std::string ApplyOperator(const std::string& value, AppOptions& options) {
  options.OperatorFile = value;
  return value.empty() ? "--operator needs the name of a script, or - for standard input" : "";
}

constexpr std::array<Option, 7> kOptions{{
    {"--demo", false,
     [](const std::string&, AppOptions& options) {
       options.Demo = true;
       return std::string();
     }},
    {"--help", false,
     [](const std::string&, AppOptions& options) {
       options.Help = true;
       return std::string();
     }},
    {"--version", false,
     [](const std::string&, AppOptions& options) {
       options.Version = true;
       return std::string();
     }},
    {"--port", true, ApplyPort},
    {"--clock", true, ApplyClock},
    {"--data-dir", true, ApplyDataDir},
    {"--operator", true, ApplyOperator},
}};

// What is wrong with the options together; empty if nothing is.
std::string Contradiction(const AppOptions& options) {
  if (options.VirtualClock && !options.Demo) {
    return "--clock virtual needs --demo: a real machine keeps its own time";
  }
  if (options.Demo && !options.Ports.empty()) {
    return "--demo and --port exclude each other: the simulated machine stands on port 1";
  }
  return {};
}

}  // namespace

bool ParseOptions(const std::vector<std::string>& arguments, AppOptions& options,
                  std::string& error) {
  for (std::size_t i = 0; i < arguments.size() && error.empty(); ++i) {
    const std::string& argument = arguments[i];
    if (!argument.starts_with("-")) {
      options.CommandLine += (options.CommandLine.empty() ? "" : " ") + argument;
      continue;
    }
    const std::size_t equals = argument.find('=');
    const std::string name = argument.substr(0, equals);
    const auto* option = std::find_if(kOptions.begin(), kOptions.end(),
                                      [&](const Option& known) { return known.Name == name; });
    const bool inOne = equals != std::string::npos;
    if (option == kOptions.end()) {
      error = "unknown option \"" + argument + "\"; --help lists the options";
    } else if (!option->TakesValue) {
      error = inOne ? name + " takes no value" : option->Apply({}, options);
    } else if (inOne) {
      error = option->Apply(argument.substr(equals + 1), options);
    } else if (i + 1 == arguments.size()) {
      error = name + " needs a value";
    } else {
      error = option->Apply(arguments[++i], options);
    }
  }
  if (error.empty() && !options.Help && !options.Version) error = Contradiction(options);
  return error.empty();
}

std::string HelpText() {
  return "Usage: tintbench [options] [KSVDEBUG(level)] [PORT(number:settings)]\n"
         "\n"
         "The service and diagnostic tool of a paint-tinting machine.\n"
         "\n"
         "  --demo             work with a simulated machine on port 1\n"
         "  --port N=DEVICE    port number N (1 to 8) is this device; may be given again\n"
         "  --data-dir DIR     keep settings, configurations and logs in this folder\n"
         "  --operator FILE    no windows: play this operator script (- for standard input)\n"
         "  --clock real|virtual\n"
         "                     virtual, with --demo only: waiting takes no time\n"
         "  --help             print this text\n"
         "  --version          print the version\n"
         "\n"
         "  KSVDEBUG(level)    start with this debug level: 3, 7 or 15\n"
         "  PORT(2:19200,N,8,1)\n"
         "                     link up on this port with these settings\n"
         "\n"
         "Exit status: 0 good, 1 an expectation of the script failed, 2 wrong options or\n"
         "script, 3 no serial port.\n";
}

}  // namespace tintbench::app
