// What the operator has said to a process of the window of commands while it runs.
#pragma once

#include <algorithm>
#include <utility>

namespace tintbench::commands {

// From the weakest to the strongest.
enum class Wish {
  GoOn,
  Finish,  // its own key: it comes to its end, and what is due behind it follows
  Stop,    // HALT, or the window closes: nothing more is opened, started or asked
};

// Each process has one from its start to its end. A process may run inside another, and a part of
// one, such as the watch of a motor, may have a token of its own to hear the key that ends it.
class StopToken {
 public:
  // `innermost` is where the tokens hang together.
  explicit StopToken(StopToken*& innermost)
      : innermost_(innermost), outer_(std::exchange(innermost, this)) {}
  ~StopToken() { innermost_ = outer_; }
  StopToken(const StopToken&) = delete;
  StopToken& operator=(const StopToken&) = delete;

  Wish Said() const { return said_; }

  // A wish stays until a stronger one comes. A stop is for all that runs.
  void Say(Wish wish) {
    said_ = std::max(said_, wish);
    if (wish == Wish::Stop && outer_ != nullptr) outer_->Say(wish);
  }

 private:
  StopToken*& innermost_;
  StopToken* outer_;
  Wish said_ = Wish::GoOn;
};

}  // namespace tintbench::commands
