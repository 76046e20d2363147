// The frame at a window's foot that shows what goes over the line.
#pragma once

#include <QWidget>

#include "ui/Controls.h"

class QBoxLayout;

namespace tintbench::desktop {

// Adds the frame, with the sent text beside the received one.
void AddDebugFrame(ui::Frame& frame, ui::ControlArray<ui::TextBox>& texts, QWidget& view,
                   QBoxLayout& rows);

}  // namespace tintbench::desktop
