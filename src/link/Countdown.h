// Where a running transaction shows the seconds that are left: its only sign of life.
#pragma once

#include "ui/Form.h"

namespace tintbench::link {

// Shows "wait for machine answer [n]" in the places of `form` that belong to the row of the
// command table, and draws them at once. Rows without a place show nothing.
void ShowCountdown(ui::Form& form, int row, int seconds);

}  // namespace tintbench::link
