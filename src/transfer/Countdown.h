// A wait by the clock that shows its seconds and costs no processor time.
#pragma once

#include <functional>

#include "ui/Screen.h"

namespace tintbench::transfer {

// Waits so many seconds and calls `show` with those that are left, once a second. A script's next
// step waits as well; on a desktop the window stays alive, and what is pressed in it is served, so
// whatever must not run has to be greyed. Ends early once `givenUp` says so.
void CountDown(ui::Screen& screen, int seconds, const std::function<void(int)>& show,
               const std::function<bool()>& givenUp);

}  // namespace tintbench::transfer
