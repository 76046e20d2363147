// The views of all windows of the program.
#pragma once

#include "qt/DesktopScreen.h"

namespace tintbench::desktop {

void AddStandardViews(DesktopScreen& screen);

}  // namespace tintbench::desktop
