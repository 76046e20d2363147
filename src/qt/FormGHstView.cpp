#include "qt/FormGHstView.h"

#include <QFontDatabase>
#include <QGroupBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "qt/Binder.h"
#include "qt/Look.h"
#include "qt/RowList.h"

namespace tintbench::desktop {

namespace {

// The window's inside. It opens with room for whole lines of a recording, and can be made smaller.
class HistoryArea final : public QWidget {
 public:
  explicit HistoryArea(QWidget* parent) : QWidget(parent) { setMinimumHeight(Em(*this) * 22); }
  QSize sizeHint() const override { return {Em(*this) * 64, Em(*this) * 38}; }
};

// A recording's line says too much for one line beside the text, and so takes two. It is broken
// between brackets only.
class FileRows final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QString displayText(const QVariant& value, const QLocale& locale) const override {
    constexpr QChar kNoBreak(0xA0);
    QString text = QStyledItemDelegate::displayText(value, locale);
    text.replace(QLatin1Char(' '), kNoBreak);
    const QString between = QString("]") + kNoBreak + QLatin1Char('[');
    return text.replace(between, QString("] ["));
  }
};

RowList* MakeFileList(groups::FormGHst& form, QWidget& view) {
  auto* const list = MakeWidget<RowList>(form.CmbFile, &view);
  list->setItemDelegate(new FileRows(list));
  list->setSpacing(Em(view) / 6);
  list->setUniformItemSizes(false);
  list->setWordWrap(true);
  list->setResizeMode(QListView::Adjust);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setAlternatingRowColors(true);
  list->setAccessibleName("Recordings");
  return list;
}

QWidget* MakeChoice(groups::FormGHst& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmChoice, &view);
  box->setMinimumWidth(Em(view) * 16);
  auto* const column = new QVBoxLayout(box);
  auto* const sorting = MakeWidget<QGroupBox>(form.Frame1, box);
  auto* const options = new QHBoxLayout(sorting);
  options->addWidget(MakeWidget<QRadioButton>(form.OptSort(0), sorting));
  options->addWidget(MakeWidget<QRadioButton>(form.OptSort(1), sorting));
  options->addStretch();
  column->addWidget(sorting);
  column->addWidget(MakeFileList(form, *box), 1);
  auto* const button = MakeWidget<QPushButton>(form.CmdView, box);
  button->setFont(ScaledFont(view, 1.2, true));
  button->setMinimumHeight(Em(view) * 2);
  column->addWidget(button);
  return box;
}

QWidget* MakeText(groups::FormGHst& form, QWidget& view) {
  auto* const box = MakeWidget<QGroupBox>(form.FrmFile, &view);
  box->setMinimumWidth(Em(view) * 16);  // whatever its path's length
  auto* const column = new QVBoxLayout(box);
  auto* const text = MakeWidget<QPlainTextEdit>(form.RchTB1, box);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  text->setAccessibleName("Recording");
  column->addWidget(text);
  return box;
}

}  // namespace

QWidget* MakeFormGHstView(groups::FormGHst& form, QWidget* parent) {
  auto* const view = new HistoryArea(parent);
  const int margin = Em(*view) * 2 / 3;
  auto* const whole = new QVBoxLayout(view);
  whole->setContentsMargins(margin, margin, margin, margin);
  auto* const halves = new QSplitter(Qt::Horizontal, view);
  halves->setChildrenCollapsible(false);
  halves->setHandleWidth(margin);
  halves->addWidget(MakeChoice(form, *halves));
  halves->addWidget(MakeText(form, *halves));
  halves->setStretchFactor(0, 2);
  halves->setStretchFactor(1, 3);
  whole->addWidget(halves);
  return view;
}

}  // namespace tintbench::desktop
