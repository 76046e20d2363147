#include "qt/CommButtons.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOptionButton>
#include <cmath>
#include <numbers>

#include "qt/Colours.h"
#include "qt/Look.h"

namespace tintbench::desktop {

namespace {

constexpr QRgb kStopRed = 0xFFC62828;
constexpr QRgb kPressedRed = 0xFF8E1B1B;
constexpr int kWordFlags = Qt::AlignCenter | Qt::TextShowMnemonic;

}  // namespace

SendButton::SendButton(QWidget* parent) : QPushButton(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

// The words may be long; they end in dots where there is no room.
QSize SendButton::sizeHint() const { return {Em(*this) * 12, Em(*this) * 3}; }

void SendButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  QStyleOptionButton option;
  initStyleOption(&option);
  option.text.clear();
  style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
  const int em = Em(*this);
  QRect inside = rect().adjusted(em / 2, em / 4, -em / 2, -em / 4);
  const QString above = text().section('\n', 0, -2);
  const auto draw = [&](const QRect& area, const QString& words) {
    style()->drawItemText(&painter, area, kWordFlags, palette(), isEnabled(), words,
                          QPalette::ButtonText);
  };
  if (!above.isEmpty()) {
    const QRect upper(inside.left(), inside.top(), inside.width(), inside.height() / 2);
    draw(upper, fontMetrics().elidedText(above, Qt::ElideRight, upper.width()));
    inside.setTop(upper.bottom());
  }
  painter.setFont(ScaledFont(*this, 1.1, true));
  draw(inside, text().section('\n', -1));
}

StopButton::StopButton(double scale, QWidget* parent) : QPushButton(parent) {
  setFont(ScaledFont(*this, scale, true));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize StopButton::sizeHint() const {
  const int em = Em(*this);
  return {fontMetrics().size(Qt::TextShowMnemonic, text()).width() + em * 4, em * 5 / 2};
}

void StopButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(isDown() ? kPressedRed : kStopRed));
  const double corner = Em(*this) / 4.0;
  painter.drawRoundedRect(rect(), corner, corner);
  const int em = Em(*this);
  const int words = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
  QRectF sign(0, 0, em * 1.4, em * 1.4);
  const double left = (width() - words - sign.width() - em / 2.0) / 2;
  sign.moveCenter(QPointF(left + sign.width() / 2, height() / 2.0));
  PaintSign(painter, sign);
  painter.setPen(Qt::white);
  painter.drawText(rect().adjusted(qRound(sign.right() + em / 2.0), 0, 0, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, text());
}

// An octagon with a square in it.
void StopButton::PaintSign(QPainter& painter, const QRectF& area) const {
  constexpr int kCorners = 8;
  QPolygonF octagon;
  for (int corner = 0; corner < kCorners; ++corner) {
    const double angle = (corner + 0.5) * 2 * std::numbers::pi / kCorners;
    octagon << area.center() + QPointF(std::cos(angle), std::sin(angle)) * (area.width() / 2);
  }
  painter.setPen(QPen(Qt::white, area.width() / 12));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolygon(octagon);
  const double inset = area.width() * 0.33;
  painter.fillRect(area.adjusted(inset, inset, -inset, -inset), Qt::white);
}

struct OptionCard::Colours {
  QColor Ground;
  QColor Edge;
  QColor Words;
  QColor Badge;
  QColor Key;
};

OptionCard::OptionCard(QWidget* parent) : QRadioButton(parent) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setAttribute(Qt::WA_Hover);
}

void OptionCard::ShowRunning(bool running) {
  if (running_ == running) return;
  running_ = running;
  setAccessibleDescription(running ? "running" : "");
  update();
}

QString OptionCard::Key() const {
  const qsizetype end = text().indexOf(']');
  return text().startsWith('[') && end > 0 ? text().mid(1, end - 1) : QString();
}

QString OptionCard::Words() const {
  const QString key = Key();
  return key.isEmpty() ? text() : text().mid(key.size() + 2).trimmed();
}

// As wide for every key, so that the words stand in line.
int OptionCard::BadgeWidth() const { return fontMetrics().horizontalAdvance("F10") + Em(*this); }

QSize OptionCard::sizeHint() const {
  const int em = Em(*parentWidget());
  return {em * 15, em * 2};
}

QSize OptionCard::minimumSizeHint() const {
  const int em = Em(*parentWidget());
  return {em * 9, em * 7 / 4};
}

void OptionCard::resizeEvent(QResizeEvent* event) {
  constexpr double kUsual = 15;
  const QFont font =
      ScaledFont(*parentWidget(), RoomScale(*parentWidget(), width(), kUsual), false);
  if (font != this->font()) setFont(font);
  QRadioButton::resizeEvent(event);
}

OptionCard::Colours OptionCard::PresentColours() const {
  const QPalette& shown = palette();
  const QColor base = shown.color(QPalette::Base);
  const QColor words = shown.color(QPalette::WindowText);
  const QColor strong = shown.color(QPalette::Highlight);
  const QColor strongWords = shown.color(QPalette::HighlightedText);
  if (running_) {
    // It may be locked meanwhile, and is to be seen all the same.
    const QColor lit = shown.color(QPalette::Active, QPalette::Highlight);
    return {lit, lit, strongWords, strongWords, lit};
  }
  const QColor ground = isEnabled() ? base : shown.color(QPalette::Window);
  if (isChecked() && isEnabled()) return {ground, strong, words, strong, strongWords};
  const bool lit = isEnabled() && (underMouse() || isDown());
  return {lit ? shown.color(QPalette::Midlight) : ground, shown.color(QPalette::Mid), words,
          shown.color(isEnabled() ? QPalette::Button : QPalette::Window), words};
}

void OptionCard::PaintBadge(QPainter& painter, const QRectF& area, const Colours& colours) const {
  painter.setPen(QPen(Halfway(colours.Key, colours.Badge), 1));
  painter.setBrush(colours.Badge);
  painter.drawRoundedRect(area, 4, 4);
  painter.setPen(colours.Key);
  painter.setFont(ScaledFont(*this, 1, true));
  painter.drawText(area, Qt::AlignCenter, Key());
}

// In two lines where one is too narrow; in one that ends in dots where two are too high.
void OptionCard::PaintWords(QPainter& painter, const QRectF& area) const {
  constexpr int kFlags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;
  const QFontMetrics metrics = painter.fontMetrics();
  const QRect needed = metrics.boundingRect(area.toRect(), kFlags, Words());
  const bool fits = needed.height() <= area.height() && needed.width() <= area.width();
  painter.drawText(
      area, kFlags,
      fits ? Words() : metrics.elidedText(Words(), Qt::ElideRight, qRound(area.width())));
}

void OptionCard::paintEvent(QPaintEvent*) {
  const Colours colours = PresentColours();
  const bool marked = isChecked() || running_;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(QPen(colours.Edge, marked ? 3 : 1));
  painter.setBrush(colours.Ground);
  const double inset = marked ? 1.5 : 0.5;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 5, 5);
  const int em = Em(*this);
  const double gap = em * 0.4;
  const QRectF badge(gap, (height() - em * 1.35) / 2, BadgeWidth(), em * 1.35);
  PaintBadge(painter, badge, colours);
  QRectF rest(badge.right() + gap, 0, width() - badge.right() - 2 * gap, height());
  painter.setPen(colours.Words);
  if (running_) {
    const QRectF sign(rest.right() - em * 0.6, (height() - em * 0.8) / 2, em * 0.6, em * 0.8);
    painter.setBrush(colours.Words);
    painter.drawPolygon(
        QPolygonF{sign.topLeft(), sign.bottomLeft(), QPointF(sign.right(), sign.center().y())});
    rest.setRight(sign.left() - gap);
  }
  painter.setFont(ScaledFont(*this, 1, marked));
  PaintWords(painter, rest);
}

}  // namespace tintbench::desktop
