// A panel with a title that stands out from the window's ground.
#pragma once

#include <QFrame>
#include <QString>

class QHBoxLayout;
class QVBoxLayout;

namespace tintbench::desktop {

class Card final : public QFrame {
 public:
  explicit Card(const QString& title, QWidget* parent = nullptr);

  // The row of the title, to which buttons can be added.
  QHBoxLayout& Head() { return *head_; }
  // What stands below the title.
  QVBoxLayout& Body() { return *body_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QHBoxLayout* head_;
  QVBoxLayout* body_;
};

}  // namespace tintbench::desktop
