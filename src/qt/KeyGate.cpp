#include "qt/KeyGate.h"

#include <QApplication>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <utility>

#include "qt/FormWindow.h"
#include "qt/Keys.h"

namespace tintbench::desktop {

namespace {

// True for the menus that hang on a menu bar, as those of an edit field don't.
bool HangsOnMenuBar(const QWidget& widget) {
  const auto* menu = qobject_cast<const QMenu*>(&widget);
  return menu != nullptr && qobject_cast<const QMenuBar*>(menu->parentWidget()) != nullptr;
}

// True for the keys that press a box's buttons.
bool Answers(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space ||
         key == Qt::Key_Escape;
}

}  // namespace

KeyGate::KeyGate() { qApp->installEventFilter(this); }

KeyGate::~KeyGate() {
  if (qApp != nullptr) qApp->removeEventFilter(this);
}

bool KeyGate::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
  auto& widget = static_cast<QWidget&>(*watched);
  const auto& key = static_cast<const QKeyEvent&>(*event);
  if (IsOnItsWayUp(widget, key)) return false;
  if (HangsOnMenuBar(widget) || qobject_cast<QMenuBar*>(&widget) != nullptr) {
    return ServeMenuKey(widget, key);
  }
  // Lists that drop down, boxes and dialogs have their keys for themselves, but none is answered by
  // a key that was held down since before it came.
  if (key.isAutoRepeat() && Answers(key.key()) && qobject_cast<QDialog*>(widget.window())) {
    return true;
  }
  auto* const window = dynamic_cast<FormWindow*>(widget.window());
  const int code = ToCode(key.key());
  if (window == nullptr || window->Shown() == nullptr || code == 0) return false;
  // A key that is held down is pressed once: what it starts may move the machine.
  if (key.isAutoRepeat()) return false;
  return window->Shown()->PressKey(code, ToShift(key.modifiers()));
}

bool KeyGate::IsOnItsWayUp(const QWidget& widget, const QKeyEvent& event) {
  const bool up =
      lastEvent_ == &event && lastWidget_ != nullptr && lastWidget_->parentWidget() == &widget;
  lastEvent_ = &event;
  lastWidget_ = &widget;
  return up;
}

// An open menu has its keys for itself but for Esc, which closes it and reaches the form.
bool KeyGate::ServeMenuKey(QWidget& widget, const QKeyEvent& event) {
  FormWindow* window = event.key() == Qt::Key_Escape ? WindowOf(&widget) : nullptr;
  if (window == nullptr || window->Shown() == nullptr) return false;
  window->LeaveMenus();
  window->Shown()->PressKey(ToCode(event.key()), ToShift(event.modifiers()));
  return true;
}

}  // namespace tintbench::desktop
