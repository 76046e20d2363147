// A panel that stands out from the window's ground.
#pragma once

#include <QFrame>

class QVBoxLayout;

namespace tintbench::desktop {

class Card final : public QFrame {
 public:
  explicit Card(QWidget* parent = nullptr);

  // What stands in the panel, from above.
  QVBoxLayout& Body() { return *body_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QVBoxLayout* body_;
};

}  // namespace tintbench::desktop
