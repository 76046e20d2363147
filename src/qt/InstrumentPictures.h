// The pictures of an instrument that consist of several controls: the trend with its letters, and
// the bar with its scale.
#pragma once

#include <QWidget>

#include "groups/GroupWindow.h"

namespace tintbench::desktop {

class PictureWidget;

// A trend, on a dark ground like a recorder's screen, and the letters of its limits outside it.
class TrendArea final : public QWidget {
 public:
  TrendArea(groups::GroupWindow& form, int index, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void PaintLetter(QPainter& painter, const ui::ControlArray<ui::Label>& letters);

  groups::GroupWindow& form_;
  int index_;
  PictureWidget* picture_;
};

// A column and the scale at its left, whose ends stand out above and below it.
class BarArea final : public QWidget {
 public:
  BarArea(groups::GroupWindow& form, int bar, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  ui::PictureBox& column_;
  ui::PictureBox& scale_;
  PictureWidget* columnShown_;
  PictureWidget* scaleShown_;
};

}  // namespace tintbench::desktop
