// The frame at a window's foot that shows what goes over the line.
#pragma once

#include <QWidget>

#include "state/DebugFrame.h"

class QBoxLayout;

namespace tintbench::desktop {

// Adds the frame, its texts beside each other.
void AddDebugFrame(state::DebugFrame& debug, QWidget& view, QBoxLayout& rows);

}  // namespace tintbench::desktop
