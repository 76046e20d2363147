#include "groups/GroupSetup.h"

#include <algorithm>
#include <string_view>

#include "base/Numbers.h"
#include "base/Text.h"

namespace tintbench::groups {

namespace {

// The place of a type is the number of its X function, among the analogue ones behind the digital.
constexpr std::string_view kDigitalTypes = "31,32,33,38,35,37,34,36,";
constexpr std::string_view kAnalogueTypes = "01,02,03,04,";
constexpr std::array<const char*, kInputFrames> kInputTitles{
    "Digital Inputs", "Suction Pressure", "Delivery Pressure", "Level", "Temperature"};
constexpr std::string_view kFirstConnector = "0";
constexpr std::string_view kLastConnector = "3";
constexpr const char* kUsable = "1";
constexpr const char* kFirstPause = "300";  // milliseconds between two enquiries
constexpr const char* kFirstSpeed = "400";
constexpr int kAnalogueFields = 7;

std::string PlainType(const std::string& type) { return base::PlainNumber(base::LeadingInt(type)); }

void Withhold(ui::CheckBox& box, bool hide) {
  box.Enabled = false;
  box.Tag = "";
  if (hide) box.Visible = false;
}

void Offer(ui::CheckBox& box) {
  box.Enabled = true;
  box.Tag = kUsable;
}

void ResetLabel(ui::Label& label) {
  label.Caption = "";
  label.ToolTipText = "";
  label.Enabled = true;
  label.ForeColor = ui::kWindowTextColour;
  label.BackColor = kOffColour;
}

void ResetBox(ui::CheckBox& box) {
  box.Value = ui::kUnchecked;
  box.Visible = true;
  box.ToolTipText = "";
}

void Unlock(ui::TextBox& box, bool open, const char* text) {
  box.Text = text;
  box.BackColor = open ? ui::kWindowColour : ui::kButtonFaceColour;
  box.Locked = !open;
}

bool MaskAllows(const std::string& mask, int place) { return base::Mid(mask, place, 1) == "1"; }

}  // namespace

void GroupSetup::SetGroupAddress(const std::string& text) {
  group_.Address = base::LeadingInt(text);
  group_.Text = base::LastDigits(std::string_view(text), 2);
}

bool GroupSetup::IsAddressOfGroup() const {
  return group_.Address >= 1 && group_.Address <= config::kGroupAddresses;
}

void GroupSetup::ResolveGroupElements() {
  ResetElements();
  if (!IsAddressOfGroup()) return;
  const config::MachineFacts& facts = work_.Parts.Facts;
  const auto& elements = facts.GroupElements.at(static_cast<std::size_t>(group_.Address));
  const auto id = [](std::string_view text) { return base::LastDigits(text, 2); };
  group_.Ids[kValve] = id(elements[config::kGroupCircuit]);
  group_.Ids[kStirring] = id(elements[config::kGroupStirring]);
  group_.Ids[kMotor] = id(elements[config::kGroupMotor]);
  const int place = base::FindField(group_.Ids[kValve], facts.ElementLists[config::kCircuits], ",");
  group_.Ids[kCap] = id(base::GetField(place, facts.CircuitCapList, ","));
  const std::string functions =
      elements[config::kGroupFunctions] + std::string(kDigitalRows + kAnalogueRows, '0');
  group_.DigitalXMask = base::Left(functions, kDigitalRows);
  group_.AnalogueXMask = base::Mid(functions, kDigitalRows + 1, kAnalogueRows);
  for (const Element element : {kCap, kValve, kStirring, kMotor}) {
    const GroupWindow::Switch boxes = window_.SwitchOf(element);
    boxes.Id.Caption = group_.Ids.at(static_cast<std::size_t>(element));
    boxes.On.Enabled = window_.Has(element);
  }
}

void GroupSetup::ResetElements() {
  group_.Ids.fill("00");
  group_.DigitalXMask.assign(kDigitalRows, '0');
  group_.AnalogueXMask.assign(kAnalogueRows, '0');
  for (const Element element : {kCap, kValve, kStirring, kMotor}) {
    const GroupWindow::Switch boxes = window_.SwitchOf(element);
    boxes.Id.Caption = group_.Ids.at(static_cast<std::size_t>(element));
    boxes.Id.BackColor = kOffColour;
    boxes.On.Value = ui::kUnchecked;
    boxes.On.Enabled = false;
    boxes.Off.Value = ui::kChecked;
    boxes.Off.Enabled = false;
  }
}

void GroupSetup::ResetGroupScreen() {
  for (int row = 0; row < kDigitalRows; ++row) ResetDigitalRow(row);
  group_.LastDigital = -1;
  for (int row = 0; row < kAnalogueRows; ++row) ResetAnalogueRow(row);
  for (int frame = 0; frame < kInputFrames; ++frame) {
    window_.FrmInputs(frame).Caption = kInputTitles.at(static_cast<std::size_t>(frame));
    window_.FrmInputs(frame).ToolTipText = "";
    window_.FrmInputs(frame).Enabled = false;
  }
  window_.FrmCmd.Enabled = true;
  Unlock(window_.TxtEnqTime, false, "");
  Unlock(window_.TxtMotorSpeed, false, "");
}

void GroupSetup::ResetDigitalRow(int row) {
  group_.Digital.at(static_cast<std::size_t>(row)) = {.Enabled = true};
  for (ui::Label* label :
       {&window_.LblIdiDescr(row), &window_.LblCnIdi(row), &window_.LblIdiStatus(row)}) {
    ResetLabel(*label);
  }
  ResetBox(window_.ChkIdiOff(row));
  ResetBox(window_.ChkIdiXOff(row));
  Offer(window_.ChkIdiXOff(row));
}

void GroupSetup::ResetAnalogueRow(int row) {
  group_.Analogue.at(static_cast<std::size_t>(row)) = {};
  for (ui::Label* label : {&window_.LblCnIan(row), &window_.LblIanStatus(row),
                           &window_.LblCurr(row), &window_.LblStart(row), &window_.LblEnd(row),
                           &window_.LblLow(row), &window_.LblHigh(row)}) {
    ResetLabel(*label);
  }
  ResetBox(window_.ChkIanOff(row));
  ResetBox(window_.ChkIanXOff(row));
  Offer(window_.ChkIanXOff(row));
}

std::string GroupSetup::LookUpSensorType(config::InputKind kind, const std::string& type) const {
  const std::string key = kind == config::kDigitalInput ? "81," : "11,";
  // Files have the types of analogue inputs with a zero in front, the catalogue without.
  const auto text = work_.Parts.Selectors.Find(key + type);
  return text ? *text : work_.Parts.Selectors.Find(key + PlainType(type)).value_or("");
}

std::string GroupSetup::FunctionToolTip(int function) const {
  return "X_function = " +
         work_.Parts.Selectors.Find("X_FUN," + base::PlainNumber(function)).value_or("");
}

std::vector<std::vector<std::string>> GroupSetup::Records(config::InputKind kind) const {
  std::vector<std::vector<std::string>> records;
  const std::string& text =
      work_.Parts.Facts.GroupInputs.at(kind).at(static_cast<std::size_t>(group_.Address));
  for (const std::string& piece : base::SplitFields(text, "|")) {
    std::vector<std::string> fields;
    for (int field = 1; field <= kAnalogueFields; ++field) {
      fields.push_back(base::Trim(base::GetField(field, piece, ",")));
    }
    records.push_back(std::move(fields));
  }
  return records;
}

bool GroupSetup::BuildGroupScreen() {
  const std::string command = work_.Parts.Table.Row(link::CommandId::ReadGroupInput).Command;
  const std::size_t blank = command.find(' ');
  if (blank == std::string::npos || !IsAddressOfGroup()) return false;
  head_ = command.substr(0, blank);
  tail_ = command.substr(blank + 1);
  BuildDigitalRows();
  for (const std::vector<std::string>& fields : Records(config::kAnalogueInput)) {
    const int number = base::LeadingInt(fields[0]);
    if (number >= 1 && number <= kAnalogueRows) FillAnalogueRow(number - 1, fields);
  }
  for (int row = 0; row < kAnalogueRows; ++row) ShowAnalogueRow(row);
  ShowTimes();
  return true;
}

void GroupSetup::BuildDigitalRows() {
  std::vector<std::vector<std::string>> records = Records(config::kDigitalInput);
  // What a file has beyond the rows of the table can't be shown.
  records.resize(std::min<std::size_t>(records.size(), kDigitalRows));
  group_.LastDigital = static_cast<int>(records.size()) - 1;
  bool usable = false;
  for (int row = 0; row < kDigitalRows; ++row) {
    if (row > group_.LastDigital) {
      HideDigitalRow(row);
      continue;
    }
    const std::vector<std::string>& fields = records[static_cast<std::size_t>(row)];
    FillDigitalRow(row, fields[0], fields[1]);
    ShowDigitalRow(row);
    usable = usable || group_.Digital.at(static_cast<std::size_t>(row)).Enabled;
  }
  window_.FrmInputs(0).Enabled = usable;
}

void GroupSetup::FillDigitalRow(int row, const std::string& type, const std::string& connector) {
  DigitalInput& input = group_.Digital.at(static_cast<std::size_t>(row));
  input.SensorType = type;
  input.Connector = connector;
  input.Description = LookUpSensorType(config::kDigitalInput, type);
  if (input.Description.empty()) {
    input.Enabled = false;
    input.Description = type + " = UNKNOWN";
  }
  if (input.Connector.empty()) {
    input.Enabled = false;
    input.Connector = "?";
  }
  if (!input.Enabled) return;
  const int place = base::FindField(type, kDigitalTypes, ",");
  input.Enabled = place > 0;
  if (!input.Enabled) return;
  input.XFunction = place;
  input.Enquiry = head_ + group_.Text + "0" + base::LastDigits(std::string_view(type), 2) + tail_;
  ui::CheckBox& box = window_.ChkIdiXOff(row);
  if (!MaskAllows(group_.DigitalXMask, place)) Withhold(box, true);
  box.ToolTipText = FunctionToolTip(place);
}

void GroupSetup::ShowDigitalRow(int row) {
  const DigitalInput& input = group_.Digital.at(static_cast<std::size_t>(row));
  const std::string& text = input.Description;
  window_.LblIdiDescr(row).Caption =
      base::Trim(text.find(']') == std::string::npos ? text : base::Behind(text, ']'));
  window_.LblIdiDescr(row).ToolTipText = "sensor type = " + input.SensorType;
  window_.LblCnIdi(row).Caption = input.Connector;
  if (input.Enabled) {
    Offer(window_.ChkIdiOff(row));
    return;
  }
  for (ui::Label* label :
       {&window_.LblCnIdi(row), &window_.LblIdiStatus(row), &window_.LblIdiDescr(row)}) {
    label->ForeColor = kGreyText;
    label->BackColor = ui::kButtonFaceColour;
  }
  Withhold(window_.ChkIdiOff(row), false);
  Withhold(window_.ChkIdiXOff(row), false);
}

void GroupSetup::HideDigitalRow(int row) {
  Withhold(window_.ChkIdiOff(row), true);
  Withhold(window_.ChkIdiXOff(row), true);
  for (ui::Label* label :
       {&window_.LblCnIdi(row), &window_.LblIdiStatus(row), &window_.LblIdiDescr(row)}) {
    label->BackColor = ui::kButtonFaceColour;
  }
  group_.Digital.at(static_cast<std::size_t>(row)).Enabled = false;
}

void GroupSetup::FillAnalogueRow(int row, const std::vector<std::string>& fields) {
  ResetAnalogueRow(row);
  AnalogueInput& input = group_.Analogue.at(static_cast<std::size_t>(row));
  input.SensorType = fields[0];
  input.Description = LookUpSensorType(config::kAnalogueInput, fields[0]);
  input.Connector = fields[1];
  input.Unit = fields[2];
  struct Shown {
    Limit& Number;
    ui::Label& Text;
  };
  const std::array<Shown, 4> limits{{{input.Start, window_.LblStart(row)},
                                     {input.End, window_.LblEnd(row)},
                                     {input.Low, window_.LblLow(row)},
                                     {input.High, window_.LblHigh(row)}}};
  for (std::size_t limit = 0; limit < limits.size(); ++limit) {
    const std::string& text = fields[3 + limit];
    limits.at(limit).Text.Caption = text;
    if (!text.empty()) limits.at(limit).Number = {base::LeadingNumber(text), true};
  }
  const std::string toolTip = "sensor type = " + input.Description;
  window_.LblCnIan(row).ToolTipText = toolTip;
  window_.LblCnIan(row).Caption = input.Connector;
  window_.FrmInputs(row + 1).ToolTipText = toolTip;
  input.Enabled = IsUsable(input);
  if (!input.Enabled) return;
  const std::string type = base::LastDigits(std::string_view(input.SensorType), 2);
  const int place = base::FindField(type, kAnalogueTypes, ",");
  input.XFunction = kDigitalRows + place;
  input.Enquiry = head_ + group_.Text + "1" + type + tail_;
  ui::CheckBox& box = window_.ChkIanXOff(row);
  if (!MaskAllows(group_.AnalogueXMask, place)) Withhold(box, true);
  box.ToolTipText = FunctionToolTip(input.XFunction);
}

bool GroupSetup::IsUsable(const AnalogueInput& input) const {
  const double start = input.Start.Value;
  const double end = input.End.Value;
  const double low = input.Low.Value;
  const double high = input.High.Value;
  // Connectors are compared as texts.
  return !input.Description.empty() && input.Connector >= kFirstConnector &&
         input.Connector <= kLastConnector && input.Start.Set && input.End.Set && input.Low.Set &&
         input.High.Set && start < end && low <= high && low >= start && high <= end &&
         base::FindField(base::LastDigits(std::string_view(input.SensorType), 2), kAnalogueTypes,
                         ",") > 0;
}

void GroupSetup::ShowAnalogueRow(int row) {
  const AnalogueInput& input = group_.Analogue.at(static_cast<std::size_t>(row));
  ui::Frame& frame = window_.FrmInputs(row + 1);
  frame.Caption = frame.Caption.Get() + "[ " + input.Unit + " ]";
  frame.Enabled = input.Enabled;
  if (input.Enabled) {
    Offer(window_.ChkIanOff(row));
    return;
  }
  for (ui::Label* label :
       {&window_.LblStart(row), &window_.LblEnd(row), &window_.LblLow(row), &window_.LblHigh(row),
        &window_.LblCurr(row), &window_.LblCnIan(row), &window_.LblIanStatus(row)}) {
    label->Enabled = false;
  }
  Withhold(window_.ChkIanOff(row), false);
  Withhold(window_.ChkIanXOff(row), false);
}

void GroupSetup::ShowTimes() {
  const auto isEnabled = [](const auto& input) { return input.Enabled; };
  const bool any = std::any_of(group_.Digital.begin(), group_.Digital.end(), isEnabled) ||
                   std::any_of(group_.Analogue.begin(), group_.Analogue.end(), isEnabled);
  Unlock(window_.TxtEnqTime, any, any ? kFirstPause : "");
  Unlock(window_.TxtMotorSpeed, true, kFirstSpeed);
}

}  // namespace tintbench::groups
