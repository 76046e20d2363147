// The dialog of the debug level.
#pragma once

#include "qt/FormWindow.h"

namespace tintbench::desktop {

QWidget* MakeFormDbgView(ui::Form& form, QWidget* parent);

}  // namespace tintbench::desktop
