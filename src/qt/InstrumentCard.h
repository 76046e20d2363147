// An analogue input of a group as an instrument: dial or bar, reading, alarm, trend and limits.
#pragma once

#include <QGroupBox>

#include "groups/FormGMon.h"

class QLabel;

namespace tintbench::desktop {

class InstrumentCard final : public QGroupBox {
 public:
  // The instrument of the analogue input `index`, from 0.
  InstrumentCard(groups::FormGMon& form, int index, QWidget* parent);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QWidget* MakeInstrument();
  QLayout* MakeReading(QWidget& body);
  QLayout* MakeLimits();
  QLayout* MakeBoxes();
  void FitReading();

  groups::FormGMon& form_;
  int index_;
  QLabel* reading_ = nullptr;
  QLabel* unit_ = nullptr;
  QLabel* status_ = nullptr;
  QLabel* alarm_ = nullptr;
};

}  // namespace tintbench::desktop
