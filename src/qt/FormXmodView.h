// The window of port settings and transfers, with its three faces.
#pragma once

#include <QWidget>

#include "transfer/FormXmod.h"

namespace tintbench::desktop {

QWidget* MakeFormXmodView(transfer::FormXmod& form, QWidget* parent);

}  // namespace tintbench::desktop
