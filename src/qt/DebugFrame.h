// The frame at a window's foot that shows what goes over the line.
#pragma once

#include "ui/Form.h"

class QBoxLayout;
class QWidget;

namespace tintbench::desktop {

// Adds the frame, with the sent text beside the received one, if the window has its controls.
void AddDebugFrame(ui::Form& form, QWidget& view, QBoxLayout& rows);

}  // namespace tintbench::desktop
