#include "qt/InstrumentPictures.h"

#include <QPainter>
#include <algorithm>

#include "qt/Binder.h"
#include "qt/ControlsWatch.h"
#include "qt/Look.h"
#include "qt/PicturePainter.h"
#include "qt/PictureWidget.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

constexpr QRgb kTrendGround = 0xFF1A1E23;
constexpr QRgb kTrendWords = 0xFFE4E9ED;

}  // namespace

// The colours of the trace are light ones, which no light ground would show.
TrendArea::TrendArea(groups::GroupWindow& form, int index, QWidget* parent)
    : QWidget(parent), form_(form), index_(index) {
  QPalette dark = palette();
  dark.setColor(QPalette::Window, QColor(kTrendGround));
  dark.setColor(QPalette::WindowText, QColor(kTrendWords));
  setPalette(dark);
  setAutoFillBackground(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  setMinimumSize(Em(*this) * 6, Em(*this) * 5);
  picture_ = MakeWidget<PictureWidget>(form.PictG(index), this);
  picture_->KeepShape(true);
  new ControlsWatch(
      form, [this] { update(); }, this);
}

void TrendArea::resizeEvent(QResizeEvent*) {
  const int margin = Em(*this);
  picture_->setGeometry(rect().adjusted(margin, 2, -2, -2));
}

void TrendArea::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  PaintLetter(painter, form_.Lbldl);
  PaintLetter(painter, form_.Lbldh);
}

// Stands at the height of its line.
void TrendArea::PaintLetter(QPainter& painter, const ui::ControlArray<ui::Label>& letters) {
  if (!letters.Has(index_) || !letters(index_).Visible) return;
  const ui::Label& letter = letters(index_);
  const ui::PictureBox& picture = form_.PictG(index_);
  const QTransform scale = PictureScale(picture, picture_->geometry(), true);
  const QPointF place = scale.map(QPointF(0, letter.Top - picture.Top));
  const int em = Em(*this);
  const QRectF area(place.x() - em, place.y() - em / 2.0, em * 0.9, em);
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter | Qt::TextDontClip,
                   ToQt(letter.Caption.Get()));
}

BarArea::BarArea(groups::GroupWindow& form, int bar, QWidget* parent)
    : QWidget(parent),
      column_(form.PictTL(bar)),
      scale_(form.PictTLm(bar)),
      columnShown_(MakeWidget<PictureWidget>(column_, this)),
      scaleShown_(MakeWidget<PictureWidget>(scale_, this)) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
  setMinimumSize(Em(*this) * 4, Em(*this) * 6);
}

void BarArea::resizeEvent(QResizeEvent*) {
  const double across = scale_.ScaleWidth + column_.ScaleWidth;
  const double down = scale_.ScaleHeight;
  const double unit = std::min(width() / across, height() / down);
  const QPointF corner((width() - across * unit) / 2, (height() - down * unit) / 2);
  const auto place = [&](double left, double top, const ui::PictureBox& picture) {
    return QRectF(corner.x() + left * unit, corner.y() + top * unit, picture.ScaleWidth * unit,
                  picture.ScaleHeight * unit)
        .toAlignedRect();
  };
  scaleShown_->setGeometry(place(0, 0, scale_));
  columnShown_->setGeometry(place(scale_.ScaleWidth, scale_.Top - column_.Top, column_));
}

}  // namespace tintbench::desktop
