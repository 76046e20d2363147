// The widgets that paint: a picture box with all that stands in it, and a shape or an image that
// stands alone.
#pragma once

#include <QTransform>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

#include "ui/Picture.h"

namespace tintbench::desktop {

class Binding;

// Paints a picture box at the widget's size. A pointer that leaves it is told as a move to a place
// outside the picture.
class PictureWidget final : public QWidget {
 public:
  explicit PictureWidget(QWidget* parent = nullptr);
  ~PictureWidget() override;

  // Keeps circles round; without it the picture fills the widget.
  void KeepShape(bool keep);
  // The size that the layout should start from, in logical pixels.
  void PreferSize(QSize size);

  QSize sizeHint() const override { return preferred_; }
  QSize minimumSizeHint() const override { return preferred_ / 4; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  friend void Bind(ui::PictureBox& control, PictureWidget& widget);
  class ChildWatch;

  void WatchChildren();
  QTransform Scale() const;

  ui::PictureBox* picture_ = nullptr;
  Binding* binding_ = nullptr;
  std::vector<std::unique_ptr<ChildWatch>> children_;
  bool keepShape_ = false;
  QSize preferred_{160, 120};
};

// Paints one figure at the widget's size.
class FigureWidget final : public QWidget {
 public:
  explicit FigureWidget(QWidget* parent = nullptr) : QWidget(parent) {}

  std::function<void(QPainter&)> Paint;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tintbench::desktop
