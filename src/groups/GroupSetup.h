// Builds the monitor's window for one dispensing group from the machine facts: which elements and
// inputs it has, which inputs can be used, and the command that enquires each.
#pragma once

#include <string>
#include <vector>

#include "groups/MonitorWork.h"

namespace tintbench::groups {

class GroupSetup {
 public:
  explicit GroupSetup(MonitorWork& work) : work_(work) {}

  // Takes a group's address in decimal digits.
  void SetGroupAddress(const std::string& text);

  // Finds the group's elements and functions, and shows them. Nothing for an address that no group
  // can have.
  void ResolveGroupElements();

  // Makes all rows empty.
  void ResetGroupScreen();

  // Fills the rows. A row that can't be used is greyed; false only if no row can be built at all.
  bool BuildGroupScreen();

 private:
  std::string LookUpSensorType(config::InputKind kind, const std::string& type) const;
  std::string FunctionToolTip(int function) const;
  bool IsAddressOfGroup() const;
  // All records of a kind, each as its trimmed fields.
  std::vector<std::vector<std::string>> Records(config::InputKind kind) const;

  void ResetDigitalRow(int row);
  void ResetAnalogueRow(int row);
  void ResetElements();
  void BuildDigitalRows();
  void FillDigitalRow(int row, const std::string& type, const std::string& connector);
  void ShowDigitalRow(int row);
  void HideDigitalRow(int row);
  void FillAnalogueRow(int row, const std::vector<std::string>& fields);
  bool IsUsable(const AnalogueInput& input) const;
  void ShowAnalogueRow(int row);
  void ShowTimes();

  MonitorWork& work_;
  GroupWindow& window_{work_.Window};
  Group& group_{work_.TheGroup};
  std::string head_;  // of an enquiry, in front of the group and behind the sensor
  std::string tail_;
};

}  // namespace tintbench::groups
