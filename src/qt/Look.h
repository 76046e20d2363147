// The look of all windows: the same style on every desktop, in a light and a dark palette.
#pragma once

#include <QFont>
#include <QPalette>

class QApplication;
class QWidget;

namespace tintbench::desktop {

enum class Brightness {
  Desktop,  // as the desktop is when the program starts
  Light,
  Dark,
};

// Gives the application its style and palette. To be called once, before any window is made.
void ApplyLook(QApplication& application, Brightness brightness = Brightness::Desktop);

// The widget's font, larger by `factor` and perhaps bold.
QFont ScaledFont(const QWidget& widget, double factor, bool bold);

// A line of text's height on the widget: the measure for everything that isn't laid out by itself.
int Em(const QWidget& widget);

// How much larger than usual a text may be that has `width` for itself, if `usual` lines of text
// across are enough for it: from 1 to 1.5.
double RoomScale(const QWidget& widget, int width, double usual);

}  // namespace tintbench::desktop
