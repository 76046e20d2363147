// The program loader behind dip-switch 4: takes the parts of a program one by one and knows when
// it is whole.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tintbench::simulator {

class Loader {
 public:
  enum class Stage {
    Taking,   // waits for the next part
    Refused,  // what came is no whole program; waits for a first part
    Writing,  // has all parts, and writes them to flash memory
    Written,
  };

  // Forgets all parts, as at a reset into the loader.
  void Begin();

  // Takes a part as a transfer gave it, with its padding. A part that opens a program, with the
  // line "@IPS", comes in place of all before it; the line "@PDD" closes the last part. An empty
  // part is none: the end of the one before it was repeated.
  void Take(std::string_view part);

  // All is in flash memory.
  void End() { stage_ = Stage::Written; }

  Stage Now() const { return stage_; }

  // The parts without their padding, and all of them as one text.
  const std::vector<std::string>& Parts() const { return parts_; }
  std::string Program() const;

  // The last word of the line "@VER" in the program; empty if it has none.
  std::string Version() const;

  // How long it takes to write the program, in seconds.
  double WriteSeconds() const;

  // What the display of the machine with this address shows.
  std::string Display(int slave) const;

 private:
  Stage stage_ = Stage::Taking;
  std::vector<std::string> parts_;
  std::size_t size_ = 0;
};

}  // namespace tintbench::simulator
