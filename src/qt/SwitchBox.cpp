#include "qt/SwitchBox.h"

#include <QPainter>
#include <QStyleOptionButton>
#include <utility>

#include "qt/Colours.h"
#include "qt/Look.h"

namespace tintbench::desktop {

namespace {

constexpr QRgb kRunningGreen = 0xFF2F7D4F;
constexpr QRgb kRestingGrey = 0xFF5F6B76;

}  // namespace

struct SwitchBox::Colours {
  QColor Ground;
  QColor Edge;
  QColor Words;
};

SwitchBox::SwitchBox(Meaning meaning, QWidget* parent) : QCheckBox(parent), meaning_(meaning) {
  setAttribute(Qt::WA_Hover);
  setFont(ScaledFont(*this, 1.1, true));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize SwitchBox::sizeHint() const {
  const int em = Em(*this);
  return {fontMetrics().horizontalAdvance(text()) + em * 2, em * 2};
}

// A tick stays as strong while the box is locked: it tells what is.
SwitchBox::Colours SwitchBox::PresentColours() const {
  const QPalette& shown = palette();
  if (isChecked()) {
    const QColor ground(meaning_ == Meaning::Runs ? kRunningGreen : kRestingGrey);
    return {ground, ground, Qt::white};
  }
  const QColor words = shown.color(QPalette::WindowText);
  if (!isEnabled()) return {shown.color(QPalette::Window), shown.color(QPalette::Mid), words};
  const bool lit = underMouse() || isDown();
  return {shown.color(lit ? QPalette::Midlight : QPalette::Base), shown.color(QPalette::Dark),
          words};
}

void SwitchBox::paintEvent(QPaintEvent*) {
  const Colours colours = PresentColours();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing, true);
  painter.setPen(QPen(colours.Edge, 1.5));
  painter.setBrush(colours.Ground);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 5, 5);
  painter.setPen(colours.Words);
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic,
                   isChecked() ? QStringLiteral("\u2713 ") + text() : text());
}

WordedBox::WordedBox(QString words, QWidget* parent) : QCheckBox(parent), words_(std::move(words)) {
  setAccessibleName(words_);
}

QSize WordedBox::sizeHint() const {
  return QCheckBox::sizeHint() + QSize(fontMetrics().horizontalAdvance(words_) + Em(*this) / 2, 0);
}

void WordedBox::initStyleOption(QStyleOptionButton* option) const {
  QCheckBox::initStyleOption(option);
  option->text = words_;
}

}  // namespace tintbench::desktop
