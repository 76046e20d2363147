#include "qt/CpuCard.h"

#include <algorithm>
#include <array>

#include "qt/Colours.h"
#include "state/CardLayout.h"
#include "state/SensorPanels.h"

namespace tintbench::desktop {

namespace {

struct CardColours {
  QRgb Board;
  QRgb Trace;
  QRgb Edge;  // outlines
  QRgb Body;  // of sockets and banks
  QRgb Ink;   // words on a body
  QRgb Chip;
  QRgb Print;  // words on the chip
  QRgb Metal;  // pins and the rings of the screw holes
};

constexpr CardColours kLight{0xFF2F6690, 0xFF5B8DB3, 0xFF1B4462, 0xFFF3F1EA,
                             0xFF2B333B, 0xFF2A2F35, 0xFFD5DBE0, 0xFFD9C27A};
constexpr CardColours kDark{0xFF1D3F5B, 0xFF336086, 0xFF0E2233, 0xFF47515B,
                            0xFFF0F3F5, 0xFF15191D, 0xFFAAB4BD, 0xFFB39A55};

// In the card's units.
constexpr double kCorner = 16;
constexpr double kHoleInset = 18;
constexpr double kHoleRadius = 9;
constexpr double kTraceWidth = 2.5;
constexpr double kLaneStep = 8;
constexpr double kFirstLane = 158;
constexpr double kPinInset = 14;
constexpr double kBusStep = 16;
constexpr int kBusLines = 6;
constexpr int kNumberSize = 28;
constexpr int kWordSize = 24;
constexpr int kChipSize = 36;

QRectF Rect(const state::CardPlace& place) {
  return {place.Left, place.Top, place.Width, place.Height};
}

class CardPainter {
 public:
  CardPainter(QPainter& painter, const CardColours& colours, const QColor& ground)
      : painter_(painter), colours_(colours), ground_(ground) {}

  void Paint() {
    PaintBoard();
    PaintTraces();
    for (int connector = 1; connector <= state::kCardSockets; ++connector) PaintSocket(connector);
    PaintSwitches();
    PaintProcessor();
    PaintDrivers();
  }

 private:
  void Use(QRgb fill, double outline = kTraceWidth) {
    painter_.setPen(QPen(QColor(colours_.Edge), outline));
    painter_.setBrush(QColor(fill));
  }

  void Write(const QRectF& area, const QString& words, QRgb colour, int size) {
    QFont font = painter_.font();
    font.setPixelSize(size);
    font.setBold(true);
    painter_.setFont(font);
    painter_.setPen(QColor(colour));
    painter_.drawText(area, Qt::AlignCenter | Qt::TextDontClip, words);
  }

  void PaintBoard() {
    Use(colours_.Board);
    const QRectF board(0, 0, state::kCardWidth, state::kCardHeight);
    painter_.drawRoundedRect(board.adjusted(1, 1, -1, -1), kCorner, kCorner);
    painter_.setPen(QPen(QColor(colours_.Metal), 4));
    painter_.setBrush(ground_);
    for (const double x : {kHoleInset, state::kCardWidth - kHoleInset}) {
      for (const double y : {kHoleInset, state::kCardHeight - kHoleInset}) {
        painter_.drawEllipse(QPointF(x, y), kHoleRadius, kHoleRadius);
      }
    }
  }

  // From every socket to its pin of the processor. The outer sockets take the lanes nearer to the
  // processor, so that no two lines cross.
  void PaintTraces() {
    painter_.setPen(QPen(QColor(colours_.Trace), kTraceWidth));
    const QRectF chip = Rect(state::kProcessor);
    const double pinStep = (chip.width() - 2 * kPinInset) / (state::kSocketsInRow - 1);
    for (int column = 0; column < state::kSocketsInRow; ++column) {
      const QRectF socket = Rect(state::SocketPlace(column + 1));
      const int fromEdge = std::min(column, state::kSocketsInRow - 1 - column);
      const double lane = kFirstLane - kLaneStep * fromEdge;
      const double pin = chip.left() + kPinInset + pinStep * column;
      const double x = socket.center().x();
      const std::array<QPointF, 4> line{QPointF(x, socket.bottom()), QPointF(x, lane),
                                        QPointF(pin, lane), QPointF(pin, chip.top())};
      PaintTrace(line);
    }
    PaintBus(state::kSwitchBank.Left + state::kSwitchBank.Width, chip.left());
    PaintBus(chip.right(), state::kDriverBank.Left);
  }

  // The line, and the same for the lower row of sockets.
  void PaintTrace(std::array<QPointF, 4> line) {
    for ([[maybe_unused]] const bool lower : {false, true}) {
      painter_.drawPolyline(line.data(), static_cast<int>(line.size()));
      for (QPointF& point : line) point.setY(state::kCardHeight - point.y());
    }
  }

  void PaintBus(double left, double right) {
    const double top = state::kCardHeight / 2 - kBusStep * (kBusLines - 1) / 2;
    for (int line = 0; line < kBusLines; ++line) {
      const double y = top + kBusStep * line;
      painter_.drawLine(QPointF(left, y), QPointF(right, y));
    }
  }

  // Where a lamp may stand.
  void PaintSeat(const state::CardPlace& place) {
    painter_.setPen(QPen(QColor(colours_.Edge), 1));
    painter_.setBrush(Halfway(QColor(colours_.Body), QColor(colours_.Board)));
    const double rim = place.Width / 4;
    painter_.drawEllipse(Rect(place).adjusted(rim, rim, -rim, -rim));
  }

  void PaintSocket(int connector) {
    const QRectF socket = Rect(state::SocketPlace(connector));
    const state::CardPlace lamp = state::SocketLampPlace(connector);
    const bool upper = lamp.Top - socket.top() > socket.bottom() - (lamp.Top + lamp.Height);
    PaintPins(socket, upper);
    Use(colours_.Body);
    painter_.drawRoundedRect(socket, 5, 5);
    PaintSeat(lamp);
    const QRectF number =
        upper ? QRectF(socket.left(), socket.top(), socket.width(), lamp.Top - socket.top())
              : QRectF(QPointF(socket.left(), lamp.Top + lamp.Height), socket.bottomRight());
    Write(number, QString::number(connector), colours_.Ink, kNumberSize);
  }

  // The pins stick out of the socket towards the board's edge.
  void PaintPins(const QRectF& socket, bool upper) {
    constexpr int kPins = 4;
    constexpr double kPinWidth = 9;
    constexpr double kPinLength = 12;
    Use(colours_.Metal, 1);
    const double step = socket.width() / kPins;
    const double top = upper ? socket.top() - kPinLength : socket.bottom();
    for (int pin = 0; pin < kPins; ++pin) {
      const double left = socket.left() + step * (pin + 0.5) - kPinWidth / 2;
      painter_.drawRect(QRectF(left, top, kPinWidth, kPinLength));
    }
  }

  void PaintSwitches() {
    const QRectF bank = Rect(state::kSwitchBank);
    Use(colours_.Body);
    painter_.drawRoundedRect(bank, 6, 6);
    const double firstLamp = state::SwitchLampPlace(0, true).Left;
    for (const bool on : {true, false}) {
      const state::CardPlace row = state::SwitchLampPlace(0, on);
      Write(QRectF(bank.left(), row.Top, firstLamp - bank.left(), row.Height), on ? "ON" : "OFF",
            colours_.Ink, kWordSize);
    }
    for (int number = 0; number < state::kPairs; ++number) {
      for (const bool on : {true, false}) PaintSeat(state::SwitchLampPlace(number, on));
      const state::CardPlace lamp = state::SwitchLampPlace(number, false);
      const double foot = lamp.Top + lamp.Height;
      Write(QRectF(lamp.Left, foot, lamp.Width, bank.bottom() - foot), QString::number(number + 1),
            colours_.Ink, kNumberSize);
    }
    WriteTitle(bank, state::SwitchLampPlace(0, true).Top, "DIP SWITCH");
  }

  void PaintDrivers() {
    const QRectF bank = Rect(state::kDriverBank);
    Use(colours_.Body);
    painter_.drawRoundedRect(bank, 6, 6);
    for (int output = 0; output < state::kOutputBits; ++output) {
      PaintSeat(state::DriverLampPlace(output));
    }
    WriteTitle(bank, state::DriverLampPlace(0).Top, "OUTPUTS");
  }

  void WriteTitle(const QRectF& bank, double firstLamp, const QString& words) {
    Write(QRectF(bank.left(), bank.top(), bank.width(), firstLamp - bank.top()), words,
          colours_.Ink, kWordSize);
  }

  void PaintProcessor() {
    constexpr double kLegStep = 18;
    const QRectF chip = Rect(state::kProcessor);
    painter_.setPen(QPen(QColor(colours_.Metal), 6, Qt::SolidLine, Qt::FlatCap));
    for (double y = chip.top() + kPinInset; y < chip.bottom(); y += kLegStep) {
      painter_.drawLine(QPointF(chip.left() - 8, y), QPointF(chip.right() + 8, y));
    }
    for (double x = chip.left() + kPinInset; x < chip.right(); x += kLegStep) {
      painter_.drawLine(QPointF(x, chip.top() - 8), QPointF(x, chip.bottom() + 8));
    }
    Use(colours_.Chip);
    painter_.drawRoundedRect(chip, 6, 6);
    painter_.setPen(Qt::NoPen);
    painter_.setBrush(QColor(colours_.Print));
    painter_.drawEllipse(chip.topLeft() + QPointF(20, 20), 6, 6);
    Write(chip, "CPU", colours_.Print, kChipSize);
  }

  QPainter& painter_;
  const CardColours& colours_;
  QColor ground_;
};

}  // namespace

void PaintCpuCard(QPainter& painter, const QRectF& area, const QPalette& palette) {
  painter.save();
  painter.translate(area.topLeft());
  painter.scale(area.width() / state::kCardWidth, area.height() / state::kCardHeight);
  CardPainter(painter, IsDark(palette) ? kDark : kLight, palette.color(QPalette::Base)).Paint();
  painter.restore();
}

}  // namespace tintbench::desktop
