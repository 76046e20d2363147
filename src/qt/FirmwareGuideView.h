// The operator's guide through a firmware load: the CPU card with the switch and the button that he
// needs, and the steps with the one that he stands at.
#pragma once

#include <QLabel>
#include <QWidget>
#include <vector>

#include "transfer/XmodWindow.h"

namespace tintbench::desktop {

// The card as it has to stand at the end of a step.
class GuideCard final : public QWidget {
 public:
  explicit GuideCard(QWidget* parent);
  void ShowStep(int step);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int step_ = transfer::kGuideChoose;
};

class FirmwareGuideView final : public QWidget, public ui::Observer {
 public:
  FirmwareGuideView(transfer::XmodWindow& form, QWidget* parent);
  ~FirmwareGuideView() override;
  FirmwareGuideView(const FirmwareGuideView&) = delete;
  FirmwareGuideView& operator=(const FirmwareGuideView&) = delete;

  void PropertyChanged(const ui::PropertyBase& property) override;
  void OwnerGone() override { form_ = nullptr; }

 private:
  void ShowStep();

  transfer::XmodWindow* form_;
  GuideCard* card_;
  std::vector<QLabel*> marks_;
  std::vector<QLabel*> steps_;
};

}  // namespace tintbench::desktop
