// What this program has switched on at the machine and has not, with a good answer, switched off
// again.
#pragma once

#include <array>
#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace tintbench::link {

// Digits of an element's number on the line.
inline constexpr std::size_t kElementWidth = 2;

class SwitchedOn {
 public:
  // Books a command that went over the line, as it stood there, and its answer in upper case. What
  // a command was to switch on counts as on unless the machine refused in so many words, for an
  // answer may be lost; what it was to switch off counts as off only if the machine has echoed it.
  // A test of the electrovalves is over once the machine's status is no longer busy.
  void Book(std::string_view command, std::string_view answer);

  bool IsEmpty() const;
  // Such as "electrovalve 01 02, motor 01"; empty if nothing is on.
  std::string Text() const;

 private:
  enum Kind : std::size_t { kValves, kStirrings, kMotors, kTest, kKinds };
  struct Verb;
  static const Verb* VerbOf(char letter);

  std::array<std::set<std::string, std::less<>>, kKinds> elements_;
};

}  // namespace tintbench::link
