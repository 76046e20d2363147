#include "app/MachineOptions.h"

#include <array>
#include <charconv>
#include <cstddef>
#include <string_view>

#include "simulator/Machine.h"

namespace tintbench::app {

namespace {

constexpr int kSlowest = 50;
constexpr int kFastest = 1000000;

bool SetFlag(bool& flag) { return flag = true; }

bool SetText(std::string& text, const std::string& value) {
  text = value;
  return !value.empty();
}

bool SetBaud(MachineArguments& parsed, const std::string& value) {
  const char* end = value.data() + value.size();
  const auto [stop, error] = std::from_chars(value.data(), end, parsed.Baud);
  return error == std::errc{} && stop == end && parsed.Baud >= kSlowest && parsed.Baud <= kFastest;
}

// "late=3" as the machine is told it, "late 3".
bool AddFault(MachineArguments& parsed, std::string value) {
  const std::size_t equals = value.find('=');
  if (equals != std::string::npos) value[equals] = ' ';
  parsed.Faults.push_back(value);
  return !value.empty();
}

struct Option {
  std::string_view Name;
  bool TakesValue;
  // False if the value is wrong; one without a value gets an empty text.
  bool (*Set)(MachineArguments& parsed, const std::string& value);
};

using Text = const std::string&;

constexpr std::array kOptions = {
    Option{"--help", false, [](MachineArguments& p, Text) { return SetFlag(p.Help); }},
    Option{"--version", false, [](MachineArguments& p, Text) { return SetFlag(p.Version); }},
    Option{"--words", false, [](MachineArguments& p, Text) { return SetFlag(p.ReadsWords); }},
    Option{"--link", true, [](MachineArguments& p, Text v) { return SetText(p.Link, v); }},
    Option{"--config", true,
           [](MachineArguments& p, Text v) { return SetText(p.ConfigurationFile, v); }},
    Option{"--firmware", true, [](MachineArguments& p, Text v) { return SetText(p.Firmware, v); }},
    Option{"--baud", true, SetBaud},
    Option{"--fault", true, [](MachineArguments& p, Text v) { return AddFault(p, v); }},
};

const Option* FindOption(std::string_view name) {
  for (const Option& option : kOptions) {
    if (option.Name == name) return &option;
  }
  return nullptr;
}

// Takes the option at `place`, which moves on if its value stands in the next argument. What is
// wrong with it; empty if nothing is.
std::string TakeOption(const std::vector<std::string>& arguments, std::size_t& place,
                       MachineArguments& parsed) {
  const std::string& argument = arguments[place];
  const std::size_t equals = argument.find('=');
  const bool inside = equals != std::string::npos;
  const std::string name = argument.substr(0, equals);
  const Option* option = FindOption(name);
  if (option == nullptr || (inside && !option->TakesValue)) return "unknown option " + argument;
  std::string value = inside ? argument.substr(equals + 1) : std::string();
  if (option->TakesValue && !inside) {
    if (place + 1 == arguments.size()) return name + " needs a value";
    value = arguments[++place];
  }
  return option->Set(parsed, value) ? "" : "wrong value for " + name + ": \"" + value + "\"";
}

}  // namespace

bool ParseMachineArguments(const std::vector<std::string>& arguments, MachineArguments& parsed,
                           std::string& error) {
  for (std::size_t place = 0; place < arguments.size(); ++place) {
    error = TakeOption(arguments, place, parsed);
    if (!error.empty()) return false;
  }
  if (parsed.Link.empty() && !parsed.Help && !parsed.Version) error = "--link PATH is missing";
  return error.empty();
}

std::string MachineHelp() {
  return "Usage: tintbench-machine --link PATH [option]...\n"
         "A simulated tinting machine at a pseudo-terminal, until it is ended.\n"
         "\n"
         "Options:\n"
         "  --link PATH            makes PATH a link to the pseudo-terminal\n"
         "  --config FILE          runs this configuration file\n"
         "  --firmware TEXT        firmware version, three characters of it are told\n"
         "  --baud N               speed of the machine's line (19200)\n"
         "  --fault NAME[=VALUE]   switches a fault on; may be given again\n"
         "  --words                does what is told on standard input, one line each\n"
         "  --help                 prints this text\n"
         "  --version              prints the version\n"
         "\n" +
         simulator::Machine::TellHelp();
}

}  // namespace tintbench::app
