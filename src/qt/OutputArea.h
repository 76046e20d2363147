// What a command brings: the sensor panels, or its report, or both beside each other. They share
// the room by what they have to say: none gets less than it takes to read it while another has
// room to spare.
#pragma once

#include <QWidget>
#include <vector>

#include "commands/CommWindow.h"

namespace tintbench::desktop {

class OutputArea final : public QWidget {
 public:
  OutputArea(commands::CommWindow& form, QWidget* parent);

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  // An empty place says what it is for.
  void paintEvent(QPaintEvent* event) override;

 private:
  // A widget, or blocks side by side or one above the other. It shows while any of them does.
  struct Block {
    double Weight = 1;  // its part of what nobody needs
    QWidget* Widget = nullptr;
    Qt::Orientation Direction = Qt::Horizontal;
    std::vector<Block> Held = {};
  };

  static bool IsShown(const Block& block);
  // What it takes across or down.
  int Need(const Block& block, Qt::Orientation direction) const;
  void Place(const Block& block, const QRect& area) const;
  std::vector<int> Shares(const std::vector<const Block*>& blocks, Qt::Orientation direction,
                          int length) const;
  int Gap() const;

  Block all_;
};

}  // namespace tintbench::desktop
