// The rows of a sensor panel: an indicator and a name each, in one or two columns at one pitch.
// Rows that are hidden take no room.
#pragma once

#include <QWidget>
#include <array>
#include <vector>

namespace tintbench::desktop {

class SensorRows final : public QWidget {
 public:
  explicit SensorRows(QWidget* parent) : QWidget(parent) {}

  // All of them stand at the same place; at most one shows.
  using Indicators = std::array<QWidget*, 3>;
  // The row shows while `name` isn't hidden. The widgets belong to this one.
  void AddRow(const Indicators& indicators, QWidget& name);

  QSize minimumSizeHint() const override;
  // What one column with every name whole takes at the usual size of letters.
  int WholeWidth() const;

 protected:
  bool event(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  struct Row {
    Indicators Shown;
    QWidget* Name;
  };

  std::vector<const Row*> UsedRows() const;
  int ColumnsFor(std::size_t rows) const;
  int BaseEm() const;
  void Arrange();
  void ScaleFont(double factor);
  int NamesFrom(const std::vector<const Row*>& rows) const;
  // The name begins `names` behind the area's left end.
  static void Place(const Row& row, const QRect& area, int names);

  std::vector<Row> rows_;
  double scale_ = 1;
};

}  // namespace tintbench::desktop
