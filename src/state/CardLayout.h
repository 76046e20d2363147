// Where things stand on the drawn CPU card: its sockets, lamps and switches, in the picture's own
// units. The lamps are controls; a view draws the rest at the same places.
#pragma once

namespace tintbench::state {

// The name of the picture.
inline constexpr const char* kCardPicture = "cpu-card";

struct CardPlace {
  double Left;
  double Top;
  double Width;
  double Height;
};

inline constexpr double kCardWidth = 1000;
inline constexpr double kCardHeight = 500;

// The sockets of the connectors 1 to 20, the first half along the upper edge, the second along the
// lower one.
inline constexpr int kCardSockets = 20;
inline constexpr int kSocketsInRow = kCardSockets / 2;
inline constexpr double kSocketWidth = 78;
inline constexpr double kSocketHeight = 84;
inline constexpr double kSocketStep = 95;
constexpr CardPlace SocketPlace(int connector) {
  const int column = (connector - 1) % kSocketsInRow;
  const bool upper = connector <= kSocketsInRow;
  return {36 + kSocketStep * column, upper ? 30 : kCardHeight - 30 - kSocketHeight, kSocketWidth,
          kSocketHeight};
}

// The lamp in a socket leaves room for the socket's number.
inline constexpr double kLampSize = 34;
constexpr CardPlace SocketLampPlace(int connector) {
  const CardPlace socket = SocketPlace(connector);
  const bool upper = connector <= kSocketsInRow;
  const double top = upper ? socket.Top + socket.Height - kLampSize - 10 : socket.Top + 10;
  return {socket.Left + (socket.Width - kLampSize) / 2, top, kLampSize, kLampSize};
}

// Four switches, each with two lamps: on above off.
inline constexpr CardPlace kSwitchBank{60, 160, 260, 180};
constexpr CardPlace SwitchLampPlace(int number, bool on) {
  return {kSwitchBank.Left + 70 + 46.0 * number, kSwitchBank.Top + (on ? 48 : 100), kLampSize,
          kLampSize};
}

// The processor, in the middle.
inline constexpr CardPlace kProcessor{390, 165, 190, 170};

// Eight drivers of the outputs, in two rows.
inline constexpr CardPlace kDriverBank{650, 160, 290, 180};
inline constexpr int kDriversInRow = 4;
constexpr CardPlace DriverLampPlace(int output) {
  const int row = output / kDriversInRow;
  return {kDriverBank.Left + 32 + 64.0 * (output % kDriversInRow),
          kDriverBank.Top + 48 + 66.0 * row, kLampSize, kLampSize};
}

}  // namespace tintbench::state
