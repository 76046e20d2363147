// The tie between one control and one widget: what all kinds of controls have in common. The
// control's properties are shown by the widget, the operator's hand on the widget reaches the
// control, and either may die first.
#pragma once

#include <QObject>
#include <QPointF>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <initializer_list>
#include <vector>

#include "ui/Control.h"

class QMouseEvent;

namespace tintbench::desktop {

// Who shows a control's colours: the widget's palette, or what the widget paints.
enum class Dressing { ByPalette, ByPainting };

// Belongs to its widget and dies with it. If the control dies first, the widget vanishes.
class Binding final : public QObject, public ui::Observer {
 public:
  Binding(ui::Control& control, QWidget& widget, Dressing dressing = Dressing::ByPalette);
  ~Binding() override;
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;

  // False once the control has died.
  bool Lives() const { return control_ != nullptr; }

  // Runs `show` now, and again whenever one of the properties has changed.
  void Follow(std::initializer_list<const ui::PropertyBase*> properties,
              std::function<void()> show);

  // Passes the operator's hand on to the control and shows afterwards what the control made of it.
  // Does nothing while the control itself is being shown, so that no change comes back.
  void Hand(const std::function<void()>& act);

  // A press and release of the left button anywhere on the widget presses the control. For the
  // kinds that are not made to be pressed; without a handler the press falls through to what lies
  // below.
  void PressAnywhere() { pressAnywhere_ = true; }

  // Presses of other buttons than the left one don't reach the widget.
  void StopOtherButtons() { stopOthers_ = true; }

  // The part of the widget that the mouse is over, if that isn't the widget itself.
  void WatchMouseOn(QWidget& part) { part.installEventFilter(this); }

  // How a place on the widget is told to the control; without one in pixels.
  void TellPlaces(std::function<QPointF(QPointF)> place) { place_ = std::move(place); }

  void PropertyChanged(const ui::PropertyBase& property) override;
  void RefreshWanted() override;
  void FocusWanted() override;
  void OwnerGone() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Shown {
    std::vector<const ui::PropertyBase*> Properties;
    std::function<void()> Show;
  };

  void FollowCommon();
  void DressWidget();
  void Run(const std::function<void()>& show);
  void ShowAll();
  void ShowVisible();
  bool ServeMouse(const QMouseEvent& event);
  bool ServeLeftButton(const QMouseEvent& event);
  ui::MouseEvent Told(const QMouseEvent& event) const;

  ui::Control* control_;
  QWidget& widget_;
  Dressing dressing_;
  std::vector<Shown> shown_;
  std::function<QPointF(QPointF)> place_;
  bool pressAnywhere_ = false;
  bool pressed_ = false;  // the left button went down on it
  bool stopOthers_ = false;
  bool showing_ = false;     // the model is being shown: the widget's signals are echoes
  bool redressing_ = false;  // the palette changes by our own doing
};

// Lays out what has changed around the widget and paints the widget, without serving any other
// event.
void PaintAtOnce(QWidget& widget);

}  // namespace tintbench::desktop
