// The dialog of the debug level.
#pragma once

#include <QWidget>

#include "shell/FormDbg.h"

namespace tintbench::desktop {

QWidget* MakeFormDbgView(shell::FormDbg& form, QWidget* parent);

}  // namespace tintbench::desktop
