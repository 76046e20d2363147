#include "app/LastWord.h"

#include <cstdlib>
#include <memory>
#include <utility>

namespace tintbench::app {

namespace {

void Say(int, void* act) {
  const std::unique_ptr<std::function<void()>> said(static_cast<std::function<void()>*>(act));
  if (*said) (*said)();
}

}  // namespace

// It belongs to the process's exit from here on, for what is told to that can't be taken back.
LastWord::LastWord(std::function<void()> act) : act_(new std::function<void()>(std::move(act))) {
#ifdef __GLIBC__
  if (on_exit(Say, act_) == 0) return;
#endif
  delete std::exchange(act_, nullptr);
}

LastWord::~LastWord() {
  if (act_ != nullptr) *act_ = nullptr;
}

}  // namespace tintbench::app
