// What a window is to those who hear it, and to those who work with it by the keyboard.
#pragma once

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

#include "qt/EveryKind.h"
#include "state/SensorPanels.h"

namespace tintbench::desktop {

inline void NoteControls(const ui::Container& holder, std::set<std::string>& names) {
  for (const ui::Control* control : holder.Children()) {
    names.insert(control->FullName());
    const auto* const held = dynamic_cast<const ui::Container*>(control);
    if (held != nullptr) NoteControls(*held, names);
  }
}

// What only holds or parts other things may have no name, and a label without words has none.
inline bool MayBeNameless(const QAccessibleInterface& one) {
  constexpr std::array kHolders{
      QAccessible::Client, QAccessible::MenuBar,   QAccessible::Border,    QAccessible::ScrollBar,
      QAccessible::Pane,   QAccessible::Separator, QAccessible::StaticText};
  return !one.state().focusable &&
         std::find(kHolders.begin(), kHolders.end(), one.role()) != kHolders.end();
}

inline void Listen(const QAccessibleInterface& one, std::vector<std::string>& heard) {
  if (one.state().invisible && one.role() != QAccessible::PopupMenu) return;
  const QString name = one.text(QAccessible::Name);
  const std::string object = one.object() == nullptr ? "" : FromQt(one.object()->objectName());
  EXPECT_TRUE(!name.isEmpty() || MayBeNameless(one)) << object << " of role " << one.role();
  heard.push_back(FromQt(name));
  for (int index = 0; index < one.childCount(); ++index) {
    const QAccessibleInterface* const child = one.child(index);
    if (child != nullptr) Listen(*child, heard);
  }
}

// The names that a screen reader gets of a window, none of which may be a control's.
inline std::vector<std::string> Heard(QWidget& window, const ui::Form& form) {
  std::set<std::string> controls{form.Name()};
  NoteControls(form, controls);
  std::vector<std::string> heard;
  Listen(*QAccessible::queryAccessibleInterface(&window), heard);
  for (const std::string& name : heard) EXPECT_FALSE(controls.contains(name)) << name;
  return heard;
}

inline void ExpectHeard(const std::vector<std::string>& heard, const std::string& name) {
  EXPECT_NE(std::find(heard.begin(), heard.end(), name), heard.end()) << name;
}

// What the eye can tell apart of two pictures of a widget and its surroundings, along its edges.
inline int EdgeChange(const QImage& one, const QImage& other, int edge) {
  constexpr int kNoticed = 60;
  int changed = 0;
  for (int y = 0; y < one.height(); ++y) {
    for (int x = 0; x < one.width(); ++x) {
      if (one.rect().adjusted(edge, edge, -edge, -edge).contains(x, y)) continue;
      if (std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) >= kNoticed) ++changed;
    }
  }
  return changed;
}

// Gives the focus to all that can have it by the keyboard. An edge all around must show it.
inline void ExpectFocusSeen(QWidget& window) {
  constexpr int kAround = 4;
  int seen = 0;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || !widget->isEnabled()) continue;
    if ((widget->focusPolicy() & Qt::TabFocus) == 0) continue;
    const QRect area(widget->mapTo(&window, QPoint(-kAround, -kAround)),
                     widget->size() + QSize(2 * kAround, 2 * kAround));
    const auto picture = [&] {
      QCoreApplication::processEvents();
      return window.grab(area).toImage();
    };
    widget->setFocus(Qt::OtherFocusReason);
    const QImage with = picture();
    widget->clearFocus();
    EXPECT_GE(EdgeChange(with, picture(), 2 * kAround), 2 * (widget->width() + widget->height()))
        << FromQt(widget->objectName());
    ++seen;
  }
  EXPECT_GT(seen, 2);
}

// Every sensor's name that is shown can be read to its end.
inline void ExpectNamesWhole(const QWidget& window, const state::SensorPanels& panels) {
  for (const auto* labels : {&panels.ILabel3, &panels.OLabel3}) {
    for (int bit = 0; bit < labels->Count(); ++bit) {
      const auto& name = *WidgetOf<QLabel>(window, (*labels)(bit));
      if (!name.isVisible()) continue;
      EXPECT_GE(name.width(), name.fontMetrics().horizontalAdvance(name.text()))
          << FromQt(name.text());
      EXPECT_GE(name.height(), name.fontMetrics().height()) << FromQt(name.text());
    }
  }
}

}  // namespace tintbench::desktop
