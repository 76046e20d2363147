#include "qt/Keys.h"

#include <algorithm>
#include <array>

#include "ui/Control.h"

namespace tintbench::desktop {

namespace {

struct KeyCode {
  int Key;
  int Code;
};

constexpr std::array<KeyCode, 16> kKeyCodes{{{Qt::Key_Backspace, ui::kKeyBackspace},
                                             {Qt::Key_Tab, ui::kKeyTab},
                                             {Qt::Key_Backtab, ui::kKeyTab},
                                             {Qt::Key_Return, ui::kKeyEnter},
                                             {Qt::Key_Enter, ui::kKeyEnter},
                                             {Qt::Key_Escape, ui::kKeyEsc},
                                             {Qt::Key_PageUp, ui::kKeyPageUp},
                                             {Qt::Key_PageDown, ui::kKeyPageDown},
                                             {Qt::Key_End, ui::kKeyEnd},
                                             {Qt::Key_Home, ui::kKeyHome},
                                             {Qt::Key_Left, ui::kKeyLeft},
                                             {Qt::Key_Up, ui::kKeyUp},
                                             {Qt::Key_Right, ui::kKeyRight},
                                             {Qt::Key_Down, ui::kKeyDown},
                                             {Qt::Key_Insert, ui::kKeyInsert},
                                             {Qt::Key_Delete, ui::kKeyDelete}}};

constexpr std::array<int, 9> kSilentKeys{Qt::Key_Shift,   Qt::Key_Control,    Qt::Key_Alt,
                                         Qt::Key_AltGr,   Qt::Key_Meta,       Qt::Key_CapsLock,
                                         Qt::Key_NumLock, Qt::Key_ScrollLock, Qt::Key_unknown};

}  // namespace

int ToCode(int key) {
  const bool sameCode = (key >= Qt::Key_A && key <= Qt::Key_Z) ||
                        (key >= Qt::Key_0 && key <= Qt::Key_9) || key == Qt::Key_Space;
  if (sameCode) return key;
  if (key >= Qt::Key_F1 && key <= Qt::Key_F12) return key - Qt::Key_F1 + ui::kKeyF1;
  const auto* const found = std::find_if(kKeyCodes.begin(), kKeyCodes.end(),
                                         [key](const KeyCode& entry) { return entry.Key == key; });
  if (found != kKeyCodes.end()) return found->Code;
  const bool silent = std::find(kSilentKeys.begin(), kSilentKeys.end(), key) != kSilentKeys.end();
  return silent ? 0 : kOtherKey;
}

int ToShift(Qt::KeyboardModifiers modifiers) {
  int shift = 0;
  if (modifiers.testFlag(Qt::ShiftModifier)) shift |= ui::kShift;
  if (modifiers.testFlag(Qt::ControlModifier)) shift |= ui::kCtrl;
  if (modifiers.testFlag(Qt::AltModifier)) shift |= ui::kAlt;
  return shift;
}

int ToButton(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return ui::kLeftButton;
  return button == Qt::RightButton ? ui::kRightButton : 0;
}

}  // namespace tintbench::desktop
