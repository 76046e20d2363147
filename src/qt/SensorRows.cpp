#include "qt/SensorRows.h"

#include <QEvent>
#include <algorithm>

#include "qt/Look.h"

namespace tintbench::desktop {

namespace {

// Heights of a row, in lines of text.
constexpr double kTightest = 1;
constexpr double kRoomy = 1.35;
constexpr double kWidest = 2;

// Many rows in a wide panel stand in two columns.
constexpr std::size_t kRowsInColumn = 10;
constexpr double kWideColumn = 26;  // in lines of text

}  // namespace

void SensorRows::AddRow(const Indicators& indicators, QWidget& name) {
  rows_.push_back({indicators, &name});
}

int SensorRows::BaseEm() const { return Em(*parentWidget()); }

std::vector<const SensorRows::Row*> SensorRows::UsedRows() const {
  std::vector<const Row*> used;
  for (const Row& row : rows_) {
    if (!row.Name->isHidden()) used.push_back(&row);
  }
  return used;
}

int SensorRows::ColumnsFor(std::size_t rows) const {
  return rows > kRowsInColumn && width() > 2 * kWideColumn * BaseEm() ? 2 : 1;
}

QSize SensorRows::minimumSizeHint() const {
  const auto rows = static_cast<int>(UsedRows().size());
  const int columns = ColumnsFor(UsedRows().size());
  const int lines = (rows + columns - 1) / columns;
  return {0, static_cast<int>(lines * kTightest * BaseEm())};
}

int SensorRows::WholeWidth() const {
  const std::vector<const Row*> used = UsedRows();
  int widest = 0;
  for (const Row* row : used) widest = std::max(widest, row->Name->sizeHint().width());
  return static_cast<int>((widest + NamesFrom(used)) / scale_) + 1;
}

bool SensorRows::event(QEvent* event) {
  // A row has come or gone, or has another indicator.
  if (event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    Arrange();
  }
  return QWidget::event(event);
}

void SensorRows::resizeEvent(QResizeEvent*) { Arrange(); }

void SensorRows::ScaleFont(double factor) {
  if (factor == scale_) return;
  scale_ = factor;
  setFont(ScaledFont(*parentWidget(), factor, false));
}

void SensorRows::Arrange() {
  const std::vector<const Row*> used = UsedRows();
  if (used.empty()) return;
  const int columns = ColumnsFor(used.size());
  const int lines = (static_cast<int>(used.size()) + columns - 1) / columns;
  const int across = width() / columns;
  const double base = BaseEm();
  const double usual = std::max(kWideColumn, WholeWidth() / base);
  const double wanted = RoomScale(*parentWidget(), across, usual);
  const int pitch = static_cast<int>(
      std::clamp(static_cast<double>(height()) / lines, kTightest * base, kWidest * wanted * base));
  ScaleFont(std::clamp(pitch / (kRoomy * base), 1.0, wanted));
  const int names = NamesFrom(used);
  for (std::size_t i = 0; i < used.size(); ++i) {
    const int at = static_cast<int>(i);
    Place(*used[i], QRect(at / lines * across, at % lines * pitch, across, pitch), names);
  }
}

// Where the names begin, behind the widest indicator.
int SensorRows::NamesFrom(const std::vector<const Row*>& rows) const {
  int widest = 0;
  for (const Row* row : rows) {
    for (const QWidget* indicator : row->Shown) {
      if (!indicator->isHidden()) widest = std::max(widest, indicator->sizeHint().width());
    }
  }
  return widest + Em(*this) / 2;
}

void SensorRows::Place(const Row& row, const QRect& area, int names) {
  for (QWidget* indicator : row.Shown) {
    const QSize size = indicator->sizeHint();
    const int high = std::min(size.height(), area.height() - 2);
    indicator->setGeometry(area.left(), area.top() + (area.height() - high) / 2, size.width(),
                           high);
  }
  row.Name->setGeometry(area.adjusted(names, 0, 0, 0));
}

}  // namespace tintbench::desktop
