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
#include <initializer_list>

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

namespace tintbench::desktop {

namespace {

// The controls of the rows of a panel of sensors.
struct RowControls {
  ui::ControlArray<ui::CheckBox>& Buttons;
  ui::ControlArray<ui::Shape>& Lamps;
  ui::ControlArray<ui::CheckBox>& Squares;
  ui::ControlArray<ui::Label>& Names;
};

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
void AddLifeSign(ui::Shape& sign, QBoxLayout& row, QWidget& parent) {
  auto* const dot = MakeWidget<FigureWidget>(sign, &parent);
  QSizePolicy policy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  policy.setRetainSizeWhenHidden(true);
  dot->setSizePolicy(policy);
  dot->setAccessibleName("Sign of life");
  const int edge = Em(parent) * 5 / 8;
  dot->setFixedSize(edge, edge);
  row.addWidget(dot, 0, Qt::AlignVCenter);
}

// What the panel says about itself, with its life signs. The label is given back.
QLabel& AddStateLine(ui::Label& state, std::initializer_list<ui::Shape*> lifeSigns, Card& card) {
  auto* const row = new QHBoxLayout;
  auto* const label = MakeWidget<QLabel>(state, &card);
  label->setWordWrap(true);
  label->setMinimumHeight(Em(card));
  row->addWidget(label, 1);
  for (ui::Shape* sign : lifeSigns) AddLifeSign(*sign, *row, card);
  card.Body().addLayout(row);
  return *label;
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

QWidget* MakeIndicator(ui::CheckBox& box, SensorIndicator::Form shape, const Sensor& sensor,
                       QWidget* parent) {
  auto* const indicator = new SensorIndicator(shape, parent);
  Speak(sensor, box, Bind(box, *indicator), {&box.Value, &box.BackColor}, *indicator);
  return indicator;
}

QWidget* MakeLamp(ui::Shape& shape, const Sensor& sensor, QWidget* parent) {
  auto* const lamp = new FigureWidget(parent);
  Speak(sensor, shape, Bind(shape, *lamp), {&shape.Sign}, *lamp);
  return lamp;
}

void FillRows(const RowControls& controls, SensorRows& rows) {
  using Form = SensorIndicator::Form;
  for (int index = 0; index < controls.Names.Count(); ++index) {
    ui::Label& label = controls.Names(index);
    auto* const name = new RowName(&rows);
    const Sensor sensor{label, Bind(label, *name)};
    const SensorRows::Indicators indicators{
        MakeIndicator(controls.Buttons(index), Form::Pill, sensor, &rows),
        MakeLamp(controls.Lamps(index), sensor, &rows),
        MakeIndicator(controls.Squares(index), Form::Square, sensor, &rows)};
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

void AddRows(const RowControls& controls, Card& card) {
  auto* const scroll = new RowScroll(&card);
  FillRows(controls, scroll->Rows());
  scroll->TakeRows();
  scroll->setAccessibleName(card.accessibleName());
  card.Body().addWidget(scroll, 1);
}

void FillInputPanel(state::SensorPanels& panels, Card& card) {
  AddStateLine(panels.ILabel1, {&panels.IpShape1, &panels.IpShape2}, card);
  AddRows({panels.ICheck1, panels.IShape3, panels.ICheck2, panels.ILabel3}, card);
}

void FillOutputPanel(state::SensorPanels& panels, Card& card) {
  AddStateLine(panels.OLabel1, {&panels.OpShape1, &panels.OpShape2}, card);
  AddRows({panels.OCheck1, panels.OShape3, panels.OCheck2, panels.OLabel3}, card);
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

void FillStatusPanel(state::SensorPanels& panels, Card& card) {
  AddStateLine(panels.ErLabel1, {&panels.ErpShape1, &panels.ErpShape2}, card)
      .setFont(ScaledFont(card, 1.2, true));
  auto* const texts = new ErrorTexts(&card);
  Bind(panels.ErText1, *texts, Reading::KeepsItsPlace);
  card.Body().addWidget(texts, 1);
}

void FillCardPanel(state::SensorPanels& panels, Card& card) {
  auto* const picture = new PictureWidget(&card);
  picture->KeepShape(true);
  picture->setAccessibleName(card.accessibleName());
  Bind(panels.GRPicIOcard, *picture);
  card.Body().addWidget(picture, 1);
  card.Body().addWidget(MakeWidget<QLabel>(panels.GRLabel1, &card));
}

using Filler = void (*)(state::SensorPanels& panels, Card& card);
constexpr std::array<Filler, state::kPanels> kFillers{FillInputPanel, FillOutputPanel,
                                                      FillStatusPanel, FillCardPanel};

// The title of a panel that has no head.
void AddTitle(ui::Label& label, Card& card) {
  auto* const title = MakeWidget<QLabel>(label, &card);
  title->setFont(ScaledFont(card, 1, true));
  card.setAccessibleName(ToQtSpoken(label.Caption.Get()));
  card.Body().addWidget(title);
}

// What of a panel's content grows old, or null. Of what scrolls it's the inner part: were the
// whole made pale, the ground behind wouldn't be drawn anew, and old texts would show through.
QWidget* Ageing(QWidget* widget) {
  if (auto* const area = qobject_cast<QAbstractScrollArea*>(widget)) return area->viewport();
  return dynamic_cast<PictureWidget*>(widget);
}

// What is old is drawn pale: sensors, lamps and errors, but not what the panel says of itself.
void FadeWith(const ui::Frame& frame, Binding& binding, const Card& card) {
  constexpr double kPale = 0.5;
  for (QWidget* widget : card.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    QWidget* const content = Ageing(widget);
    if (content == nullptr) continue;
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

void FillPanel(state::SensorPanels& panels, int panel, Card& card) {
  ui::Frame& frame = panels.Frame(panel);
  Binding& binding = Bind(frame, card);
  kFillers.at(static_cast<std::size_t>(panel))(panels, card);
  FadeWith(frame, binding, card);
}

}  // namespace

QWidget* MakeSensorPanel(state::SensorPanels& panels, int panel, ui::Label& title,
                         QWidget* parent) {
  auto* const card = new Card(parent);
  AddTitle(title, *card);
  FillPanel(panels, panel, *card);
  return card;
}

void AddSensorPanels(state::SensorPanels& panels, ui::ControlArray<ui::Button>& buttons,
                     PanelArea& area) {
  for (int panel = 0; panel < state::kPanels; ++panel) {
    ui::Button& button = buttons(panel);
    PanelHead* const head = MakeHead(button, panel, area);
    auto* const card = new Card(&area);
    card->setAccessibleName(ToQtSpoken(button.Caption.Get()));
    FillPanel(panels, panel, *card);
    area.Add(panels.Frame(panel), *card, button, *head);
  }
}

}  // namespace tintbench::desktop
