// Which device stands behind which port number.
#pragma once

#include <map>
#include <string>

namespace tintbench::desktop {

class PortTable {
 public:
  // `given` are the devices that the operator has named by number. The other numbers from 1 to 8
  // are filled with the ports that the system lists, in natural order, each once.
  explicit PortTable(std::map<int, std::string> given);

  // The device of a number; empty if there is none.
  std::string Device(int number) const;
  // True if the operator has named the device himself.
  bool IsGiven(int number) const { return given_.contains(number); }

 private:
  std::map<int, std::string> given_;
  std::map<int, std::string> devices_;
};

}  // namespace tintbench::desktop
