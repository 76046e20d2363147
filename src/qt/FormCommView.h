// The window of commands with its two faces: the lists of the Command Menu, or the options of the
// Maintenance Menu, at the left; the sensor panels and the report at the right.
#pragma once

#include <QWidget>

#include "commands/FormComm.h"

namespace tintbench::desktop {

QWidget* MakeFormCommView(commands::FormComm& form, QWidget* parent);

}  // namespace tintbench::desktop
