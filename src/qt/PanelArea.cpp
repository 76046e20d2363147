#include "qt/PanelArea.h"

#include <algorithm>
#include <functional>
#include <optional>
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

  // The place in an area of that size; an empty one for a control that has no place.
  QRect In(const QSize& area) const {
    if (control_ == nullptr) return {};
    const double across = area.width() / state::kClientWidth;
    const double down = area.height() / state::kClientHeight;
    return QRectF(control_->Left * across, control_->Top * down, control_->Width * across,
                  control_->Height * down)
        .toAlignedRect();
  }

  void PropertyChanged(const ui::PropertyBase& property) override {
    for (const ui::PropertyBase* part :
         {&control_->Left, &control_->Top, &control_->Width, &control_->Height}) {
      if (part->Is(property)) changed_();
    }
  }
  void OwnerGone() override { control_ = nullptr; }

 private:
  ui::Control* control_;
  std::function<void()> changed_;
};

}  // namespace

// One panel with its head.
class PanelArea::Place final {
 public:
  Place(const QWidget& area, ui::Frame& frame, QWidget& panel, ui::Button* button, QWidget* head)
      : area_(area), panel_(panel), head_(head), frame_(frame, [this] { Arrange(); }) {
    if (button != nullptr && head != nullptr) button_.emplace(*button, [this] { Arrange(); });
    Arrange();
  }

  // A head that is too low for its title gets what it needs from the panel below it.
  void Arrange() {
    QRect place = frame_.In(area_.size());
    if (button_) {
      QRect head = button_->In(area_.size());
      head.setHeight(std::max(head.height(), head_->sizeHint().height()));
      head_->setGeometry(head);
      place.setTop(std::max(place.top(), head.bottom() + 1));
    }
    panel_.setGeometry(place);
  }

 private:
  const QWidget& area_;
  QWidget& panel_;
  QWidget* head_;
  PlaceWatch frame_;
  std::optional<PlaceWatch> button_;
};

PanelArea::PanelArea(QWidget* parent) : QWidget(parent) {}

PanelArea::~PanelArea() = default;

void PanelArea::Add(ui::Frame& frame, QWidget& panel, ui::Button* button, QWidget* head) {
  places_.push_back(std::make_unique<Place>(*this, frame, panel, button, head));
}

void PanelArea::resizeEvent(QResizeEvent*) {
  for (const auto& place : places_) place->Arrange();
}

}  // namespace tintbench::desktop
