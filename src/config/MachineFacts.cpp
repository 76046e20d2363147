#include "config/MachineFacts.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "base/Numbers.h"
#include "base/Text.h"
#include "config/ConfigFile.h"

namespace tintbench::config {

namespace {

constexpr int kThreePositionCap = 3;
constexpr std::string_view kPoweredCapTypes = "2,3,12,13,14,15";
constexpr int kPhotocell = 9;
constexpr int kLastPanelSensor = 21;
constexpr int kLongestValveTest = 600;
constexpr int kMostValves = 64;
constexpr int kLargestPurgeLimit = 4;
// Places of the machine's name in its quoted registration text.
constexpr int kLabelWithQuote = 18;
constexpr int kLabelLength = 17;

bool IsBetween(int value, int lowest, int highest) { return value >= lowest && value <= highest; }

// A count of 16 bits, saturated.
int Whole(std::string_view text) {
  return std::clamp<int>(base::LeadingInt(text), std::numeric_limits<short>::min(),
                         std::numeric_limits<short>::max());
}

std::string TwoDigits(std::string_view text) {
  return base::LastDigits(base::LeadingWhole(text), 2);
}

void AddTo(std::string& list, std::string_view value) { list.append(value).append(","); }

// The parameters of one data line.
class Parameters {
 public:
  explicit Parameters(std::string_view data) : data_(data) {}

  std::string operator[](int number) const { return base::GetField(number, data_, ","); }
  std::string Unquoted(int number) const {
    std::string value = (*this)[number];
    base::StripChar(value, '"');
    return value;
  }
  int Number() const { return Whole((*this)[1]); }
  std::string Element() const { return TwoDigits((*this)[1]); }

 private:
  std::string data_;
};

// Takes the lines of one file. Each handler is false for a bad line, which ends the reading; it
// takes the parameters one after the other, so that those before an empty one have effect.
class FactsReader {
 public:
  explicit FactsReader(MachineFacts& facts) : facts_(facts) {}

  bool Take(std::string_view tag, const Parameters& line);
  void Commit();

 private:
  using Handler = bool (FactsReader::*)(const Parameters& line);
  struct TagHandler {
    std::string_view Tag;
    Handler Handle;
  };

  bool AddElement(ElementKind kind, const Parameters& line);
  bool PlaceInGroup(const std::string& address, GroupColumn column, const Parameters& line);
  bool AddInput(InputKind kind, const std::string& record, const std::string& addresses);

  bool TakeCircuit(const Parameters& line);
  bool TakeCap(const Parameters& line);
  bool TakeMotor(const Parameters& line);
  bool TakeStirring(const Parameters& line);
  bool TakeGeneral(const Parameters& line);
  bool TakeShelf(const Parameters& line);
  bool TakeSensor(const Parameters& line);
  bool TakeDigitalInput(const Parameters& line);
  bool TakeAnalogueInput(const Parameters& line);
  bool TakeFunctions(const Parameters& line);
  bool TakeGroupTimes(const Parameters& line);

  MachineFacts& facts_;
  std::array<std::string, kElementKinds> elements_;
  // Functionalities by motor number.
  std::array<std::string, kGroupAddresses + 1> functions_;
};

bool FactsReader::Take(std::string_view tag, const Parameters& line) {
  static constexpr TagHandler kHandlers[] = {
      {"@CIR", &FactsReader::TakeCircuit},       {"@TAP", &FactsReader::TakeCap},
      {"@MOT", &FactsReader::TakeMotor},         {"@AGI", &FactsReader::TakeStirring},
      {"@GEN", &FactsReader::TakeGeneral},       {"@SGA", &FactsReader::TakeShelf},
      {"@ILE", &FactsReader::TakeSensor},        {"@IDI", &FactsReader::TakeDigitalInput},
      {"@IAN", &FactsReader::TakeAnalogueInput}, {"@FUN", &FactsReader::TakeFunctions},
      {"@IND", &FactsReader::TakeGroupTimes},
  };
  for (const TagHandler& handler : kHandlers) {
    if (handler.Tag == tag) return (this->*handler.Handle)(line);
  }
  return true;
}

bool FactsReader::AddElement(ElementKind kind, const Parameters& line) {
  if (line.Number() <= 0) return false;
  AddTo(elements_[kind], line.Element());
  return true;
}

bool FactsReader::PlaceInGroup(const std::string& address, GroupColumn column,
                               const Parameters& line) {
  if (address.empty()) return false;
  const int group = Whole(address);
  if (IsBetween(group, 1, kGroupAddresses)) {
    facts_.GroupElements[static_cast<std::size_t>(group)][column] = line.Element();
  }
  return true;
}

bool FactsReader::TakeCircuit(const Parameters& line) {
  if (!AddElement(kCircuits, line)) return false;
  if (!PlaceInGroup(line[5], kGroupCircuit, line)) return false;
  const std::string cap = line[6];
  if (cap.empty()) return false;
  AddTo(facts_.CircuitCapList, TwoDigits(cap));
  const std::string motor = line[7];
  if (motor.empty()) return false;
  AddTo(facts_.CircuitMotorList, TwoDigits(motor));
  return true;
}

bool FactsReader::TakeCap(const Parameters& line) {
  if (!AddElement(kCaps, line)) return false;
  const std::string type = line[2];
  if (type.empty()) return false;
  AddTo(facts_.CapTypeList, type);
  if (Whole(type) == kThreePositionCap) AddTo(facts_.CapThreePositionList, line.Element());
  const std::string time = line[4];
  if (time.empty()) return false;
  AddTo(facts_.CapTimeList, time);
  return true;
}

bool FactsReader::TakeMotor(const Parameters& line) {
  if (!AddElement(kMotors, line)) return false;
  if (!PlaceInGroup(line[4], kGroupMotor, line)) return false;
  const std::string seconds = line[23];
  if (seconds.empty()) return false;
  facts_.ValveTestTime = IsBetween(Whole(seconds), 1, kLongestValveTest) ? Whole(seconds) : 0;
  return true;
}

bool FactsReader::TakeStirring(const Parameters& line) {
  return AddElement(kStirrings, line) && PlaceInGroup(line[5], kGroupStirring, line);
}

bool FactsReader::TakeGeneral(const Parameters& line) {
  const std::string limit = line[11];
  if (limit.empty()) return false;
  if (IsBetween(Whole(limit), 1, kLargestPurgeLimit)) facts_.MonoPurgeLimit = Whole(limit);
  const std::string label = line[10];
  if (label.empty()) return false;
  facts_.MachineLabel = base::Right(base::Left(label, kLabelWithQuote), kLabelLength);
  const std::string valves = line[9];
  if (valves.empty()) return false;
  if (IsBetween(Whole(valves), 1, kMostValves)) facts_.MaxValves = Whole(valves);
  const std::string caps = line[5];
  if (caps.empty()) return false;
  facts_.CapCount = Whole(caps);
  const std::string shelf = line[6];
  if (shelf.empty()) return false;
  if (Whole(shelf) == 1) facts_.HasShelf = true;
  const std::string groups = line[8];
  if (groups.empty()) return false;
  if (Whole(groups) >= 1) facts_.ExternalGroups = Whole(groups);
  return true;
}

bool FactsReader::TakeShelf(const Parameters& line) {
  const std::string puncher = line[10];
  if (puncher.empty()) return false;
  if (Whole(puncher) == 1) facts_.HasPuncher = true;
  return true;
}

bool FactsReader::TakeSensor(const Parameters& line) {
  const std::string place = line[3];
  if (place.empty()) return false;
  const int connector = Whole(place);
  const int sensor = line.Number();
  if (!IsBetween(sensor, 1, kLastPanelSensor) || !IsBetween(connector, 1, kConnectors)) return true;
  facts_.ConnectorSensors[static_cast<std::size_t>(connector)] = sensor;
  if (sensor == kPhotocell) facts_.PhotocellConnector = connector;
  return true;
}

bool FactsReader::TakeDigitalInput(const Parameters& line) {
  return AddInput(kDigitalInput, line[1] + "," + line[2] + ",,,,,,|", line.Unquoted(5));
}

bool FactsReader::TakeAnalogueInput(const Parameters& line) {
  const std::string record = base::Join(
      {line[1], line[2], line.Unquoted(3), line[4], line[5], line[7], line[8], "|"}, ",");
  return AddInput(kAnalogueInput, record, line.Unquoted(12));
}

// `addresses` is a run of two-digit hexadecimal group addresses. The groups before a bad one keep
// the record.
bool FactsReader::AddInput(InputKind kind, const std::string& record,
                           const std::string& addresses) {
  if (addresses.size() % 2 != 0) return false;
  for (std::size_t at = 0; at < addresses.size(); at += 2) {
    const std::string pair = addresses.substr(at, 2);
    const auto group = base::IsHexadecimal(pair) ? base::LeadingHex(pair) : 0;
    if (group < 1 || group > kGroupAddresses) return false;
    facts_.GroupInputs[kind][static_cast<std::size_t>(group)] += record;
  }
  return true;
}

bool FactsReader::TakeFunctions(const Parameters& line) {
  if (line[2].empty()) return false;
  const int motor = line.Number();
  if (IsBetween(motor, 1, kGroupAddresses)) {
    functions_[static_cast<std::size_t>(motor)] = line.Unquoted(2);
  }
  return true;
}

bool FactsReader::TakeGroupTimes(const Parameters& line) {
  const std::string timeout = line[3];
  if (timeout.empty()) return false;
  facts_.ResetTimeout = base::LeadingNumber(timeout);
  return true;
}

void FactsReader::Commit() {
  facts_.ElementLists = elements_;
  for (const std::string& type : base::SplitFields(facts_.CapTypeList, ",")) {
    const std::string number = base::PlainNumber(Whole(type));
    if (base::FindField(number, kPoweredCapTypes, ",") > 0) ++facts_.PoweredCapCount;
  }
  for (auto& group : facts_.GroupElements) {
    const int motor = Whole(group[kGroupMotor]);
    if (IsBetween(motor, 1, kGroupAddresses)) {
      group[kGroupFunctions] = functions_[static_cast<std::size_t>(motor)];
    }
  }
}

}  // namespace

bool ExecuteConfigKnown(base::FileSystem& files, const std::string& path, int slave,
                        MachineFacts& facts) {
  facts.Clear();
  FactsReader reader(facts);
  ConfigReader lines(files, path);
  for (std::string tag, data; lines.NextOfSlave(slave, tag, data);) {
    // This tag marks a file that isn't to be used.
    if (tag == "@@@@" || !reader.Take(tag, Parameters(data))) return false;
  }
  if (lines.Failed()) return false;
  reader.Commit();
  return true;
}

}  // namespace tintbench::config
