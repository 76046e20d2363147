// The picture of the machine's CPU card: a board with its sockets, the bank of DIP switches, the
// processor and the drivers of the outputs. The lamps on it are controls and painted over it.
#pragma once

#include <QPainter>
#include <QPalette>

namespace tintbench::desktop {

void PaintCpuCard(QPainter& painter, const QRectF& area, const QPalette& palette);

}  // namespace tintbench::desktop
