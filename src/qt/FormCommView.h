// The window of commands with its two faces: the lists of the Command Menu, or the options of the
// Maintenance Menu, at the left; the sensor panels and the report at the right.
#pragma once

#include "qt/FormWindow.h"

namespace tintbench::desktop {

QWidget* MakeFormCommView(ui::Form& form, QWidget* parent);

}  // namespace tintbench::desktop
