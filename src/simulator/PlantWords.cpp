#include "simulator/PlantWords.h"

#include <array>
#include <map>
#include <optional>
#include <span>

#include "base/Numbers.h"
#include "simulator/Inputs.h"
#include "simulator/Plant.h"
#include "simulator/Text.h"

namespace tintbench::simulator {

namespace {

using Words = std::vector<std::string>;

std::optional<bool> OnOff(const std::string& word) {
  if (word == "on") return true;
  if (word == "off") return false;
  return std::nullopt;
}

// Four hexadecimal digits.
std::optional<std::uint32_t> ErrorCode(const std::string& word) {
  return word.size() == 4 ? HexNumber(word) : std::nullopt;
}

bool Can(Plant& plant, const Words& words, double now) {
  if (words.size() != 1 || !OnOff(words[0])) return false;
  plant.TheShelf.PutCan(*OnOff(words[0]), now);
  return true;
}

bool Door(Plant& plant, const Words& words, double) {
  if (words.size() != 1 || (words[0] != "open" && words[0] != "closed")) return false;
  plant.DoorOpen = words[0] == "open";
  return true;
}

// "N on|off|auto" for one of so many sensors.
bool Force(std::map<int, bool>& forced, const Words& words, int most) {
  if (words.size() != 2) return false;
  const int number = base::LeadingInt(words[0]);
  if (number < 1 || number > most) return false;
  if (words[1] == "auto") {
    forced.erase(number);
    return true;
  }
  if (!OnOff(words[1])) return false;
  forced[number] = *OnOff(words[1]);
  return true;
}

bool Input(Plant& plant, const Words& words, double) {
  return Force(plant.ForcedInputs, words, kConnectors);
}

bool Output(Plant& plant, const Words& words, double) {
  return Force(plant.ForcedOutputs, words, kOutputRows);
}

bool Error(Plant& plant, const Words& words, double now) {
  if (words == Words{"none"}) {
    plant.Errors.Clear();
    return true;
  }
  if (words.empty() || words.size() > 2 || !ErrorCode(words[0])) return false;
  const bool goes = words.size() == 2;
  if (goes && words[1] != "off") return false;
  goes ? plant.Errors.Remove(*ErrorCode(words[0])) : plant.Errors.Add(*ErrorCode(words[0]), now);
  return true;
}

bool Cap(Plant& plant, const Words& words, double) {
  if (words.size() != 2) return false;
  const int cap = base::LeadingInt(words[0]);
  const std::string& what = words[1];
  if (what == "open") return plant.TheCaps.Put(cap, CapPosition::Open);
  if (what == "closed") return plant.TheCaps.Put(cap, CapPosition::Closed);
  if (what == "middle") return plant.TheCaps.Put(cap, CapPosition::Middle);
  if (what == "stuck") return plant.TheCaps.Stick(cap, true);
  return what == "free" && plant.TheCaps.Stick(cap, false);
}

bool ShelfAt(Plant& plant, const Words& words, double now) {
  if (words.size() != 1 || !plant.TheShelf.Exists()) return false;
  if (words[0] == "stuck" || words[0] == "free") {
    plant.TheShelf.Stick(words[0] == "stuck", now);
    return true;
  }
  const std::optional<double> height = words[0] == "high"  ? plant.TheShelf.Top()
                                       : words[0] == "low" ? 0.0
                                                           : WholeNumber(words[0]);
  if (height) plant.TheShelf.Put(*height, now);
  return height.has_value();
}

bool Valve(Plant& plant, const Words& words, double) {
  return words.size() == 2 && plant.TheElements.SetValve(base::LeadingInt(words[0]), words[1]);
}

bool Motor(Plant& plant, const Words& words, double) {
  return words.size() == 2 && plant.TheElements.SetMotor(base::LeadingInt(words[0]), words[1]);
}

bool Busy(Plant& plant, const Words& words, double now) {
  const std::optional<double> seconds = words.size() == 1 ? WholeNumber(words[0]) : std::nullopt;
  if (!seconds || *seconds < 0) return false;
  plant.BusyUntil = now + *seconds;
  return true;
}

bool Process(Plant& plant, const Words& words, double now) {
  return words.size() == 1 && plant.TheProcesses.Prompt(words[0], now);
}

// "@TAG ELEMENT FIELD VALUE..." or "@TAG ELEMENT none"; "*" stands for every element.
bool Config(Plant& plant, const Words& words, double now) {
  if (words.size() < 3) return false;
  const bool drops = words.size() == 3 && words[2] == "none";
  const int field = drops ? 0 : base::LeadingInt(words[2]);
  const std::string value = Join(std::span(words).subspan(3), " ");
  if (!drops && (field < 1 || value.empty() || value.find(',') != std::string::npos)) return false;
  const std::optional<int> element =
      words[1] == "*" ? std::nullopt : std::optional(base::LeadingInt(words[1]));
  const std::optional<std::string> text =
      plant.Config.Edited(words[0], element, static_cast<std::size_t>(field), value);
  if (!text) return false;
  plant.TheElements.AllOff(now);
  plant.Config = Configuration::Read(*text, plant.Config.Slave());
  return true;
}

// What an input reads: a value, a cut wire, or what the group makes of it.
bool FixInput(Groups& groups, const GroupInput& input, const std::string& what) {
  if (what == "auto") return groups.Free(input);
  if (what == "cut") return groups.Cut(input);
  const std::optional<double> value = WholeNumber(what);
  return value && groups.Fix(input, *value);
}

// "right", "letter C", "state C" or "length N".
bool SetAnswers(AnswerForm& form, std::span<const std::string> words) {
  if (words.size() == 1 && words[0] == "right") {
    form = {};
    return true;
  }
  if (words.size() != 2) return false;
  if (words[0] == "length") {
    const std::optional<double> length = WholeNumber(words[1]);
    if (!length || *length < 0 || *length > Groups::kLongestAnswer) return false;
    form.Length = static_cast<std::size_t>(*length);
    return true;
  }
  if (words[1].size() != 1 || (words[0] != "letter" && words[0] != "state")) return false;
  (words[0] == "letter" ? form.Letter : form.State) = words[1].front();
  return true;
}

bool Group(Plant& plant, const Words& words, double now) {
  Groups& groups = plant.TheGroups;
  const int group = words.empty() ? 0 : base::LeadingInt(words[0]);
  if (words.size() < 2 || !groups.Exists(group)) return false;
  const std::string& what = words[1];
  if (what == "answer") return SetAnswers(groups.Answers(group), std::span(words).subspan(2));
  if (words.size() == 4 && (what == "digital" || what == "analogue")) {
    const int kind = what == "analogue" ? 1 : 0;
    return FixInput(groups, {group, kind, base::LeadingInt(words[2])}, words[3]);
  }
  if (words.size() != 2) return false;
  if (what == "fill") {
    groups.Fill(group);
    return true;
  }
  if (!OnOff(what)) return false;
  plant.SwitchGroup(group, *OnOff(what), now);
  return true;
}

bool Reading(Plant& plant, const Words& words, double) {
  if (words.size() != 4) return false;
  const GroupInput input{base::LeadingInt(words[0]), base::LeadingInt(words[1]),
                         base::LeadingInt(words[2])};
  return FixInput(plant.TheGroups, input, words[3]);
}

bool Dip(Plant& plant, const Words& words, double) {
  if (words.size() != 2 || !OnOff(words[1])) return false;
  const int dip = base::LeadingInt(words[0]);
  if (dip < 1 || dip > static_cast<int>(plant.DipSwitches.size())) return false;
  plant.DipSwitches[static_cast<std::size_t>(dip - 1)] = *OnOff(words[1]);
  return true;
}

bool AutotestCycle(Plant& plant, const Words& words, double) {
  if (words.size() == 1 && words[0] == "none") {
    plant.TheAutotest.Clear();
    return true;
  }
  if (words.size() == 2 && words[0] == "cut") {
    const std::optional<double> place = WholeNumber(words[1]);
    if (!place || *place < 0) return false;
    plant.TheAutotest.Cut = static_cast<std::size_t>(*place);
    return true;
  }
  if (words.empty() || words[0] != "cycle") return false;
  std::vector<std::uint32_t> errors;
  for (std::size_t i = 1; i < words.size(); ++i) {
    if (!ErrorCode(words[i])) return false;
    errors.push_back(*ErrorCode(words[i]));
  }
  return plant.TheAutotest.Add(errors);
}

// A value of a counter, which has ten digits at the most.
std::optional<double> CounterValue(const std::string& word) {
  const std::optional<double> value = WholeNumber(word);
  return value && *value >= 0 && *value <= Counter::kLargest ? value : std::nullopt;
}

// "flash good|broken", "records N|right" or "KIND ELEMENT SECONDS EVENTS".
bool SetCounter(Plant& plant, const Words& words, double now) {
  Statistics& statistics = plant.TheStatistics;
  if (words.size() == 2 && words[0] == "flash") {
    statistics.FlashBroken = words[1] == "broken";
    return statistics.FlashBroken || words[1] == "good";
  }
  if (words.size() == 2 && words[0] == "records") {
    const std::optional<double> count = CounterValue(words[1]);
    const bool right = words[1] == "right";
    if (!right && (!count || *count > 99)) return false;
    statistics.ToldRecords = right ? std::nullopt : std::optional(static_cast<int>(*count));
    return true;
  }
  if (words.size() != 4 || words[0].size() != 1) return false;
  const std::optional<double> seconds = CounterValue(words[2]);
  const std::optional<double> events = CounterValue(words[3]);
  Counter* counter = statistics.Find(words[0][0], base::LeadingInt(words[1]));
  if (!seconds || !events || counter == nullptr) return false;
  counter->Set(*seconds, *events, now);
  return true;
}

constexpr std::array kWords = {
    PlantWord{"can", "can on|off", "puts a can on the shelf, or takes it away", Can},
    PlantWord{"door", "door open|closed", "moves the safety door", Door},
    PlantWord{"input", "input N on|off|auto", "forces connector N, 1 to 20", Input},
    PlantWord{"output", "output N on|off|auto", "forces row N of the outputs, 1 to 16", Output},
    PlantWord{"error", "error CODE [off]|none", "adds an error of four hexadecimal digits", Error},
    PlantWord{"busy", "busy SECONDS", "is busy for so long", Busy},
    PlantWord{"process", "process stirring|circulation|dispensing",
              "makes it due now, unless it is held", Process},
    PlantWord{"cap", "cap N open|closed|middle|stuck|free", "moves a cap by hand, or blocks it",
              Cap},
    PlantWord{"shelf", "shelf high|low|MM|stuck|free", "puts the shelf somewhere, or blocks it",
              ShelfAt},
    PlantWord{"valve", "valve N good|broken|shorted", "found when it opens, or is tested", Valve},
    PlantWord{"motor", "motor N good|broken|no-zero|RPM",
              "stands still, gives no zero signal, or has a speed of its own", Motor},
    PlantWord{"group",
              "group N on|off|fill | N digital|analogue TYPE VALUE|cut|auto | "
              "N answer length N|letter C|state C|right",
              "switches an external group, fills its tank, fixes an input, or spoils its answers",
              Group},
    PlantWord{"reading", "reading GROUP 0|1 TYPE VALUE|cut|auto", "fixes an input of a group, too",
              Reading},
    PlantWord{"dip", "dip N on|off", "dip-switch 1 to 4; 4 is read at a reset", Dip},
    PlantWord{"config", "config @TAG N|* FIELD VALUE | @TAG N|* none",
              "changes the file that the machine runs and gives", Config},
    PlantWord{"autotest", "autotest cycle [CODE...]|cut N|none",
              "adds a self-test cycle, or breaks the record off behind N characters",
              AutotestCycle},
    PlantWord{"counter", "counter KIND N SECONDS EVENTS | flash good|broken | records N|right",
              "sets a counter of statistics, or spoils how they are kept and told", SetCounter},
};

}  // namespace

std::span<const PlantWord> PlantWords() { return kWords; }

}  // namespace tintbench::simulator
