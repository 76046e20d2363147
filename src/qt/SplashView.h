// The panel that shows while the program starts and links to the machine.
#pragma once

#include "qt/FormWindow.h"

namespace tintbench::desktop {

QWidget* MakeSplashView(ui::Form& form, QWidget* parent);

}  // namespace tintbench::desktop
