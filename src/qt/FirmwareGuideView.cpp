#include "qt/FirmwareGuideView.h"

#include <QGridLayout>
#include <QPainter>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/Boxes.h"
#include "qt/CpuCard.h"
#include "qt/Look.h"
#include "qt/PicturePainter.h"
#include "state/CardLayout.h"

namespace tintbench::desktop {

namespace {

constexpr QRgb kMarkColour = 0xFFFF8F00;
constexpr QRgb kSwitchColour = 0xFF1B4462;
constexpr QRgb kButtonColour = 0xFFC62828;
constexpr int kLoadingSwitch = 3;                          // dip-switch 4, counted from 0
constexpr state::CardPlace kResetPlace{330, 226, 50, 50};  // beside the bank of switches

QRectF Area(const state::CardPlace& place) {
  return {place.Left, place.Top, place.Width, place.Height};
}

QRectF SwitchArea() {
  return Area(state::SwitchLampPlace(kLoadingSwitch, true)) |
         Area(state::SwitchLampPlace(kLoadingSwitch, false));
}

void PaintSwitch(QPainter& painter, bool on) {
  painter.setPen(QPen(QColor(kSwitchColour), 3));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(SwitchArea(), 5, 5);
  painter.setBrush(QColor(kSwitchColour));
  painter.drawRoundedRect(Area(state::SwitchLampPlace(kLoadingSwitch, on)).adjusted(5, 3, -5, -3),
                          4, 4);
}

void PaintReset(QPainter& painter) {
  constexpr double kRim = 9;
  const QRectF area = Area(kResetPlace);
  painter.setPen(QPen(QColor(kSwitchColour), 3));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(area, 6, 6);
  painter.setBrush(QColor(kButtonColour));
  painter.drawEllipse(area.adjusted(kRim, kRim, -kRim, -kRim));
  QFont font = painter.font();
  font.setPixelSize(20);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(Qt::white);
  painter.drawText(QRectF(area.left() - 30, area.bottom() + 12, area.width() + 60, 26),
                   Qt::AlignCenter | Qt::TextDontClip, "RESET");
}

// A ring around what the operator has to touch, with its turn.
void PaintMark(QPainter& painter, const QRectF& area, const QString& turn) {
  constexpr double kReach = 9;
  constexpr double kBadge = 40;
  const QRectF ring = area.adjusted(-kReach, -kReach, kReach, kReach);
  painter.setPen(QPen(QColor(kMarkColour), 8));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(ring, 12, 12);
  QRectF badge(0, 0, kBadge, kBadge);
  badge.moveCenter(QPointF(ring.center().x(), ring.top() - kBadge / 2));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(kMarkColour));
  painter.drawEllipse(badge);
  PaintSign(painter, badge, turn, QColor(kMarkColour));
}

}  // namespace

GuideCard::GuideCard(QWidget* parent) : QWidget(parent) {
  setMinimumSize(Em(*this) * 16, Em(*this) * 8);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void GuideCard::ShowStep(int step) {
  step_ = step;
  update();
}

QSize GuideCard::sizeHint() const { return {Em(*this) * 24, Em(*this) * 12}; }

void GuideCard::paintEvent(QPaintEvent*) {
  const transfer::GuideStage& stage = transfer::GuideOf(step_);
  const QSizeF size =
      QSizeF(state::kCardWidth, state::kCardHeight).scaled(this->size(), Qt::KeepAspectRatio);
  const QRectF area(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing, true);
  PaintCpuCard(painter, area, palette());
  painter.translate(area.topLeft());
  painter.scale(size.width() / state::kCardWidth, size.height() / state::kCardHeight);
  PaintSwitch(painter, stage.SwitchOn);
  PaintReset(painter);
  if (!stage.OperatorsTurn) return;
  PaintMark(painter, SwitchArea(), "1");
  if (stage.PressReset) PaintMark(painter, Area(kResetPlace), "2");
}

FirmwareGuideView::FirmwareGuideView(transfer::XmodWindow& form, QWidget* parent)
    : QWidget(parent), form_(&form), card_(new GuideCard(this)) {
  form.AddObserver(*this);
  KeepInSight(*this);
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(Em(*this) / 6);
  rows->addWidget(card_, 1);
  auto* const now = MakeWidget<QLabel>(form.LblGuideNow, this);
  now->setWordWrap(true);
  now->setFont(ScaledFont(*this, 1.1, true));
  now->setMinimumHeight(3 * now->fontMetrics().lineSpacing());
  rows->addWidget(now);
  auto* const steps = new QGridLayout;
  steps->setVerticalSpacing(0);
  for (int step = 0; step < transfer::kGuideSteps; ++step) {
    auto* const mark = new QLabel(this);
    mark->setFixedWidth(Em(*this));
    marks_.push_back(mark);
    steps->addWidget(mark, step, 0);
    steps_.push_back(MakeWidget<QLabel>(form.LblGuide(step), this));
    steps->addWidget(steps_.back(), step, 1);
  }
  steps->setColumnStretch(1, 1);
  rows->addLayout(steps);
  ShowStep();
}

FirmwareGuideView::~FirmwareGuideView() {
  if (form_ != nullptr) form_->RemoveObserver(*this);
}

void FirmwareGuideView::PropertyChanged(const ui::PropertyBase& property) {
  if (form_ != nullptr && property.Is(form_->GuideStep)) ShowStep();
}

// The step that the operator stands at is bold, behind an arrow.
void FirmwareGuideView::ShowStep() {
  const auto now = static_cast<std::size_t>(form_->GuideStep.Get());
  for (std::size_t step = 0; step < steps_.size(); ++step) {
    const bool here = step == now;
    steps_[step]->setFont(ScaledFont(*this, 1, here));
    marks_[step]->setText(here ? QString::fromUtf8("\u25B6") : QString());
  }
  card_->ShowStep(form_->GuideStep);
  card_->setAccessibleName("CPU card");
  card_->setAccessibleDescription(transfer::GuideOf(form_->GuideStep).What);
}

}  // namespace tintbench::desktop
