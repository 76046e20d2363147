#include "qt/ParameterList.h"

#include <QPainter>
#include <QStyle>
#include <array>
#include <utility>

#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

constexpr std::array<std::pair<int, const char*>, 3> kRowSigns{
    {{editor::kRowEmpty, "\u2013"}, {editor::kRowChanged, "*"}, {editor::kRowDiffers, "\u2260"}}};

QString SignsOf(int data) {
  QString signs;
  for (const auto& [bit, sign] : kRowSigns) {
    if ((data & bit) != 0) signs += QString::fromUtf8(sign);
  }
  return signs;
}

// The row's ground, without its text.
void PaintGround(QPainter& painter, QStyleOptionViewItem option) {
  option.text.clear();
  option.widget->style()->drawControl(QStyle::CE_ItemViewItem, &option, &painter, option.widget);
  const bool chosen = (option.state & QStyle::State_Selected) != 0;
  painter.setPen(option.palette.color(chosen ? QPalette::HighlightedText : QPalette::Text));
}

void PaintText(QPainter& painter, const QRect& area, const QString& text,
               Qt::Alignment side = Qt::AlignLeft) {
  painter.drawText(QRectF(area),
                   painter.fontMetrics().elidedText(text, Qt::ElideRight, area.width()),
                   QTextOption(side | Qt::AlignVCenter));
}

}  // namespace

void ParameterRowsPainter::paint(QPainter* painter, const QStyleOptionViewItem& given,
                                 const QModelIndex& index) const {
  QStyleOptionViewItem option = given;
  initStyleOption(&option, index);
  painter->save();
  PaintGround(*painter, option);
  QFont font = option.font;
  font.setStrikeOut(form_.LstCfg.BackColor.Get() == editor::kRemovedColour);
  painter->setFont(font);
  const int em = option.fontMetrics.height();
  QRect area = option.rect.adjusted(em / 3, 0, -em / 3, 0);
  const auto cell = [&area, em](int width) {
    const QRect place(area.left(), area.top(), width, area.height());
    area.setLeft(place.right() + em / 2);
    return place;
  };
  PaintText(*painter, cell(em * 2), QString::number(index.row() + 1), Qt::AlignRight);
  PaintText(*painter, cell(em * 2), SignsOf(form_.LstCfg.ItemData(index.row())), Qt::AlignCenter);
  PaintText(*painter, cell(area.width() * 3 / 5), ToQt(form_.LstTitle.List(index.row())));
  PaintText(*painter, area, option.text);
  painter->restore();
}

void TabbedRowsPainter::paint(QPainter* painter, const QStyleOptionViewItem& given,
                              const QModelIndex& index) const {
  QStyleOptionViewItem option = given;
  initStyleOption(&option, index);
  painter->save();
  PaintGround(*painter, option);
  const QStringList cells = option.text.split('\t');
  const int gap = option.fontMetrics.height() / 3;
  const int width = option.rect.width() / static_cast<int>(cells.size());
  QRect area = option.rect;
  area.setWidth(width);
  for (const QString& text : cells) {
    PaintText(*painter, area.adjusted(gap, 0, -gap, 0), text);
    area.moveLeft(area.left() + width);
  }
  painter->restore();
}

}  // namespace tintbench::desktop
