#include "qt/Binding.h"

#include <QCoreApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <algorithm>
#include <utility>

#include "qt/Colours.h"
#include "qt/Keys.h"
#include "qt/QtText.h"
#include "ui/Form.h"

namespace tintbench::desktop {

Binding::Binding(ui::Control& control, QWidget& widget, Dressing dressing)
    : QObject(&widget), control_(&control), widget_(widget), dressing_(dressing) {
  control.AddObserver(*this);
  widget.installEventFilter(this);
  widget.setObjectName(ToQt(control.FullName()));
  FollowCommon();
  // What was given the focus before there was a widget to have it.
  if (control.OwnerForm().ActiveControl() == &control) widget.setFocus(Qt::OtherFocusReason);
}

Binding::~Binding() {
  if (control_ != nullptr) control_->RemoveObserver(*this);
}

void Binding::FollowCommon() {
  Follow({&control_->Visible}, [this] { ShowVisible(); });
  Follow({&control_->Enabled}, [this] { widget_.setEnabled(control_->Enabled); });
  Follow({&control_->ToolTipText},
         [this] { widget_.setToolTip(ToQtToolTip(control_->ToolTipText.Get())); });
  if (dressing_ == Dressing::ByPalette) {
    Follow({&control_->BackColor, &control_->ForeColor}, [this] { DressWidget(); });
  }
}

void Binding::DressWidget() {
  const QScopedValueRollback<bool> guard(redressing_, true);
  Dress(widget_, control_->BackColor, control_->ForeColor);
}

// A widget without a holder would open a window of its own.
void Binding::ShowVisible() {
  const bool visible = control_->Visible;
  if (!visible || widget_.parentWidget() != nullptr) widget_.setVisible(visible);
}

void Binding::Follow(std::initializer_list<const ui::PropertyBase*> properties,
                     std::function<void()> show) {
  shown_.push_back({properties, std::move(show)});
  Run(shown_.back().Show);
}

void Binding::Run(const std::function<void()>& show) {
  const QScopedValueRollback<bool> guard(showing_, true);
  show();
}

void Binding::ShowAll() {
  for (const Shown& shown : shown_) Run(shown.Show);
}

void Binding::Hand(const std::function<void()>& act) {
  if (showing_ || control_ == nullptr || !control_->IsUsable()) return;
  const QPointer<Binding> self(this);
  act();
  if (self != nullptr && control_ != nullptr) ShowAll();
}

void Binding::PropertyChanged(const ui::PropertyBase& property) {
  for (const Shown& shown : shown_) {
    const bool meant = std::any_of(shown.Properties.begin(), shown.Properties.end(),
                                   [&](const ui::PropertyBase* one) { return one->Is(property); });
    if (meant) Run(shown.Show);
  }
}

void Binding::RefreshWanted() { PaintAtOnce(widget_); }

void Binding::FocusWanted() { widget_.setFocus(Qt::OtherFocusReason); }

void Binding::OwnerGone() {
  control_ = nullptr;
  // Hiding would hand the focus on to a neighbour, whose window may be half gone by now.
  widget_.clearFocus();
  widget_.hide();
  widget_.deleteLater();
}

bool Binding::eventFilter(QObject* watched, QEvent* event) {
  if (control_ == nullptr) return false;
  switch (event->type()) {
    case QEvent::FocusIn:
      if (!showing_) control_->OwnerForm().MoveFocus(*control_);
      return false;
    case QEvent::PaletteChange:
      if (watched == &widget_ && dressing_ == Dressing::ByPalette && !redressing_) DressWidget();
      return false;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseMove:
      return control_->IsUsable() && ServeMouse(static_cast<const QMouseEvent&>(*event));
    default:
      return false;
  }
}

// True if the widget must not see the event any more.
bool Binding::ServeMouse(const QMouseEvent& event) {
  if (event.type() == QEvent::MouseMove) {
    control_->MouseMove.Raise(Told(event));
    return false;
  }
  if (event.button() == Qt::LeftButton) return ServeLeftButton(event);
  const bool wanted = event.button() == Qt::RightButton && control_->MouseDown;
  const bool stops = wanted || stopOthers_;
  if (wanted && event.type() != QEvent::MouseButtonRelease) control_->PressButton(Told(event));
  return stops;
}

bool Binding::ServeLeftButton(const QMouseEvent& event) {
  if (event.type() == QEvent::MouseButtonDblClick && control_->DblClick) {
    control_->DblClick.Raise();
    return true;
  }
  if (!pressAnywhere_ || !control_->Click) return false;
  const bool wasPressed = std::exchange(pressed_, event.type() != QEvent::MouseButtonRelease);
  const bool inside = widget_.rect().contains(event.position().toPoint());
  if (!pressed_ && wasPressed && inside) control_->Press();
  return true;
}

ui::MouseEvent Binding::Told(const QMouseEvent& event) const {
  const QPointF place = place_ ? place_(event.position()) : event.position();
  return {.Button = ToButton(event.button()),
          .Shift = ToShift(event.modifiers()),
          .X = place.x(),
          .Y = place.y()};
}

void PaintAtOnce(QWidget& widget) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  widget.repaint();
}

}  // namespace tintbench::desktop
