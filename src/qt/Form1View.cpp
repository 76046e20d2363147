#include "qt/Form1View.h"

#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <array>

#include "qt/Binder.h"
#include "qt/Card.h"
#include "qt/Look.h"
#include "qt/NamedPictures.h"
#include "qt/QtText.h"

namespace tintbench::desktop {

namespace {

// Where a panel stands in a grid of three equal columns and two rows.
struct PanelPlace {
  const char* Title;
  const char* StateLabel;  // the label that says what the panel is doing
  int Row;
  int Column;
  int RowSpan;
  int ColumnSpan;
};

constexpr std::array<PanelPlace, 4> kPanels{{{"Input sensors", "ILabel1", 0, 0, 2, 1},
                                             {"Output sensors", "OLabel1", 0, 1, 1, 1},
                                             {"Status", "ErLabel1", 0, 2, 1, 1},
                                             {"Machine card", "", 1, 1, 1, 2}}};

// The heights of the upper and the lower panels at the right.
constexpr std::array<int, 2> kRowShares{33, 52};

class DropMark final : public QWidget {
 public:
  explicit DropMark(QWidget* parent) : QWidget(parent) {
    setFixedSize(Em(*this), Em(*this) * 3 / 2);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, true);
    PaintDrop(painter, rect(), palette().color(QPalette::Highlight));
  }
};

// The window's inside. It opens with room for the whole menu bar, and can be made smaller.
class MainArea final : public QWidget {
 public:
  explicit MainArea(QWidget* parent) : QWidget(parent) {
    setMinimumSize(Em(*this) * 36, Em(*this) * 20);
  }
  QSize sizeHint() const override { return {Em(*this) * 84, Em(*this) * 48}; }
};

void AddLinkRow(ui::Form& form, QWidget& view, QBoxLayout& rows) {
  QWidget* const state = MakeWidget<ui::Label>(form, "LblLink", -1, &view);
  QWidget* const port = MakeWidget<ui::Label>(form, "LblLinkPort", -1, &view);
  if (state == nullptr && port == nullptr) return;
  auto* const row = new QHBoxLayout;
  row->addWidget(new DropMark(&view));
  if (state != nullptr) {
    state->setFont(ScaledFont(view, 1.2, true));
    row->addWidget(state);
  }
  row->addStretch();
  if (port != nullptr) row->addWidget(port);
  rows.addLayout(row);
}

void AddStateLabel(ui::Form& form, const char* name, Card& card) {
  QWidget* const made = MakeWidget<ui::Label>(form, name, -1, &card);
  if (made == nullptr) return;
  auto* const label = static_cast<QLabel*>(made);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  card.Body().addWidget(label);
}

// nullptr if the window has nothing to show in that panel.
Card* MakePanel(ui::Form& form, int index, const PanelPlace& place, QWidget& view) {
  auto* const frame = form.Find<ui::Frame>("Frame", index);
  const bool hasLabel = form.Find<ui::Label>(place.StateLabel) != nullptr;
  if (!hasLabel && (frame == nullptr || frame->Children().empty())) return nullptr;
  auto* const card = new Card(place.Title, &view);
  if (frame != nullptr) Bind(*frame, static_cast<QFrame&>(*card));
  AddStateLabel(form, place.StateLabel, *card);
  card->Body().addStretch();
  return card;
}

void AddPanels(ui::Form& form, QWidget& view, QBoxLayout& rows) {
  std::array<Card*, kPanels.size()> cards{};
  for (std::size_t i = 0; i < cards.size(); ++i) {
    cards[i] = MakePanel(form, static_cast<int>(i), kPanels[i], view);
  }
  const bool hasLowerRow = cards.back() != nullptr;
  auto* const grid = new QGridLayout;
  grid->setSpacing(Em(view));
  for (std::size_t i = 0; i < cards.size(); ++i) {
    const PanelPlace& place = kPanels[i];
    grid->setColumnStretch(place.Column, 1);
    if (cards[i] == nullptr) continue;
    const int rowSpan = hasLowerRow ? place.RowSpan : 1;
    grid->addWidget(cards[i], place.Row, place.Column, rowSpan, place.ColumnSpan);
    grid->setRowStretch(place.Row, kRowShares[static_cast<std::size_t>(place.Row)]);
  }
  rows.addLayout(grid, 1);
}

// What goes over the line, the sent text beside the received one.
void AddDebugFrame(ui::Form& form, QWidget& view, QBoxLayout& rows) {
  auto* const frame = form.Find<ui::Frame>("FrmDbg");
  if (frame == nullptr) return;
  auto* const group = new QGroupBox(&view);
  Bind(*frame, *group);
  auto* const row = new QHBoxLayout(group);
  for (const int index : {0, 1}) {
    auto* const text = form.Find<ui::TextBox>("TxtDbgIO", index);
    if (text == nullptr) continue;
    auto* const title = new QLabel(ToQt(text->ToolTipText.Get()), group);
    QWidget* const box = MakeWidget(*text, group);
    box->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    row->addWidget(title);
    row->addWidget(box, index + 1);
  }
  rows.addWidget(group);
}

}  // namespace

QWidget* MakeForm1View(ui::Form& form, QWidget* parent) {
  auto* const view = new MainArea(parent);
  auto* const rows = new QVBoxLayout(view);
  const int margin = Em(*view);
  rows->setContentsMargins(margin, margin, margin, margin);
  rows->setSpacing(margin);
  AddLinkRow(form, *view, *rows);
  AddPanels(form, *view, *rows);
  AddDebugFrame(form, *view, *rows);
  return view;
}

}  // namespace tintbench::desktop
