// The window of a group's monitor: elements and digital inputs at the left, the enquiry above the
// four instruments.
#pragma once

#include <QWidget>

#include "groups/FormGMon.h"

namespace tintbench::desktop {

QWidget* MakeFormGMonView(groups::FormGMon& form, QWidget* parent);

}  // namespace tintbench::desktop
