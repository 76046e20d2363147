// The window of old recordings: the list of them at the left, the text of one at the right, with a
// border between that the operator can move.
#pragma once

#include <QWidget>

#include "groups/FormGHst.h"

namespace tintbench::desktop {

QWidget* MakeFormGHstView(groups::FormGHst& form, QWidget* parent);

}  // namespace tintbench::desktop
