// The main window: the link's state at the top, the four panels, the debug frame at the foot.
#pragma once

#include <QWidget>

#include "shell/Form1.h"

namespace tintbench::desktop {

QWidget* MakeForm1View(shell::Form1& form, QWidget* parent);

}  // namespace tintbench::desktop
