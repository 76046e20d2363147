#include "qt/InstrumentCard.h"

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/InstrumentPictures.h"
#include "qt/Look.h"
#include "qt/PictureWidget.h"
#include "qt/QtText.h"
#include "qt/SwitchBox.h"

namespace tintbench::desktop {

namespace {

constexpr double kReadingScale = 2;
constexpr const char* kLongestReading = "-0000.0";
constexpr const char* kLongestAlarm = "\u25bc BELOW SCALE.";
constexpr const char* kLongestStatus = "[?].";

// Of a fixed size, so that a new text has nothing laid out anew.
void FixSize(QLabel& label, const QFont& font, const char* longest) {
  label.setFont(font);
  const QSize text = label.fontMetrics().size(Qt::TextSingleLine, QString::fromUtf8(longest));
  label.setFixedSize(text + QSize(2, 2));
}

QWidget* MakeGauge(groups::FormGMon& form, int index, QWidget& body) {
  if (index >= groups::kDials) return new BarArea(form, index - groups::kDials, &body);
  auto* const dial = MakeWidget<PictureWidget>(form.PictP(index), &body);
  dial->KeepShape(true);
  return dial;
}

}  // namespace

InstrumentCard::InstrumentCard(groups::FormGMon& form, int index, QWidget* parent)
    : QGroupBox(parent), form_(form), index_(index) {
  auto* const rows = new QVBoxLayout(this);
  const int em = Em(*this);
  rows->setContentsMargins(em / 2, em / 4, em / 2, em / 2);
  rows->setSpacing(em / 3);
  QWidget* const instrument = MakeInstrument();
  rows->addWidget(instrument, 1);
  auto* const absent = new QLabel("not in use", this);
  absent->setAlignment(Qt::AlignCenter);
  rows->addWidget(absent, 1);
  rows->addLayout(MakeLimits());
  rows->addLayout(MakeBoxes());
  ui::Frame& frame = form.FrmInputs(index + 1);
  Binding& binding = Bind(frame, *this);
  binding.Follow({&frame.Enabled, &frame.Caption}, [&frame, instrument, absent, this] {
    instrument->setVisible(frame.Enabled);
    absent->setVisible(!frame.Enabled);
    unit_->setText(
        ToQt(form_.TheGroup().Analogue.at(static_cast<std::size_t>(index_)).Unit).trimmed());
  });
}

QWidget* InstrumentCard::MakeInstrument() {
  auto* const body = new QWidget(this);
  auto* const row = new QHBoxLayout(body);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(MakeGauge(form_, index_, *body), 5);
  auto* const column = new QVBoxLayout;
  column->addLayout(MakeReading(*body));
  auto* const judged = new QHBoxLayout;
  auto* const title = MakeWidget<QLabel>(form_.LblNCurr(index_), body);
  title->setToolTip("Minimum and maximum");
  title->setCursor(Qt::PointingHandCursor);
  alarm_ = MakeWidget<QLabel>(form_.LblAlarm(index_), body);
  alarm_->setAlignment(Qt::AlignCenter);
  judged->addWidget(title);
  judged->addStretch();
  judged->addWidget(alarm_);
  column->addLayout(judged);
  column->addWidget(new TrendArea(form_, index_, body), 1);
  row->addLayout(column, 6);
  return body;
}

QLayout* InstrumentCard::MakeReading(QWidget& body) {
  auto* const row = new QHBoxLayout;
  reading_ = MakeWidget<QLabel>(form_.LblCurr(index_), &body);
  reading_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  unit_ = new QLabel(&body);
  status_ = MakeWidget<QLabel>(form_.LblIanStatus(index_), &body);
  status_->setAlignment(Qt::AlignCenter);
  row->addWidget(reading_);
  row->addWidget(unit_);
  row->addStretch();
  row->addWidget(status_);
  return row;
}

QLayout* InstrumentCard::MakeLimits() {
  auto* const row = new QHBoxLayout;
  const auto add = [&](QLabel* title, ui::Label& value) {
    row->addWidget(title);
    auto* const shown = MakeWidget<QLabel>(value, this);
    shown->setAlignment(Qt::AlignCenter);
    row->addWidget(shown, 1);
  };
  add(new QLabel("Start", this), form_.LblStart(index_));
  add(MakeWidget<QLabel>(form_.LblNlow(index_), this), form_.LblLow(index_));
  add(MakeWidget<QLabel>(form_.LblNHigh(index_), this), form_.LblHigh(index_));
  add(new QLabel("End", this), form_.LblEnd(index_));
  return row;
}

QLayout* InstrumentCard::MakeBoxes() {
  auto* const row = new QHBoxLayout;
  auto* const out = new WordedBox("Not enquired", this);
  auto* const function = new WordedBox("X function off", this);
  Bind(form_.ChkIanOff(index_), *out);
  Bind(form_.ChkIanXOff(index_), *function);
  row->addWidget(out);
  row->addWidget(function);
  row->addStretch();
  row->addWidget(new QLabel("Connector", this));
  row->addWidget(MakeWidget<QLabel>(form_.LblCnIan(index_), this));
  return row;
}

void InstrumentCard::resizeEvent(QResizeEvent* event) {
  QGroupBox::resizeEvent(event);
  FitReading();
}

void InstrumentCard::FitReading() {
  constexpr double kUsual = 22;
  constexpr double kLargestReading = 1.75;
  const double room = width() / (kUsual * Em(*this));
  const double larger = std::clamp(room, 1.0, kLargestReading);
  FixSize(*reading_, ScaledFont(*this, kReadingScale * larger, true), kLongestReading);
  const double scale = RoomScale(*this, width(), kUsual);
  FixSize(*status_, ScaledFont(*this, scale, true), kLongestStatus);
  FixSize(*alarm_, ScaledFont(*this, scale, true), kLongestAlarm);
  unit_->setFont(ScaledFont(*this, scale, false));
}

}  // namespace tintbench::desktop
