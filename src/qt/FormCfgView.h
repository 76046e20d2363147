// The window of one configuration file: all tables at the left, the parameters of the chosen
// element beside them, and below the panels for finding, changes and comparing.
#pragma once

#include <QWidget>

#include "editor/FormCfg.h"

namespace tintbench::desktop {

QWidget* MakeFormCfgView(editor::FormCfg& form, QWidget* parent);

}  // namespace tintbench::desktop
