#include "qt/SplashView.h"

#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QVBoxLayout>
#include <array>
#include <initializer_list>

#include "qt/Binder.h"
#include "qt/Look.h"
#include "qt/NamedPictures.h"

namespace tintbench::desktop {

namespace {

// A drop above the can: its place and size as parts of the motif's width.
struct Drop {
  double X;
  double Y;
  double Size;
  QRgb Colour;
};

constexpr std::array<Drop, 5> kDrops{{{0.10, 0.08, 0.13, 0xFFD7A21B},
                                      {0.30, 0.22, 0.11, 0xFFB3342E},
                                      {0.45, 0.02, 0.15, 0xFF1C6EA4},
                                      {0.64, 0.20, 0.12, 0xFF2F8F57},
                                      {0.80, 0.06, 0.13, 0xFF6E4A8E}}};

constexpr QRgb kTint = 0xFF3C86B4;
constexpr QRgb kTintLight = 0xFF62A3CB;

// An open can of tinted paint under falling drops of colorant.
class Motif final : public QWidget {
 public:
  explicit Motif(QWidget* parent) : QWidget(parent) {
    setMinimumSize(Em(*this) * 11, Em(*this) * 13);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, true);
    const double edge = std::min<double>(width(), height() * 11.0 / 13.0);
    painter.translate((width() - edge) / 2, (height() - edge * 13 / 11) / 2);
    for (const Drop& drop : kDrops) {
      const QRectF area(drop.X * edge, drop.Y * edge, drop.Size * edge, drop.Size * edge * 1.5);
      PaintDrop(painter, area, QColor(drop.Colour));
    }
    PaintCan(painter, QRectF(edge * 0.14, edge * 0.56, edge * 0.72, edge * 0.58));
  }

 private:
  void PaintCan(QPainter& painter, const QRectF& area) const {
    const double rim = area.height() * 0.26;
    const QRectF top(area.left(), area.top(), area.width(), rim);
    const QRectF bottom(area.left(), area.bottom() - rim, area.width(), rim);
    QPainterPath body;
    body.moveTo(top.left(), top.center().y());
    body.lineTo(bottom.left(), bottom.center().y());
    body.arcTo(bottom, 180, 180);
    body.lineTo(top.right(), top.center().y());
    body.arcTo(top, 0, 180);
    painter.setPen(QPen(palette().color(QPalette::Shadow), 1.5));
    painter.setBrush(palette().color(QPalette::Midlight));
    painter.drawPath(body);
    painter.setBrush(QColor(kTint));
    painter.drawEllipse(top);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kTintLight));
    painter.drawEllipse(
        top.adjusted(top.width() * 0.30, rim * 0.22, -top.width() * 0.30, -rim * 0.28));
  }
};

// A framed surface under a stripe of the desktop's own colour.
class StripedPanel : public QWidget {
 public:
  using QWidget::QWidget;

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Base));
    painter.fillRect(0, 0, width(), Em(*this) / 3, palette().color(QPalette::Highlight));
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
};

class SplashPanel final : public StripedPanel {
 public:
  SplashPanel(shell::frmSplsh& form, QWidget* parent);
};

void AddWords(ui::Label& control, double scale, bool bold, QBoxLayout& column, QWidget& panel) {
  auto* const words = MakeWidget<QLabel>(control, &panel);
  words->setFont(ScaledFont(panel, scale, bold));
  column.addWidget(words);
}

// How link-up does, in lines that are there even while they say nothing.
void AddSteps(std::initializer_list<ui::Label*> lines, QBoxLayout& column, QWidget& panel) {
  for (ui::Label* line : lines) {
    auto* const label = MakeWidget<QLabel>(*line, &panel);
    label->setMinimumHeight(Em(panel));
    column.addWidget(label);
  }
}

SplashPanel::SplashPanel(shell::frmSplsh& form, QWidget* parent) : StripedPanel(parent) {
  auto* const words = new QVBoxLayout;
  words->addStretch(2);
  AddWords(form.lblProductName, 3.2, true, *words, *this);
  AddWords(form.lblVersion, 1.3, false, *words, *this);
  words->addStretch(1);
  AddSteps({&form.lblStep, &form.lblWait}, *words, *this);
  auto* const columns = new QHBoxLayout(this);
  const int margin = Em(*this) * 2;
  columns->setContentsMargins(margin, margin, margin, margin);
  columns->setSpacing(margin);
  columns->addWidget(new Motif(this));
  columns->addLayout(words, 1);
  // Wide enough for the longest step.
  setMinimumWidth(Em(*this) * 40);
}

}  // namespace

QWidget* MakeSplashView(shell::frmSplsh& form, QWidget* parent) {
  return new SplashPanel(form, parent);
}

QWidget* MakeStartPanelView(shell::StartPanel& form, QWidget* parent) {
  auto* const panel = new StripedPanel(parent);
  auto* const words = new QVBoxLayout(panel);
  const int margin = Em(*panel);
  words->setContentsMargins(2 * margin, 2 * margin, 2 * margin, margin);
  AddSteps({&form.LblStep, &form.LblWait}, *words, *panel);
  panel->setMinimumWidth(Em(*panel) * 26);
  return panel;
}

}  // namespace tintbench::desktop
