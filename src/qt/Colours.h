// The program's colours on the desktop: system colours come from the palette, plain ones are shown
// so that words on them can be read, on a light palette and on a dark one.
#pragma once

#include <QColor>
#include <QPalette>
#include <QWidget>

#include "ui/Property.h"

namespace tintbench::desktop {

// True if the palette shows light words on a dark ground.
bool IsDark(const QPalette& palette);

// The colour to paint with. Greys among the plain colours say "neutral", so a dark palette turns
// their lightness over; the others stay as they are.
QColor ToQt(ui::Colour colour, const QPalette& palette);

// `words` made darker or lighter, with its hue kept, until it can be read on `ground`: a contrast
// of 4.5 by the formula of WCAG 2.
QColor Readable(const QColor& words, const QColor& ground);

// White or black, for a large sign on `ground`; white where it stands out enough.
QColor SignOn(const QColor& ground);

// The colour halfway between the two.
QColor Halfway(const QColor& one, const QColor& other);

// Gives the widget these colours where they differ from what a control starts with; there it
// keeps its own look.
void Dress(QWidget& widget, ui::Colour back, ui::Colour fore);

}  // namespace tintbench::desktop
