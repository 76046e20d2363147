#include "qt/SensorPanelView.h"

#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QStyle>
#include <QToolTip>
#include <QVBoxLayout>
#include <array>

#include "qt/Binder.h"
#include "qt/Binding.h"
#include "qt/Card.h"
#include "qt/Look.h"
#include "qt/PanelArea.h"
#include "qt/PanelHead.h"
#include "qt/PictureWidget.h"
#include "qt/QtText.h"
#include "qt/SensorIndicator.h"
#include "qt/SensorRows.h"
#include "state/SensorPanels.h"

namespace tintbench::desktop {

namespace {

// The names of a panel's controls.
struct PanelNames {
  const char* State;  // the label that says how the panel does
  std::array<const char*, 2> LifeSigns;
  const char* Button;
  const char* Lamp;
  const char* Square;
  const char* Name;
};

constexpr std::array<PanelNames, state::kPanels> kNames{{
    {"ILabel1", {"IpShape1", "IpShape2"}, "ICheck1", "IShape3", "ICheck2", "ILabel3"},
    {"OLabel1", {"OpShape1", "OpShape2"}, "OCheck1", "OShape3", "OCheck2", "OLabel3"},
    {"ErLabel1", {"ErpShape1", "ErpShape2"}, "", "", "", ""},
    {"", {"", ""}, "", "", "", ""},
}};

constexpr std::array<const char*, state::kPanels> kHeadTips{
    "Large or back: Ctrl+I\nHow sensors are shown: Shift+I or the right button",
    "Large or back: Ctrl+O\nHow sensors are shown: Shift+O or the right button",
    "Large or back: Ctrl+S",
    "Large or back: Ctrl+G\nHow lamps are shown: Shift+G or the right button"};

constexpr const char* kLarge = "1";

// A name that ends in dots where its row is too narrow, and is told whole by a tip then.
class RowName final : public QLabel {
 public:
  explicit RowName(QWidget* parent) : QLabel(parent) {}

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    style()->drawItemText(&painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, palette(),
                          isEnabled(), Shortened(), foregroundRole());
  }
  bool event(QEvent* event) override {
    if (event->type() == QEvent::ToolTip && Shortened() != text()) {
      QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
      return true;
    }
    return QLabel::event(event);
  }

 private:
  QString Shortened() const { return fontMetrics().elidedText(text(), Qt::ElideRight, width()); }
};

// A dot that keeps its place while it is hidden, so that nothing around it moves.
void AddLifeSign(ui::Form& form, const char* name, QBoxLayout& row, QWidget& parent) {
  QWidget* const dot = MakeWidget<ui::Shape>(form, name, -1, &parent);
  if (dot == nullptr) return;
  QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  policy.setRetainSizeWhenHidden(true);
  dot->setSizePolicy(policy);
  dot->setAccessibleName("Sign of life");
  const int edge = Em(parent) * 5 / 8;
  dot->setFixedSize(edge, edge);
  row.addWidget(dot, 0, Qt::AlignVCenter);
}

// What the panel says about itself, with its life signs.
void AddStateLine(ui::Form& form, const PanelNames& names, bool prominent, Card& card) {
  auto* const row = new QHBoxLayout;
  QWidget* const made = MakeWidget<ui::Label>(form, names.State, -1, &card);
  if (auto* const label = qobject_cast<QLabel*>(made)) {
    label->setWordWrap(true);
    label->setMinimumHeight(Em(card));
    if (prominent) label->setFont(ScaledFont(card, 1.2, true));
    row->addWidget(label, 1);
  }
  for (const char* sign : names.LifeSigns) AddLifeSign(form, sign, *row, card);
  card.Body().addLayout(row);
}

// The state in words, for those who hear it.
const char* StateOf(const ui::CheckBox& box) {
  if (box.BackColor->IsSystem()) return "no data";
  return box.Value == ui::kChecked ? "ON" : "OFF";
}

const char* StateOf(const ui::Shape& lamp) {
  if (lamp.Sign->empty()) return "no data";
  return lamp.Sign.Get() == state::kActiveSign ? "ON" : "OFF";
}

// The sensor that a row of indicators stands for.
struct Sensor {
  const ui::Label& Label;
  Binding& Name;
};

// Has a screen reader tell the sensor and its state whenever one of the properties has changed.
template <typename Kind>
void Speak(const Sensor& sensor, const Kind& control, Binding& binding,
           std::initializer_list<const ui::PropertyBase*> state, QWidget& indicator) {
  const auto tell = [&name = sensor.Label, &control, &indicator] {
    indicator.setAccessibleName(ToQt(name.Caption.Get()) + ": " + StateOf(control));
  };
  sensor.Name.Follow({&sensor.Label.Caption}, tell);
  binding.Follow(state, tell);
}

QWidget* MakeIndicator(const ui::Form& form, const char* name, int index,
                       SensorIndicator::Form shape, const Sensor& sensor, QWidget* parent) {
  auto* const box = form.Find<ui::CheckBox>(name, index);
  if (box == nullptr) return nullptr;
  auto* const indicator = new SensorIndicator(shape, parent);
  Speak(sensor, *box, Bind(*box, *indicator), {&box->Value, &box->BackColor}, *indicator);
  return indicator;
}

QWidget* MakeLamp(const ui::Form& form, const char* name, int index, const Sensor& sensor,
                  QWidget* parent) {
  auto* const shape = form.Find<ui::Shape>(name, index);
  if (shape == nullptr) return nullptr;
  auto* const lamp = new FigureWidget(parent);
  Speak(sensor, *shape, Bind(*shape, *lamp), {&shape->Sign}, *lamp);
  return lamp;
}

void FillRows(const ui::Form& form, const PanelNames& names, SensorRows& rows) {
  for (int index = 0;; ++index) {
    auto* const label = form.Find<ui::Label>(names.Name, index);
    if (label == nullptr) return;
    auto* const name = new RowName(&rows);
    const Sensor sensor{*label, Bind(*label, *name)};
    using Form = SensorIndicator::Form;
    const SensorRows::Indicators indicators{
        MakeIndicator(form, names.Button, index, Form::Pill, sensor, &rows),
        MakeLamp(form, names.Lamp, index, sensor, &rows),
        MakeIndicator(form, names.Square, index, Form::Square, sensor, &rows)};
    rows.AddRow(indicators, *name);
  }
}

// The rows, with a scroll bar where they are too many. Wide enough for the names if it can be.
class RowScroll final : public QScrollArea {
 public:
  explicit RowScroll(QWidget* parent) : QScrollArea(parent), rows_(new SensorRows(viewport())) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::TabFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
  }

  SensorRows& Rows() { return *rows_; }
  // To be called once all rows are there.
  void TakeRows() {
    setWidget(rows_);
    // The panel's own ground shows through.
    rows_->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
  }

  QSize minimumSizeHint() const override {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return {rows_->WholeWidth() + bar, QScrollArea::minimumSizeHint().height()};
  }

 protected:
  // Names that came while nothing was shown have not asked for room yet.
  void showEvent(QShowEvent* event) override {
    updateGeometry();
    QScrollArea::showEvent(event);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == rows_ && event->type() == QEvent::LayoutRequest) updateGeometry();
    return QScrollArea::eventFilter(watched, event);
  }

 private:
  SensorRows* rows_;
};

void AddRows(const ui::Form& form, const PanelNames& names, Card& card) {
  auto* const scroll = new RowScroll(&card);
  FillRows(form, names, scroll->Rows());
  scroll->TakeRows();
  scroll->setAccessibleName(card.accessibleName());
  card.Body().addWidget(scroll, 1);
}

void FillSensorPanel(ui::Form& form, int panel, Card& card) {
  const PanelNames& names = kNames.at(static_cast<std::size_t>(panel));
  AddStateLine(form, names, false, card);
  AddRows(form, names, card);
}

// The errors' texts, larger in a large panel.
class ErrorTexts final : public QPlainTextEdit {
 public:
  explicit ErrorTexts(QWidget* parent) : QPlainTextEdit(parent) {
    setAccessibleName("Errors of the machine");
    setPlaceholderText("The machine's errors are listed here.");
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    constexpr double kUsual = 30;
    const QFont font =
        ScaledFont(*parentWidget(), RoomScale(*parentWidget(), width(), kUsual), false);
    if (font != this->font()) setFont(font);
    QPlainTextEdit::resizeEvent(event);
  }
};

void FillStatusPanel(ui::Form& form, int panel, Card& card) {
  AddStateLine(form, kNames.at(static_cast<std::size_t>(panel)), true, card);
  auto* const texts = form.Find<ui::TextBox>("ErText1");
  if (texts == nullptr) return card.Body().addStretch();
  auto* const widget = new ErrorTexts(&card);
  Bind(*texts, *widget, Reading::KeepsItsPlace);
  card.Body().addWidget(widget, 1);
}

void FillCardPanel(ui::Form& form, int, Card& card) {
  if (auto* const picture = form.Find<ui::PictureBox>("GRPicIOcard")) {
    auto* const widget = new PictureWidget(&card);
    widget->KeepShape(true);
    widget->setAccessibleName(card.accessibleName());
    Bind(*picture, *widget);
    card.Body().addWidget(widget, 1);
  }
  QWidget* const legend = MakeWidget<ui::Label>(form, "GRLabel1", -1, &card);
  if (legend != nullptr) card.Body().addWidget(legend);
}

using Filler = void (*)(ui::Form& form, int panel, Card& card);
constexpr std::array<Filler, state::kPanels> kFillers{FillSensorPanel, FillSensorPanel,
                                                      FillStatusPanel, FillCardPanel};

// The title of a panel that has no head.
void AddTitle(const ui::Form& form, int panel, Card& card) {
  auto* const label = form.Find<ui::Label>("LblTitle", panel);
  if (label == nullptr) return;
  QWidget* const title = MakeWidget(*label, &card);
  title->setFont(ScaledFont(card, 1, true));
  card.setAccessibleName(ToQtSpoken(label->Caption.Get()));
  card.Body().addWidget(title);
}

// What is old is drawn pale: sensors, lamps and errors, but not what the panel says of itself.
void FadeWith(const ui::Frame& frame, Binding& binding, const Card& card) {
  constexpr double kPale = 0.5;
  for (QWidget* content : card.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (qobject_cast<QAbstractScrollArea*>(content) == nullptr &&
        dynamic_cast<PictureWidget*>(content) == nullptr) {
      continue;
    }
    auto* const effect = new QGraphicsOpacityEffect(content);
    effect->setOpacity(kPale);
    content->setGraphicsEffect(effect);
    binding.Follow({&frame.Faded}, [&frame, effect] { effect->setEnabled(frame.Faded); });
  }
}

PanelHead* MakeHead(ui::Button& button, int panel, QWidget& parent) {
  auto* const head = new PanelHead(&parent);
  Binding& binding = Bind(button, *head);
  binding.Follow({&button.Tag}, [&button, head] { head->ShowLarge(button.Tag.Get() == kLarge); });
  head->setToolTip(kHeadTips.at(static_cast<std::size_t>(panel)));
  return head;
}

void FillPanel(ui::Form& form, int panel, ui::Frame& frame, Card& card) {
  Binding& binding = Bind(frame, static_cast<QFrame&>(card));
  kFillers.at(static_cast<std::size_t>(panel))(form, panel, card);
  FadeWith(frame, binding, card);
}

}  // namespace

QWidget* MakeSensorPanel(ui::Form& form, int panel, QWidget* parent) {
  auto* const frame = form.Find<ui::Frame>("Frame", panel);
  if (frame == nullptr) return nullptr;
  auto* const card = new Card(parent);
  AddTitle(form, panel, *card);
  FillPanel(form, panel, *frame, *card);
  return card;
}

void AddSensorPanels(ui::Form& form, PanelArea& area) {
  for (int panel = 0; panel < state::kPanels; ++panel) {
    auto* const frame = form.Find<ui::Frame>("Frame", panel);
    if (frame == nullptr) continue;
    auto* const button = form.Find<ui::Button>("CmdResize", panel);
    QWidget* const head = button == nullptr ? nullptr : MakeHead(*button, panel, area);
    auto* const card = new Card(&area);
    if (button != nullptr) card->setAccessibleName(ToQtSpoken(button->Caption.Get()));
    FillPanel(form, panel, *frame, *card);
    area.Add(*frame, *card, button, head);
  }
}

}  // namespace tintbench::desktop
