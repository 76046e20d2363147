// Tells that controls have come to a window or gone from it, once everything that brought the
// change is done.
#pragma once

#include <QObject>
#include <functional>

#include "ui/Form.h"

namespace tintbench::desktop {

class ControlsWatch final : public QObject, public ui::Observer {
 public:
  // `changed` is called when events are served next, however many controls have changed.
  ControlsWatch(ui::Form& form, std::function<void()> changed, QObject* parent);
  ~ControlsWatch() override;
  ControlsWatch(const ControlsWatch&) = delete;
  ControlsWatch& operator=(const ControlsWatch&) = delete;

  void PropertyChanged(const ui::PropertyBase&) override {}
  void RefreshWanted() override { Tell(); }
  void ControlsChanged() override;
  void OwnerGone() override { form_ = nullptr; }

 private:
  void Tell();

  ui::Form* form_;
  std::function<void()> changed_;
  bool pending_ = false;
};

}  // namespace tintbench::desktop
