// The command line of the program: its options, and the free text in which the two keys stand.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace tintbench::app {

struct AppOptions {
  bool Demo = false;
  bool Help = false;
  bool Version = false;
  bool VirtualClock = false;
  std::map<int, std::string> Ports;  // device by port number
  std::string DataDir;               // empty: not given
  std::string OperatorFile;          // empty: windows; "-": standard input
  std::string CommandLine;           // all that is no option
};

// Reads the arguments behind the program's name. False if they are wrong; `error` is then one line
// that says why.
bool ParseOptions(const std::vector<std::string>& arguments, AppOptions& options,
                  std::string& error);

// What --help prints.
std::string HelpText();

}  // namespace tintbench::app
