// The part of a window that holds its sensor panels. The panels keep the proportions of their
// frames, whatever size the area has.
#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "ui/Controls.h"

namespace tintbench::desktop {

class PanelArea final : public QWidget {
 public:
  // What fills the area.
  enum class Extent {
    ClientArea,   // the whole client area that the frames have their places in
    ShownPanels,  // the panels that are shown; without any the area hides
  };
  explicit PanelArea(QWidget* parent, Extent extent = Extent::ClientArea);
  ~PanelArea() override;

  // The panel shows `frame`. Above it stands `head`, which shows `button`; a window without such
  // buttons gives neither.
  void Add(ui::Frame& frame, QWidget& panel, ui::Button* button, QWidget* head);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  class Place;
  void Arrange();

  Extent extent_;
  std::vector<std::unique_ptr<Place>> places_;
};

}  // namespace tintbench::desktop
