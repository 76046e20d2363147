// Paints what stands in a picture box: its drawings and its line, shape and image controls, scaled
// from the picture's own units to any rectangle.
#pragma once

#include <QPainter>
#include <QPalette>
#include <QTransform>

#include "ui/Picture.h"

namespace tintbench::desktop {

// From the picture's units to `area`. With `keepShape` circles stay circles: one scale for both
// directions, and the picture in the middle of the area.
QTransform PictureScale(const ui::PictureBox& picture, const QRectF& area, bool keepShape);

// Paints the named picture, then the drawings in their order, then the children: those that
// belong in the back first, each group in the order of their making.
void PaintPicture(QPainter& painter, const ui::PictureBox& picture, const QTransform& scale,
                  const QPalette& palette);

// Paints a shape that fills `area`, with its sign in the middle.
void PaintShape(QPainter& painter, const ui::Shape& shape, const QRectF& area,
                const QPalette& palette);

// Writes a letter or two in the middle of `area`, so that they can be read on `ground`.
void PaintSign(QPainter& painter, const QRectF& area, const QString& sign, const QColor& ground);

}  // namespace tintbench::desktop
