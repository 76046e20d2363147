// The panels that show while the program starts and links to the machine.
#pragma once

#include "qt/FormWindow.h"

namespace tintbench::desktop {

QWidget* MakeSplashView(ui::Form& form, QWidget* parent);
// The small one that is left once the operator has sent the splash away.
QWidget* MakeStartPanelView(ui::Form& form, QWidget* parent);

}  // namespace tintbench::desktop
