// The table of all elements of a type: heads that sort by a press, and below them the rows, with a
// bar for each value.
#pragma once

#include <QWidget>
#include <vector>

#include "stats/FormStat.h"

namespace tintbench::desktop {

class RowList;

class OverviewArea final : public QWidget {
 public:
  OverviewArea(stats::FormStat& form, QWidget* parent);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void MakeHeads();
  int HeadHeight() const;
  // What each column takes to be read whole.
  std::vector<int> Needs() const;
  void Measure();
  void Arrange();

  stats::FormStat& form_;
  RowList* list_;
  std::vector<QWidget*> heads_;
  std::vector<int> needs_;
  std::vector<int> widths_;  // of the columns on show
};

// The table in an area that scrolls sideways when it is too narrow.
QWidget* MakeOverviewTable(stats::FormStat& form, QWidget* parent);

}  // namespace tintbench::desktop
