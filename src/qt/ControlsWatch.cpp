#include "qt/ControlsWatch.h"

namespace tintbench::desktop {

ControlsWatch::ControlsWatch(ui::Form& form, std::function<void()> changed, QObject* parent)
    : QObject(parent), form_(&form), changed_(std::move(changed)) {
  form.AddObserver(*this);
}

ControlsWatch::~ControlsWatch() {
  if (form_ != nullptr) form_->RemoveObserver(*this);
}

void ControlsWatch::ControlsChanged() {
  if (pending_) return;
  pending_ = true;
  QMetaObject::invokeMethod(
      this, [this] { Tell(); }, Qt::QueuedConnection);
}

void ControlsWatch::Tell() {
  if (!pending_ || form_ == nullptr) return;
  pending_ = false;
  changed_();
}

}  // namespace tintbench::desktop
