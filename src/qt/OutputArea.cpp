#include "qt/OutputArea.h"

#include <QEvent>
#include <QFontDatabase>
#include <QGroupBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/Binder.h"
#include "qt/Look.h"
#include "qt/SensorPanelView.h"

namespace tintbench::desktop {

namespace {

int Along(const QSize& size, Qt::Orientation direction) {
  return direction == Qt::Horizontal ? size.width() : size.height();
}

QWidget* MakeReport(commands::CommWindow& form, QWidget* parent) {
  constexpr int kLeastAcross = 24;
  auto* const report = MakeWidget<QGroupBox>(form.FrameOutput, parent);
  auto* const text = MakeWidget<QPlainTextEdit>(form.TextOutput, report);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text->setMinimumWidth(text->fontMetrics().averageCharWidth() * kLeastAcross);
  text->setAccessibleName(report->title());
  auto* const column = new QVBoxLayout(report);
  const int margin = Em(*parent) / 3;
  column->setContentsMargins(margin, margin, margin, margin);
  column->addWidget(text);
  return report;
}

}  // namespace

OutputArea::OutputArea(commands::CommWindow& form, QWidget* parent) : QWidget(parent) {
  const auto panel = [&](int number, double weight) {
    return Block{.Weight = weight,
                 .Widget = MakeSensorPanel(form.Panels, number, form.LblTitle(number), this)};
  };
  const Block inputs = panel(state::kInputPanel, 1);
  const Block upper{.Weight = 2,
                    .Held = {panel(state::kOutputPanel, 1), panel(state::kStatusPanel, 1)}};
  const Block others{
      .Weight = 2, .Direction = Qt::Vertical, .Held = {upper, panel(state::kCardPanel, 3)}};
  all_.Held = {inputs, others, {.Weight = 2, .Widget = MakeReport(form, this)}};
}

bool OutputArea::IsShown(const Block& block) {
  if (block.Widget != nullptr) return !block.Widget->isHidden();
  return std::any_of(block.Held.begin(), block.Held.end(), IsShown);
}

int OutputArea::Gap() const { return Em(*this) / 2; }

int OutputArea::Need(const Block& block, Qt::Orientation direction) const {
  if (!IsShown(block)) return 0;
  if (block.Widget != nullptr) return Along(block.Widget->minimumSizeHint(), direction);
  int sum = -Gap();
  int most = 0;
  for (const Block& held : block.Held) {
    const int need = Need(held, direction);
    most = std::max(most, need);
    if (IsShown(held)) sum += need + Gap();
  }
  return direction == block.Direction ? sum : most;
}

// By weights, but first to those that need the most for their weight. Where all together need
// more than there is, all get the less.
std::vector<int> OutputArea::Shares(const std::vector<const Block*>& blocks,
                                    Qt::Orientation direction, int length) const {
  struct Part {
    std::size_t Index;
    double Weight;
    double Need;
  };
  std::vector<Part> parts;
  double weights = 0;
  double needs = 0;
  for (const Block* block : blocks) {
    parts.push_back({parts.size(), block->Weight, static_cast<double>(Need(*block, direction))});
    weights += block->Weight;
    needs += parts.back().Need;
  }
  std::sort(parts.begin(), parts.end(), [](const Part& one, const Part& other) {
    return one.Need / one.Weight > other.Need / other.Weight;
  });
  const double scarcity = std::min(1.0, length / std::max(needs, 1.0));
  std::vector<int> shares(parts.size());
  for (const Part& part : parts) {
    int& share = shares[part.Index];
    share = static_cast<int>(std::max(part.Need * scarcity, length * part.Weight / weights));
    length -= share;
    weights -= part.Weight;
  }
  return shares;
}

void OutputArea::Place(const Block& block, const QRect& area) const {
  if (block.Widget != nullptr) return block.Widget->setGeometry(area);
  std::vector<const Block*> shown;
  for (const Block& held : block.Held) {
    if (IsShown(held)) shown.push_back(&held);
  }
  const int gaps = Gap() * static_cast<int>(shown.size() - 1);
  const std::vector<int> shares =
      Shares(shown, block.Direction, Along(area.size(), block.Direction) - gaps);
  QPoint corner = area.topLeft();
  for (std::size_t index = 0; index < shown.size(); ++index) {
    const bool across = block.Direction == Qt::Horizontal;
    const QSize size =
        across ? QSize(shares[index], area.height()) : QSize(area.width(), shares[index]);
    Place(*shown[index], QRect(corner, size));
    (across ? corner.rx() : corner.ry()) += shares[index] + Gap();
  }
}

bool OutputArea::event(QEvent* event) {
  // Something has come or gone, or has more to say.
  if (event->type() == QEvent::LayoutRequest) {
    if (IsShown(all_)) Place(all_, rect());
    update();
  }
  return QWidget::event(event);
}

void OutputArea::resizeEvent(QResizeEvent*) {
  if (IsShown(all_)) Place(all_, rect());
}

void OutputArea::paintEvent(QPaintEvent*) {
  if (IsShown(all_)) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextWordWrap,
                   "Sensors and reports are shown here.");
}

}  // namespace tintbench::desktop
