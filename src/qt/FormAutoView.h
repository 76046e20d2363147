// The window of the machine's self-test: its cycles at the left, the errors of the chosen one in
// words at the right.
#pragma once

#include <QWidget>

#include "autotest/FormAuto.h"

namespace tintbench::desktop {

QWidget* MakeFormAutoView(autotest::FormAuto& form, QWidget* parent);

}  // namespace tintbench::desktop
