// The pictures that the windows' logic asks for by name. They are drawn, not loaded, so that they
// are sharp at every scale and follow the palette.
#pragma once

#include <QPainter>
#include <QPalette>
#include <string_view>

namespace tintbench::desktop {

// Draws the picture of that name so that it fills `area`. An unknown name draws nothing.
void PaintNamed(QPainter& painter, std::string_view name, const QRectF& area,
                const QPalette& palette);

// A drop of colorant, its tip up, that fills `area`.
void PaintDrop(QPainter& painter, const QRectF& area, const QColor& colour);

}  // namespace tintbench::desktop
