// The window of statistics: what was received and what was saved side by side, all elements at
// once, and the table of a type.
#pragma once

#include <QWidget>

#include "stats/FormStat.h"

namespace tintbench::desktop {

QWidget* MakeFormStatView(stats::FormStat& form, QWidget* parent);

}  // namespace tintbench::desktop
