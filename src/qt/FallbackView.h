// The view of a window that has none of its own: all controls in the order of their making.
#pragma once

#include "qt/FormWindow.h"

namespace tintbench::desktop {

QWidget* MakeFallbackView(ui::Form& form, QWidget* parent);

}  // namespace tintbench::desktop
