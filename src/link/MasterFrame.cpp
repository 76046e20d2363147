#include "link/MasterFrame.h"

#include <cmath>

namespace tintbench::link {

namespace {

// How long the machine may take, and how often the line is looked at meanwhile, in seconds.
constexpr double kServiceTimeout = 10.0;
constexpr double kServiceLook = 0.05;

constexpr std::string_view kOpenCheck = "____";

char HalfByteCharacter(unsigned value) { return static_cast<char>('0' + value); }

}  // namespace

std::string MakeMasterFrame(std::string_view text) {
  const std::size_t place = text.find(kOpenCheck);
  std::string frame(text);
  if (place == std::string_view::npos) return frame;
  unsigned check = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool inCheckField = i >= place && i < place + kOpenCheck.size();
    if (!inCheckField) check ^= static_cast<unsigned char>(text[i]);
  }
  const std::string field = {'0', '0', HalfByteCharacter(check >> 4U),
                             HalfByteCharacter(check & 0x0FU)};
  return frame.replace(place, kOpenCheck.size(), field);
}

std::string MasterWireFrame(std::string_view text) {
  return kFrameStart + MakeMasterFrame(text) + kFrameEnd;
}

std::string MasterStartAnswer() { return MasterWireFrame("01C1____000"); }

std::string CollectUntilFrameEnd(SerialPort& port, ui::Screen& screen,
                                 const std::function<void(int)>& tell) {
  const double end = screen.Time().Now() + kServiceTimeout;
  std::string text;
  while (port.PortOpen() && text.find(kFrameEnd) == std::string::npos &&
         screen.Time().Now() < end) {
    if (tell) tell(static_cast<int>(std::ceil(end - screen.Time().Now())));
    screen.Idle(kServiceLook);
    text += port.Input();
  }
  return text;
}

}  // namespace tintbench::link
