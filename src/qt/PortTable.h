// Which device stands behind which port number.
#pragma once

#include <map>
#include <set>
#include <string>

namespace tintbench::desktop {

class PortTable {
 public:
  // `given` are the devices that the operator has named by number. The other numbers from 1 to 8
  // are filled with the ports that the system lists, in natural order, each once.
  explicit PortTable(std::map<int, std::string> given);

  // Gives ports that the system lists by now, and that have no number, the free numbers.
  void LookUp();
  // True if the port has got its number by looking up again.
  bool IsNew(int number) const { return new_.contains(number); }

  // All of them, by number.
  const std::map<int, std::string>& Devices() const { return devices_; }
  // The device of a number; empty if there is none.
  std::string Device(int number) const;
  // True if the operator has named the device himself.
  bool IsGiven(int number) const { return given_.contains(number); }

 private:
  std::map<int, std::string> given_;
  std::map<int, std::string> devices_;
  std::set<int> new_;
};

}  // namespace tintbench::desktop
