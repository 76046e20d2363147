// The texts of the machine's errors: turns a code of four hexadecimal digits into the line that an
// operator reads. Built once and never changed.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace tintbench::state {

// The key of a family of codes, "1100+": the last two digits of its codes are a unit's number.
std::string FamilyKey(std::string_view code);

// The key of a section of the configuration file, "9170++": its codes count fields from there.
std::string SectionKey(std::string_view code);

class ErrorTable {
 public:
  ErrorTable();

  // The text to show for a code, with a blank in front. Behind the message of a family or a section
  // stands the number of the unit or field in brackets, in decimal. "  unknown" if no row fits, and
  // for any text but four digits 0 to 9 and A to F: callers fold answers to upper case.
  std::string ErrorText(std::string_view code) const;

 private:
  const std::string* Find(std::string_view key) const;

  std::map<std::string, std::string, std::less<>> messages_;
};

}  // namespace tintbench::state
