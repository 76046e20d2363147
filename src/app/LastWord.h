// What is still to be done when the program is ended from within, by somebody who asks nobody: the
// toolkit does so when its display is taken away.
#pragma once

#include <functional>

namespace tintbench::app {

// Calls `act` if the process exits while this lives, on the stack of whoever ends it. Only on
// systems that can tell; a crash is none of these ends.
class LastWord {
 public:
  explicit LastWord(std::function<void()> act);
  ~LastWord();
  LastWord(const LastWord&) = delete;
  LastWord& operator=(const LastWord&) = delete;

 private:
  std::function<void()>* act_;
};

}  // namespace tintbench::app
