#include "qt/PictureWidget.h"

#include <QPainter>
#include <algorithm>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/Colours.h"
#include "qt/ControlsWatch.h"
#include "qt/NamedPictures.h"
#include "qt/PicturePainter.h"

namespace tintbench::desktop {

// Has the picture painted anew when one of the controls in it changes.
class PictureWidget::ChildWatch final : public ui::Observer {
 public:
  ChildWatch(ui::Control& control, QWidget& widget) : control_(&control), widget_(widget) {
    control.AddObserver(*this);
  }
  ~ChildWatch() override {
    if (control_ != nullptr) control_->RemoveObserver(*this);
  }
  ChildWatch(const ChildWatch&) = delete;
  ChildWatch& operator=(const ChildWatch&) = delete;

  bool Watches(const ui::Control* control) const { return control_ == control; }
  bool Lives() const { return control_ != nullptr; }

  void PropertyChanged(const ui::PropertyBase&) override { widget_.update(); }
  void RefreshWanted() override { widget_.repaint(); }
  void OwnerGone() override { control_ = nullptr; }

 private:
  ui::Control* control_;
  QWidget& widget_;
};

PictureWidget::PictureWidget(QWidget* parent) : QWidget(parent) { setMouseTracking(true); }

PictureWidget::~PictureWidget() = default;

void PictureWidget::KeepShape(bool keep) {
  keepShape_ = keep;
  update();
}

void PictureWidget::PreferSize(QSize size) {
  preferred_ = size;
  updateGeometry();
}

void PictureWidget::WatchChildren() {
  std::erase_if(children_, [](const auto& watch) { return !watch->Lives(); });
  for (ui::Control* child : picture_->Children()) {
    const bool watched = std::any_of(children_.begin(), children_.end(),
                                     [child](const auto& watch) { return watch->Watches(child); });
    if (!watched) children_.push_back(std::make_unique<ChildWatch>(*child, *this));
  }
}

QTransform PictureWidget::Scale() const { return PictureScale(*picture_, rect(), keepShape_); }

void PictureWidget::paintEvent(QPaintEvent*) {
  if (binding_ == nullptr || !binding_->Lives()) return;
  WatchChildren();
  QPainter painter(this);
  PaintPicture(painter, *picture_, Scale(), palette());
}

void PictureWidget::leaveEvent(QEvent*) {
  if (binding_ == nullptr || !binding_->Lives() || !picture_->IsUsable()) return;
  picture_->MouseMove.Raise({.X = -1, .Y = -1});
}

void Bind(ui::PictureBox& control, PictureWidget& widget) {
  // The colour of its words is the pen's, and changes with each drawing.
  auto* const binding = new Binding(control, widget, Dressing::ByPainting);
  binding->Follow({&control.BackColor},
                  [&] { Dress(widget, control.BackColor, ui::kWindowTextColour); });
  widget.picture_ = &control;
  widget.binding_ = binding;
  binding->PressAnywhere();
  binding->TellPlaces([&widget](QPointF place) { return widget.Scale().inverted().map(place); });
  binding->Follow({&control.Drawn, &control.Picture, &control.ScaleWidth, &control.ScaleHeight},
                  [&widget] { widget.update(); });
  new ControlsWatch(
      control.OwnerForm(), [&widget] { widget.update(); }, &widget);
}

QSize FigureWidget::sizeHint() const {
  const int edge = fontMetrics().height();
  return {edge, edge};
}

void FigureWidget::paintEvent(QPaintEvent*) {
  if (!Paint) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing, true);
  Paint(painter);
}

namespace {

// A figure has room for its outline.
QRectF FigureArea(const QWidget& widget) { return QRectF(widget.rect()).adjusted(1, 1, -1, -1); }

}  // namespace

Binding& Bind(ui::Shape& control, FigureWidget& widget) {
  auto* const binding = new Binding(control, widget, Dressing::ByPainting);
  binding->PressAnywhere();
  widget.Paint = [&control, &widget, binding](QPainter& painter) {
    if (binding->Lives()) PaintShape(painter, control, FigureArea(widget), widget.palette());
  };
  binding->Follow(
      {&control.Form, &control.FillColor, &control.FillSolid, &control.BorderColor, &control.Sign},
      [&widget] { widget.update(); });
  return *binding;
}

void Bind(ui::Image& control, FigureWidget& widget) {
  auto* const binding = new Binding(control, widget);
  binding->PressAnywhere();
  widget.Paint = [&control, &widget, binding](QPainter& painter) {
    if (!binding->Lives()) return;
    PaintNamed(painter, control.Picture.Get(), FigureArea(widget), widget.palette());
  };
  binding->Follow({&control.Picture}, [&widget] { widget.update(); });
}

}  // namespace tintbench::desktop
