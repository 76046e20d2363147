// The command line of tintbench-machine.
#pragma once

#include <string>
#include <vector>

namespace tintbench::app {

struct MachineArguments {
  bool Help = false;
  bool Version = false;
  bool ReadsWords = false;        // what stands on standard input is told to the machine
  std::string Link;               // path that leads to the pseudo-terminal
  std::string ConfigurationFile;  // empty: the built-in one
  std::string Firmware;           // empty: the machine's own
  int Baud = 19200;
  std::vector<std::string> Faults;  // each as the machine is told it, "late 3"
};

// Reads the arguments behind the program's name; the value of an option may stand behind "=" or in
// the next argument. False if they are wrong; `error` is then one line that says why.
bool ParseMachineArguments(const std::vector<std::string>& arguments, MachineArguments& parsed,
                           std::string& error);

// What --help prints.
std::string MachineHelp();

}  // namespace tintbench::app
