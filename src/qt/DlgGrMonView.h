// The dialog that changes how large a recording may become.
#pragma once

#include <QWidget>

#include "groups/DlgGrMon.h"

namespace tintbench::desktop {

QWidget* MakeDlgGrMonView(groups::DlgGrMon& form, QWidget* parent);

}  // namespace tintbench::desktop
