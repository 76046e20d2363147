#include "qt/PanelArea.h"

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <utility>

#include "state/SensorPanels.h"

namespace tintbench::desktop {

namespace {

// Follows where a control stands, until the control dies.
class PlaceWatch final : public ui::Observer {
 public:
  PlaceWatch(ui::Control& control, std::function<void()> changed)
      : control_(&control), changed_(std::move(changed)) {
    control.AddObserver(*this);
  }
  ~PlaceWatch() override {
    if (control_ != nullptr) control_->RemoveObserver(*this);
  }
  PlaceWatch(const PlaceWatch&) = delete;
  PlaceWatch& operator=(const PlaceWatch&) = delete;

  // In the units of the client area; empty for a control that has no place.
  QRectF Place() const {
    if (control_ == nullptr) return {};
    return {control_->Left, control_->Top, control_->Width, control_->Height};
  }

  void PropertyChanged(const ui::PropertyBase& property) override {
    for (const ui::PropertyBase* part : std::initializer_list<const ui::PropertyBase*>{
             &control_->Left, &control_->Top, &control_->Width, &control_->Height}) {
      if (part->Is(property)) changed_();
    }
  }
  void OwnerGone() override { control_ = nullptr; }

 private:
  ui::Control* control_;
  std::function<void()> changed_;
};

// Where a place of the client area stands in an area of that size.
QRect Scaled(const QRectF& place, const QSize& area) {
  const double across = area.width() / state::kClientWidth;
  const double down = area.height() / state::kClientHeight;
  return QRectF(place.left() * across, place.top() * down, place.width() * across,
                place.height() * down)
             .toAlignedRect() &
         QRect(QPoint(), area);
}

}  // namespace

// One panel with its head.
class PanelArea::Place final {
 public:
  Place(PanelArea& area, ui::Frame& frame, QWidget& panel, ui::Button& button, QWidget& head)
      : panel_(panel),
        head_(head),
        frame_(frame, [&area] { area.Arrange(); }),
        button_(button, [&area] { area.Arrange(); }) {}

  // A head that is too low for its title gets what it needs from the panel below it.
  void Arrange(const QSize& area) {
    QRect head = Scaled(button_.Place(), area);
    head.setHeight(std::max(head.height(), head_.sizeHint().height()));
    head_.setGeometry(head);
    QRect place = Scaled(frame_.Place(), area);
    place.setTop(std::max(place.top(), head.bottom() + 1));
    panel_.setGeometry(place);
  }

 private:
  QWidget& panel_;
  QWidget& head_;
  PlaceWatch frame_;
  PlaceWatch button_;
};

PanelArea::PanelArea(QWidget* parent) : QWidget(parent) {}

PanelArea::~PanelArea() = default;

void PanelArea::Add(ui::Frame& frame, QWidget& panel, ui::Button& button, QWidget& head) {
  places_.push_back(std::make_unique<Place>(*this, frame, panel, button, head));
  Arrange();
}

void PanelArea::Arrange() {
  for (const auto& place : places_) place->Arrange(size());
}

void PanelArea::resizeEvent(QResizeEvent*) { Arrange(); }

}  // namespace tintbench::desktop
