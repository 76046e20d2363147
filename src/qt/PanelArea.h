// The part of the main window that holds the sensor panels. They keep the proportions of their
// frames, whatever size the area has.
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "ui/Controls.h"

namespace tintbench::desktop {

class PanelArea final : public QWidget {
 public:
  explicit PanelArea(QWidget* parent);
  ~PanelArea() override;

  // The panel shows `frame`. Above it stands `head`, which shows `button`.
  void Add(ui::Frame& frame, QWidget& panel, ui::Button& button, QWidget& head);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Place;
  void Arrange();

  std::vector<std::unique_ptr<Place>> places_;
};

}  // namespace tintbench::desktop
