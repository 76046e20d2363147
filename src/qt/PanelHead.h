// The title bar above a panel. A press makes the panel large or brings it back; a sign at the right
// says which of the two.
#pragma once

#include <QPushButton>

namespace tintbench::desktop {

class PanelHead final : public QPushButton {
 public:
  explicit PanelHead(QWidget* parent) : QPushButton(parent) {}

  // Whether the panel is large, so that the next press brings it back.
  void ShowLarge(bool large);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void PaintSizeSign(QPainter& painter, const QRectF& area) const;

  bool large_ = false;
};

}  // namespace tintbench::desktop
