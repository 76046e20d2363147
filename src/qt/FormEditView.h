// The dialog that changes one parameter, as large as the way of entering it needs.
#pragma once

#include <QWidget>

#include "editor/FormEdit.h"

namespace tintbench::desktop {

QWidget* MakeFormEditView(editor::FormEdit& form, QWidget* parent);

}  // namespace tintbench::desktop
