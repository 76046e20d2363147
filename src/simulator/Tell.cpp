#include <algorithm>
#include <array>
#include <utility>

#include "simulator/Machine.h"
#include "simulator/PlantWords.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

constexpr std::size_t kUsageWidth = 40;
constexpr std::size_t kNameWidth = 18;

struct Usage {
  std::string_view Words;
  const char* Help;
};

// Of the words that say for themselves what is wrong with them.
constexpr std::array kUsages = {
    Usage{"after SECONDS WORDS...", "does what these words say, then"},
    Usage{"check valves|stirrings|motors N...|none", "fails unless just these are on"},
    Usage{"check caps N...|none", "fails unless all others are closed"},
    Usage{"check shelf low|between|high|rising|sinking", "fails unless it is so"},
    Usage{"check display TEXT...|none", "fails unless the display shows just this"},
    Usage{"check heard #COMMAND*...|none", "fails unless these came last, in this order"},
    Usage{"fault NAME [VALUE] [#COMMAND*] | NAME off", "see below"},
    Usage{"fault none", "switches all faults off"},
};

std::string Column(std::string_view text, std::size_t width) {
  std::string column = "  " + std::string(text);
  column.resize(std::max(column.size() + 1, width + 2), ' ');
  return column;
}

std::string_view ValueName(FaultValue value) {
  switch (value) {
    case FaultValue::None:
      return "-";
    case FaultValue::Times:
      return "times";
    case FaultValue::Seconds:
      return "seconds";
    case FaultValue::Characters:
      return "characters";
    case FaultValue::Block:
      return "block";
    case FaultValue::Rate:
      return "rate 0..1, @N";
    case FaultValue::Moment:
      return "seconds, @N";
  }
  return "";
}

std::string Usual(const FaultKind& kind) {
  if (kind.Value == FaultValue::None) return "";
  if (kind.Value == FaultValue::Times) return "always";
  std::string number = std::to_string(kind.Default);
  number.erase(number.find_last_not_of('0') + 1);
  if (number.back() == '.') number.pop_back();
  return number;
}

}  // namespace

struct Machine::Word {
  std::string_view Verb;
  std::string_view Usage;
  std::string_view Help;
  bool (Machine::*Run)(const Words& words);
};

std::span<const Machine::Word> Machine::MachineWords() {
  static constexpr std::array kWords = {
      Word{"unplug", "unplug", "takes the line off", &Machine::UnplugLine},
      Word{"plug", "plug", "puts the line back", &Machine::PlugLine},
      Word{"reset", "reset", "presses the RESET button", &Machine::PressReset},
      Word{"button", "button reset", "does the same", &Machine::PressButton},
      Word{"power", "power on|off", "switches the machine", &Machine::SwitchPower},
      Word{"firmware", "firmware TEXT|none",
           "changes the version, or takes the program out of flash memory", &Machine::SetFirmware},
      Word{"xmodem", "xmodem crc|checksum|128|1024", "check as receiver, block size as sender",
           &Machine::SetXmodem},
      Word{"forget", "forget", "forgets which commands were heard", &Machine::ForgetHeard},
      Word{"seed", "seed N", "begins the throws of random faults anew", &Machine::SetSeed},
  };
  return kWords;
}

std::string Machine::Tell(std::string_view text) {
  Live();
  return Do(text);
}

std::string Machine::Do(std::string_view text) {
  plant_.Settle(now_);
  Words words = simulator::Words(text);
  if (words.empty()) return "a word is missing";
  const std::string verb = words.front();
  words.erase(words.begin());
  if (verb == "fault") return SetFault(words);
  if (verb == "after") return Postpone(words);
  if (verb == "check") return Check(words);
  const auto wrong = [](std::string_view usage) { return "usage: " + std::string(usage); };
  for (const Word& word : MachineWords()) {
    if (word.Verb == verb) return (this->*word.Run)(words) ? std::string() : wrong(word.Usage);
  }
  for (const PlantWord& word : PlantWords()) {
    if (word.Verb == verb) return word.Run(plant_, words, now_) ? std::string() : wrong(word.Usage);
  }
  return "unknown word: " + verb;
}

// True for a word that can be told for later; a check has nobody to tell what it found then.
bool Machine::Knows(std::string_view verb) {
  const auto is = [verb](const auto& word) { return word.Verb == verb; };
  return verb == "fault" || std::ranges::any_of(MachineWords(), is) ||
         std::ranges::any_of(PlantWords(), is);
}

std::string Machine::TellHelp() {
  std::string help = "Words:\n";
  for (const Word& word : MachineWords()) {
    help += Column(word.Usage, kUsageWidth) + std::string(word.Help) + "\n";
  }
  for (const PlantWord& word : PlantWords()) {
    help += Column(word.Usage, kUsageWidth) + std::string(word.Help) + "\n";
  }
  for (const Usage& usage : kUsages) help += Column(usage.Words, kUsageWidth) + usage.Help + "\n";
  help += "\n";
  help +=
      "Faults (those marked * can be restricted to one command, as in refuse #cr*, and those of a\n"
      "transfer to one part of a program, as in cancel 3 part=2; @N is the N-th byte on the line\n"
      "from then on, whichever way it goes):\n";
  for (const FaultKind& kind : FaultKinds()) {
    help += Column(std::string(kind.Name) + (kind.PerCommand ? " *" : ""), kNameWidth) +
            Column(ValueName(kind.Value), 14) + Column(Usual(kind), 7) + std::string(kind.Help) +
            "\n";
  }
  return help;
}

bool Machine::PressReset(const Words& words) {
  if (!words.empty()) return false;
  BreakOff(kResetSeconds);
  return true;
}

bool Machine::PressButton(const Words& words) { return words == Words{"reset"} && PressReset({}); }

bool Machine::SwitchPower(const Words& words) {
  if (words == Words{"on"}) {
    Restart(kResetSeconds);
    return true;
  }
  if (words != Words{"off"}) return false;
  BreakOff(kNever);
  pending_.clear();
  return true;
}

bool Machine::SetFirmware(const Words& words) {
  if (words.size() != 1) return false;
  plant_.Firmware = words[0] == "none" ? "" : words[0];
  return true;
}

bool Machine::SetXmodem(const Words& words) {
  if (words.size() != 1) return false;
  const std::string& what = words[0];
  if (what == "crc" || what == "checksum") {
    options_.AsksForCrc = what == "crc";
    return true;
  }
  if (what != "128" && what != "1024") return false;
  options_.BlockSize = what == "128" ? 128 : 1024;
  return true;
}

}  // namespace tintbench::simulator
