// Finds command frames "#...*" and master frames (code 1 ... code 3) in the bytes of a line.
#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace tintbench::simulator {

struct Frame {
  bool IsMaster = false;
  std::string Text;  // what stands between the two marks, folded to upper case
};

class CommandReader {
 public:
  // The longest text that a frame may have; what is longer is dropped up to the next mark.
  static constexpr std::size_t kLongest = 256;

  // A frame whose next byte takes longer than this is given up.
  static constexpr double kTimeoutSeconds = 5.0;

  // Takes one byte that arrived at `now`. Gives a frame when the byte completes one.
  std::optional<Frame> Receive(unsigned char byte, double now);

  // Forgets a frame that isn't complete.
  void Clear();

 private:
  void Begin(char endMark);

  char endMark_ = 0;  // 0 while no frame is open
  double lastByte_ = 0.0;
  std::string text_;
};

}  // namespace tintbench::simulator
