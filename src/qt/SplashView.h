// The panels that show while the program starts and links to the machine.
#pragma once

#include <QWidget>

#include "shell/Splash.h"
#include "shell/StartPanel.h"

namespace tintbench::desktop {

QWidget* MakeSplashView(shell::frmSplsh& form, QWidget* parent);
// The small one that is left once the operator has sent the splash away.
QWidget* MakeStartPanelView(shell::StartPanel& form, QWidget* parent);

}  // namespace tintbench::desktop
