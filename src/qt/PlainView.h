// The window that stands in for one which is still to come.
#pragma once

#include <QWidget>

#include "shell/SubWindows.h"

namespace tintbench::desktop {

QWidget* MakePlainView(shell::PlainWindow& form, QWidget* parent);

}  // namespace tintbench::desktop
