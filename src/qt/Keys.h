// Keys, modifiers and mouse buttons of the desktop as the program's codes.
#pragma once

#include <Qt>

namespace tintbench::desktop {

// The code of a key, 0 for a key that says nothing by itself, such as Shift, and kOtherKey for
// one that has no code of its own.
int ToCode(int key);

inline constexpr int kOtherKey = 255;

// The bits of `Shift` for the modifiers that are held.
int ToShift(Qt::KeyboardModifiers modifiers);

// The number of a mouse button, 0 for one that the program doesn't know.
int ToButton(Qt::MouseButton button);

}  // namespace tintbench::desktop
