// The main window: the link's state at the top, the four panels, the debug frame at the foot.
#pragma once

#include "qt/FormWindow.h"

namespace tintbench::desktop {

QWidget* MakeForm1View(ui::Form& form, QWidget* parent);

}  // namespace tintbench::desktop
